#include "render/renderer.h"

#include <algorithm>
#include <span>
#include <typeinfo>

#include "blocks/section_block.h"
#include "blocks/text_block.h"
#include "blocks/variable_block.h"
#include "engine/guard.h"
#include "ext/failure.h"
#include "render/section_renderer.h"
#include "render/variable_renderer.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

/// A checked downcast. Comparing the exact type first is as safe as dynamic_cast alone, and far cheaper.
template <typename Concrete>
Concrete& as(Block& block)
{
    return typeid(block) == typeid(Concrete) ? static_cast<Concrete&>(block) : dynamic_cast<Concrete&>(block);
}

void renderText(Template&, TextBlock& block, std::string& out, const zval*)
{
    out += block.text;
}

RendererEntry optionalEntry(BlockType type, bool negate)
{
    return {type, [negate](Template& tpl, Block& block, std::string& out, const zval* data) {
                renderOptional(tpl, as<OptionalBlock>(block), out, data, negate);
            }};
}

RendererEntry dynamicEntry(BlockType type, bool reverse)
{
    return {type, [reverse](Template& tpl, Block& block, std::string& out, const zval* data) {
                renderDynamic(tpl, as<DynamicBlock>(block), out, data, reverse);
            }};
}

template <BlockType Code>
RendererEntry filterEntry()
{
    return {Code, [](Template& tpl, Block& block, std::string& out, const zval* data) {
                renderEscaped(tpl, as<FilterBlock<Code>>(block), out, data, tpl.input->escapingFor<Code>());
            }};
}

/// Looks where a sorted table without the codes 3 and 8 to 10 has the entry.
/// @return null when it is not there
const BlockRenderer* findRenderer(std::span<const RendererEntry> table, std::int32_t type)
{
    const int missing = (type > Include ? 1 : 0) + (type > EndReverseDynamic ? 3 : 0);
    const auto place = static_cast<std::size_t>(type - Variable - missing);
    return place < table.size() && table[place].type == type ? &table[place].renderer : nullptr;
}

} // namespace

std::vector<RendererEntry> buildRendererTable()
{
    std::vector<RendererEntry> table{
        {Text, [](Template& tpl, Block& block, std::string& out,
                  const zval* data) { renderText(tpl, as<TextBlock>(block), out, data); }},
        optionalEntry(Optional, false),
        optionalEntry(NotOptional, true),
        dynamicEntry(Dynamic, false),
        dynamicEntry(ReverseDynamic, true),
        {Variable, [](Template& tpl, Block& block, std::string& out,
                      const zval* data) { renderMultiVariable(tpl, as<MultiVariableBlock>(block), out, data); }},
        filterEntry<Addslashes>(),
        filterEntry<Htmlentities>(),
        filterEntry<Htmlspecialchars>(),
        filterEntry<Rawurlencode>(),
    };
    std::sort(table.begin(), table.end(),
              [](const RendererEntry& a, const RendererEntry& b) { return a.type < b.type; });
    return table;
}

void renderBlocks(Template& tpl, const BlockList& blocks, std::string& out, const zval* data)
{
    static const std::vector<RendererEntry> rendererTable = buildRendererTable();

    if (stackIsUsedUp())
        throwError(message::tooDeep, tpl.name());
    for (const auto& block : blocks) {
        if (block == nullptr)
            throwError(message::nullBlock);
        if (const BlockRenderer* renderer = findRenderer(rendererTable, block->type))
            (*renderer)(tpl, *block, out, data);
        tpl.input->memory.check(out.size());
    }
}

} // namespace zorvel
