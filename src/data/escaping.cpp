#include "data/escaping.h"

#include <algorithm>

// These headers leave the language linkage of their functions to whoever includes them.
BEGIN_EXTERN_C()
#include <ext/standard/html.h>
#include <ext/standard/php_string.h>
#include <ext/standard/url.h>
END_EXTERN_C()

namespace zorvel
{

namespace
{

zend_string* escapeEntities(std::string_view text, bool all, const char* charset)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    return php_escape_html_entities(bytes, text.size(), all, ENT_COMPAT, charset);
}

/// Runs between setjmp and a possible longjmp: a holder in place of the release would be jumped over.
zend_string* addslashes(std::string_view text, const char*)
{
    zend_string* copy = zend_string_init(text.data(), text.size(), false);
    zend_string* result = php_addslashes(copy);
    zend_string_release(copy);
    return result;
}

zend_string* htmlentities(std::string_view text, const char* charset)
{
    return escapeEntities(text, true, charset);
}

zend_string* htmlspecialchars(std::string_view text, const char* charset)
{
    return escapeEntities(text, false, charset);
}

zend_string* rawurlencode(std::string_view text, const char*)
{
    return php_raw_url_encode(text.data(), text.size());
}

constexpr bool isSpecial(unsigned char byte)
{
    return byte == '&' || byte == '<' || byte == '>' || byte == '"';
}

constexpr bool isUnreserved(unsigned char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           byte == '-' || byte == '_' || byte == '.' || byte == '~';
}

template <typename Predicate>
constexpr std::array<bool, 256> bytesFor(Predicate holds)
{
    std::array<bool, 256> bytes{};
    for (std::size_t byte = 0; byte < bytes.size(); ++byte)
        bytes[byte] = holds(static_cast<unsigned char>(byte));
    return bytes;
}

} // namespace

template <>
const Escaping& escapingOf<Addslashes>()
{
    static constexpr Escaping escaping{addslashes, bytesFor([](unsigned char byte) {
                                           return byte != '\'' && byte != '"' && byte != '\\' && byte != '\0';
                                       })};
    return escaping;
}

template <>
const Escaping& escapingOf<Htmlentities>()
{
    static constexpr Escaping escaping{htmlentities,
                                       bytesFor([](unsigned char byte) { return byte < 0xA0 && !isSpecial(byte); })};
    return escaping;
}

template <>
const Escaping& escapingOf<Htmlspecialchars>()
{
    static constexpr Escaping escaping{htmlspecialchars, bytesFor([](unsigned char byte) { return !isSpecial(byte); })};
    return escaping;
}

template <>
const Escaping& escapingOf<Rawurlencode>()
{
    static constexpr Escaping escaping{rawurlencode, bytesFor(isUnreserved)};
    return escaping;
}

namespace
{

StringRef escape(const Escaping& escaping, std::string_view text, const char* charset)
{
    StringRef result;
    guarded([&] { result = StringRef::adopt(escaping.escape(text, charset)); });
    return result;
}

bool isUtf8(std::string_view charset)
{
    return zend_binary_strcasecmp(charset.data(), charset.size(), ZEND_STRL("UTF-8")) == 0;
}

/// NUL is none. Looks at all bytes, many at a time.
bool isPlainAscii(std::string_view text)
{
    unsigned char bits = 0;
    for (const char c : text)
        bits |= static_cast<unsigned char>(c);
    return bits < 0x80 && text.find('\0') == std::string_view::npos;
}

} // namespace

void ByteEscaping::appendConfigured(std::string& out, std::string_view text)
{
    // There the escapes are those of ISO-8859-1.
    if (isPlainAscii(text) && isUtf8(php_get_internal_encoding()))
        append(out, text);
    else
        out += escape(escaping_, text, nullptr).textUpToNul();
}

void ByteEscaping::append(std::string& out, std::string_view text)
{
    const auto isUnsafe = [&keeps = escaping_.keeps](char c) { return !keeps[static_cast<unsigned char>(c)]; };
    auto from = text.begin();
    auto unsafe = std::find_if(from, text.end(), isUnsafe);
    while (unsafe != text.end()) {
        out.append(from, unsafe);
        out += answerFor(static_cast<unsigned char>(*unsafe));
        memory_.check(out.size());
        from = unsafe + 1;
        unsafe = std::find_if(from, text.end(), isUnsafe);
    }
    out.append(from, unsafe);
}

const std::string& ByteEscaping::answerFor(unsigned char byte)
{
    if (places_[byte] == 0) {
        const char text = static_cast<char>(byte);
        answers_.emplace_back(escape(escaping_, {&text, 1}, "ISO-8859-1").textUpToNul());
        places_[byte] = static_cast<std::uint8_t>(answers_.size());
    }
    return answers_[places_[byte] - 1U];
}

} // namespace zorvel
