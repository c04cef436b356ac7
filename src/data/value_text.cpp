#include "data/value_text.h"

#include <charconv>

#include "engine/guard.h"

namespace zorvel
{

ValueText::ValueText(const zval* value) : exists_(value != nullptr)
{
    if (!exists_)
        return;
    if (Z_TYPE_P(value) == IS_STRING)
        view_ = Z_STRVAL_P(value);
    else if (Z_TYPE_P(value) == IS_LONG)
        view_ = {digits_.data(), std::to_chars(digits_.data(), digits_.data() + digits_.size(), Z_LVAL_P(value)).ptr};
    else
        convert(value);
}

void ValueText::convert(const zval* value)
{
    converted_ = ValueRef::share(value);
    guarded([this] { _convert_to_string(converted_.get()); });
    view_ = Z_STRVAL_P(converted_.get());
}

} // namespace zorvel
