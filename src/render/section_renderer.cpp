#include "render/section_renderer.h"

#include <charconv>

#include "data/path_lookup.h"
#include "parser/visibility.h"
#include "render/renderer.h"
#include "render/table_walk.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

bool isShown(Template& tpl, const OptionalBlock& block, const LoopPosition& position)
{
    if (block.mode == OptionalMode::TestValue)
        return isVisible(tpl, lookupPath(tpl, block.path, position.start), block.compareText);
    return position.loop->currentKey == block.compareText;
}

/// The value to walk: the array found while parsing, or the one that the enclosing loop's element holds, in
/// whose place stands what it has under "num". Null for none.
const zval* findWalked(Template& tpl, const DynamicBlock& block, const zval* data)
{
    if (block.data != nullptr)
        return block.data;
    const LoopPosition position = findPosition(tpl, block.namespaceName, data);
    if (position.loop == nullptr)
        return nullptr;
    const zval* value = lookupPath(tpl, block.path, position.start);
    if (value == nullptr || Z_TYPE_P(value) != IS_ARRAY)
        return nullptr;
    const zval* num = zend_hash_str_find(Z_ARRVAL_P(value), ZEND_STRL("num"));
    return num != nullptr ? num : value;
}

} // namespace

DynamicBlock* findLoop(Template& tpl, const std::string& name)
{
    for (DynamicBlock* loop : tpl.dynamicStack) {
        if (loop->declaredNamespace == name)
            return loop;
    }
    return nullptr;
}

LoopPosition findPosition(Template& tpl, const std::string& name, const zval* data)
{
    if (data == nullptr)
        return {nullptr, nullptr};
    if (name.empty())
        return {tpl.dynamicStack.back(), data};
    const DynamicBlock* loop = findLoop(tpl, name);
    return {loop, loop != nullptr ? loop->currentValue : nullptr};
}

void renderOptional(Template& tpl, OptionalBlock& block, std::string& out, const zval* data, bool negate)
{
    if (block.mode != OptionalMode::Always) {
        const LoopPosition position = findPosition(tpl, block.namespaceName, data);
        if (position.loop == nullptr || isShown(tpl, block, position) == negate)
            return;
    }
    renderBlocks(tpl, block.children, out, data);
}

void renderDynamic(Template& tpl, DynamicBlock& block, std::string& out, const zval* data, bool reverse)
{
    const zval* walked = block.enabled ? findWalked(tpl, block, data) : nullptr;
    if (walked == nullptr)
        return;
    TableWalk walk(walked, reverse);
    tpl.dynamicStack.push_back(&block);
    while (const zval* element = walk.next(block.currentKey)) {
        block.currentValue = element;
        renderBlocks(tpl, block.children, out, element);
    }
    tpl.dynamicStack.pop_back();
}

} // namespace zorvel
