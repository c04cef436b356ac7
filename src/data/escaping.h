#pragma once

#include <array>
#include <string_view>

#include "blocks/block.h"
#include "engine/holders.h"

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

/// The bytes of ISO-8859-1 text from the first to the last that would not be left as it is; empty when every
/// byte would be. What stands before and behind them needs no escaping, whatever they become.
std::string_view unsafePart(const Escaping& escaping, std::string_view text);

/// @throws Bailout when memory_limit is reached, PendingException when an error handler throws
StringRef escape(const Escaping& escaping, std::string_view text, const char* charset);

} // namespace zorvel
