#pragma once

#include <string>

#include <php.h>

#include "blocks/section_block.h"
#include "data/path_lookup.h"
#include "source/template.h"

namespace zorvel
{

/// The outermost loop being rendered that declares this name; null when none does.
DynamicBlock* findLoop(const Template& tpl, const std::string& name);

/// Where a loop path starts. The loop is null when there is no such loop, and outside every loop.
struct LoopPosition {
    const DynamicBlock* loop;
    const zval* start;
};

/// The position of the loop with this name, or for an empty name of the innermost one, whose element is
/// `data`.
LoopPosition findPosition(const Template& tpl, const std::string& name, const zval* data);

/// What a block's path names, from the position of its loop; null for nothing.
template <typename PathBlock>
const zval* lookupFrom(const Template& tpl, const PathBlock& block, const LoopPosition& position)
{
    if (block.path.empty())
        return position.start;
    if (block.onlyKey)
        return lookupOnlyKey(position.start, block.onlyKey.get());
    return lookupPath(tpl, block.path, position.start);
}

/// Renders the children once or not at all.
/// @param negate whether the test that depends on a loop is inverted; outside every loop nothing is rendered
void renderOptional(Template& tpl, OptionalBlock& block, std::string& out, const zval* data, bool negate);

/// Renders the children once per element, with the element as their current data element. What is walked is
/// held: user code that writes to the array meanwhile separates from it.
void renderDynamic(Template& tpl, DynamicBlock& block, std::string& out, const zval* data, bool reverse);

} // namespace zorvel
