#pragma once

#include <memory>
#include <string>

#include "blocks/block.h"

namespace zorvel
{

/// Literal output: template text, and the values that were already known while parsing.
class TextBlock final : public Block
{
public:
    TextBlock() : Block(Text) {}

    std::string text;
};

/// The text that has been read and is in no block list yet: template text, and the values known while parsing.
using PendingText = std::unique_ptr<TextBlock>;

} // namespace zorvel
