#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "blocks/block.h"
#include "blocks/text_block.h"
#include "source/template_fwd.h"

namespace zorvel
{

struct TagInfo {
    /// The tag's text behind the keyword, trimmed.
    std::string parameter;
    BlockType type;
};

/// Tells a tag by the keyword that its text begins with; nothing needs to follow the keyword ("includes" is
/// an include of "s"). A text that begins with none is a variable tag.
TagInfo classifyTag(std::string_view tagText);

/// The text behind the keyword without blanks at both ends. Nothing but blanks is left as it is.
std::string trimParameter(std::string_view tagText, std::size_t keywordLength);

/// Reads one tag, whose opening brace has been consumed, and builds what it asks for.
/// @param blocks the list that receives the tag's blocks
/// @param pending the text before the tag, not yet in the list; the text of known values joins it
/// @param expectedClose the code of the closing tag that the innermost open section waits for, 0: none
/// @return true when the tag was that closing tag
/// @throws std::runtime_error for any other closing tag, and for what the tag's builder finds wrong
bool dispatchTag(Template& tpl, BlockList& blocks, PendingText& pending, int expectedClose);

} // namespace zorvel
