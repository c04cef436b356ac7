#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "blocks/block.h"
#include "engine/holders.h"
#include "engine/memory_bound.h"

namespace zorvel
{

/// One of PHP's own escaping functions.
struct Escaping {
    /// @param charset the character set of the text, null: PHP's configured one. Only the entity functions
    ///        look at it, and report it when it is none that they know.
    /// @return a new engine string
    zend_string* (*escape)(std::string_view text, const char* charset);
    /// The bytes that the function leaves as they are in ISO-8859-1 text, wherever they stand.
    std::array<bool, 256> keeps;
};

/// The escaping of a filter, by the code of its tag and block.
template <BlockType Code>
const Escaping& escapingOf();
/// A backslash before quotes, backslashes and NUL bytes.
template <>
const Escaping& escapingOf<Addslashes>();
/// Every character that has an HTML 4.01 entity, but not the single quote.
template <>
const Escaping& escapingOf<Htmlentities>();
/// The characters & < > and the double quote.
template <>
const Escaping& escapingOf<Htmlspecialchars>();
/// Every byte but ASCII letters, digits and - _ . ~ as % and two hexadecimal digits.
template <>
const Escaping& escapingOf<Rawurlencode>();

/// A filter's escaping of ISO-8859-1 text. There the escape of each byte stands alone, whatever is beside it: PHP's
/// function is asked once for each byte, and its answer kept as long as this object.
class ByteEscaping
{
public:
    explicit ByteEscaping(const Escaping& escaping) : escaping_(escaping) {}

    /// @param text without NUL bytes
    /// @throws Bailout when memory_limit is reached
    void append(std::string& out, std::string_view text);

    /// Appends a text in PHP's configured charset, up to the first NUL byte of its escaped form.
    /// @throws Bailout when memory_limit is reached, PendingException when an error handler throws
    void appendConfigured(std::string& out, std::string_view text);

private:
    const std::string& answerFor(unsigned char byte);

    const Escaping& escaping_;
    /// Asked as a long text grows to several times its size.
    MemoryBound memory_;
    std::vector<std::string> answers_;
    /// By byte, where its answer stands in answers_, counted from 1; 0: not asked for yet.
    std::array<std::uint8_t, 256> places_ = {};
};

} // namespace zorvel
