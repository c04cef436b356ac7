#include "render/section_renderer.h"

#include <algorithm>
#include <cstddef>

#include "data/path_lookup.h"
#include "data/visibility.h"
#include "engine/reserve_ahead.h"
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
        return isVisible(tpl, lookupFrom(tpl, block, position), block.compareText);
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
    const zval* value = lookupFrom(tpl, block, position);
    if (value == nullptr || Z_TYPE_P(value) != IS_ARRAY)
        return nullptr;
    if (HT_IS_PACKED(Z_ARRVAL_P(value)))
        return value;
    const zval* num = zend_hash_str_find(Z_ARRVAL_P(value), ZEND_STRL("num"));
    return num != nullptr ? num : value;
}

/// Reserves room for what a loop has still to append, judged by what its elements have appended so far;
/// judged anew each time their number has doubled.
class OutputEstimate
{
public:
    OutputEstimate(const std::string& out, std::size_t total) : start_(out.size()), total_(total) {}

    void reserveAfterElement(std::string& out)
    {
        if (++done_ != next_ || done_ >= total_)
            return;
        next_ *= 2;
        const std::size_t expected = (out.size() - start_) / done_ * (total_ - done_);
        reserveAhead(out, expected + expected / slack);
    }

private:
    static constexpr std::size_t slack = 16;

    const std::size_t start_;
    const std::size_t total_;
    std::size_t done_ = 0;
    std::size_t next_ = 16;
};

} // namespace

DynamicBlock* findLoop(const Template& tpl, const std::string& name)
{
    for (DynamicBlock* loop : tpl.dynamicStack) {
        if (loop->declaredNamespace == name)
            return loop;
    }
    return nullptr;
}

LoopPosition findPosition(const Template& tpl, const std::string& name, const zval* data)
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
    OutputEstimate estimate(out, walk.size());
    tpl.dynamicStack.push_back(&block);
    while (const zval* element = walk.next(block.currentKey)) {
        serveInterrupt();
        block.currentValue = element;
        renderBlocks(tpl, block.children, out, element);
        estimate.reserveAfterElement(out);
    }
    tpl.dynamicStack.pop_back();
}

} // namespace zorvel
