#pragma once

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

} // namespace zorvel
