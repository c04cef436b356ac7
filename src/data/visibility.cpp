#include "data/visibility.h"

#include <charconv>

#include "engine/guard.h"

namespace zorvel
{

namespace
{

/// zend_is_true, which asks an object's own conversion.
bool isTrue(const zval* value)
{
    bool truth = false;
    guarded([&] { truth = zend_is_true(value); });
    return truth;
}

bool isShownByItself(const zval* value)
{
    if (Z_TYPE_P(value) != IS_ARRAY)
        return isTrue(value);
    const zval* visible = zend_hash_str_find(Z_ARRVAL_P(value), ZEND_STRL("visible"));
    return isTrue(visible != nullptr ? visible : value);
}

std::string_view unquote(std::string_view text)
{
    const std::size_t first = text.find('\'');
    const std::size_t last = text.rfind('\'');
    return last > first ? text.substr(first + 1, last - first - 1) : text;
}

/// The number that a text begins with; 0 when it begins with none or with one beyond 64 bits.
zend_long leadingNumber(std::string_view text)
{
    zend_long number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

} // namespace

bool isVisible(Template&, const zval* value, std::string_view compareText)
{
    if (value == nullptr)
        return false;
    if (compareText.empty())
        return isShownByItself(value);

    const std::string_view text = unquote(compareText);
    switch (Z_TYPE_P(value)) {
    case IS_STRING:
        return text == Z_STRVAL_P(value);
    case IS_LONG:
        return leadingNumber(text) == Z_LVAL_P(value);
    case IS_FALSE:
        return text == "0";
    case IS_TRUE:
        return text != "0";
    default:
        return false;
    }
}

} // namespace zorvel
