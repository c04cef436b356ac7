#pragma once

#include <memory>
#include <string_view>

#include "blocks/block.h"
#include "blocks/text_block.h"
#include "source/template_fwd.h"

namespace zorvel
{

// A tag's builder appends the tag's block to `blocks`, behind the pending text, or the tag's text to
// `pending`. The parameter is valid during the call only. Every builder throws std::runtime_error for a
// malformed parameter; what else it throws stands with it. A section's builder returns when the section's
// closing tag has been read.

/// `{include P}`: another template file in place, its name from the data or P itself. A file that cannot be
/// opened is skipped.
/// @throws std::runtime_error for a loop path, no name, a circle, and every fault in the file
void parseIncludeTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter);

/// `{optional P}` ... `{/optional}`, negated `{!optional P}`: a section that is shown by the data. The body
/// of a section that is known to be hidden is parsed, with all its faults, and dropped.
void parseOptionalTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter, bool negated);

/// `{dynamic P}` ... `{/dynamic}`, reversed `{rdynamic P}` ... `{/rdynamic}`, and `{dynamic name,P}`: a
/// section repeated for every element of an array.
/// @throws std::runtime_error for a name that an enclosing loop has, for a key as P, and for no P
void parseDynamicTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter, bool reverse);

/// `{a}`, `{a b 'default'}`: the first of some alternatives that has a value, else the default text. When all
/// are known to be missing and there is no default text, the tag stays in the text.
/// @throws std::runtime_error for a misplaced quote
void parseVariableTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter);

/// `{addslashes P}`
void parseAddslashesTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter);

/// `{htmlentities P}`
void parseHtmlentitiesTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter);

/// `{htmlspecialchars P}`
void parseHtmlspecialcharsTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter);

/// `{rawurlencode P}`
void parseRawurlencodeTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter);

} // namespace zorvel
