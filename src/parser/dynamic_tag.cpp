#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "blocks/section_block.h"
#include "ext/failure.h"
#include "parser/parameter_path.h"
#include "parser/tag_builders.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

/// A dynamic tag's parameter: `rows`, or `item,rows` with a name for the loop.
struct LoopParameter {
    std::string_view name;
    std::string_view path;
};

LoopParameter splitLoopParameter(std::string_view parameter)
{
    const std::size_t comma = parameter.find(',');
    if (comma == std::string_view::npos)
        return {{}, parameter};
    return {parameter.substr(0, comma), parameter.substr(comma + 1)};
}

void checkNamespace(const Template& tpl, const LoopParameter& loop)
{
    if (loop.name.empty())
        return;
    const bool used = std::any_of(tpl.dynamicStack.begin(), tpl.dynamicStack.end(), [&](const DynamicBlock* enclosing) {
        return enclosing->declaredNamespace == loop.name;
    });
    if (used)
        throwError(message::badDynamic, loop.path, message::namespaceUsed, tpl.name());
}

/// The array that a found value stands for: the value, what it has under "num", or the array that either
/// refers to.
/// @return null when that is no array
const zval* arrayOf(const zval* value)
{
    if (Z_TYPE_P(value) == IS_ARRAY) {
        if (const zval* num = zend_hash_str_find(Z_ARRVAL_P(value), ZEND_STRL("num")))
            value = num;
    }
    ZVAL_DEREF(value);
    return Z_TYPE_P(value) == IS_ARRAY ? value : nullptr;
}

std::unique_ptr<DynamicBlock> buildBlock(Template& tpl, const LoopParameter& loop, bool reverse)
{
    ResolvedParameter resolved = resolveParameter(tpl, loop.path);
    if (resolved.status == ParamStatus::LoopKey)
        throwError(message::badDynamic, loop.path, message::keyForbidden, tpl.name());
    if (resolved.status == ParamStatus::LoopValue)
        return std::make_unique<DynamicBlock>(std::string(loop.name), std::move(resolved.namespaceName),
                                              std::move(resolved.path), reverse);
    const zval* array = resolved.value != nullptr ? arrayOf(resolved.value) : nullptr;
    if (array != nullptr)
        return std::make_unique<DynamicBlock>(std::string(loop.name), array, reverse);
    if (loop.path.empty())
        throwError(message::badDynamic, loop.path, message::noParameter, tpl.name());
    return std::make_unique<DynamicBlock>(reverse);
}

} // namespace

void parseDynamicTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter, bool reverse)
{
    tpl.flushText(blocks, pending);
    const LoopParameter loop = splitLoopParameter(parameter);
    checkNamespace(tpl, loop);
    blocks.push_back(buildBlock(tpl, loop, reverse));
    auto& block = static_cast<DynamicBlock&>(*blocks.back());
    tpl.dynamicStack.push_back(&block);
    tpl.parseBlocks(block.children, pending, reverse ? EndReverseDynamic : EndDynamic);
    tpl.dynamicStack.pop_back();
}

} // namespace zorvel
