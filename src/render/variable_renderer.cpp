#include "render/variable_renderer.h"

#include <string_view>

#include "blocks/section_block.h"
#include "data/path_lookup.h"
#include "parser/parameter_path.h"
#include "render/section_renderer.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

bool append(std::string& out, const ValueText& text)
{
    if (!text)
        return false;
    out += text.view();
    return true;
}

void storePath(MultiVariableBlock& block, const ParameterView& view)
{
    block.namespaceName = view.namespaceName;
    block.outputKey = view.status == ParamStatus::LoopKey;
    block.path = keysOf(view);
    block.onlyKey = onlyKeyOf(block.path);
    block.isParsed = block.candidates.size() == 1;
}

bool appendCandidate(Template& tpl, MultiVariableBlock& block, std::string_view candidate, std::string& out,
                     const zval* data)
{
    const ParameterView view = resolveView(tpl, candidate);
    if (view.status == ParamStatus::Found)
        return append(out, ValueText(view.value));
    if (view.status == ParamStatus::NotFound)
        return false;
    storePath(block, view);
    return append(out, variableText(tpl, block, data));
}

bool appendFirstValue(Template& tpl, MultiVariableBlock& block, std::string& out, const zval* data)
{
    if (block.isParsed)
        return append(out, variableText(tpl, block, data));
    for (const std::string& candidate : block.candidates) {
        if (appendCandidate(tpl, block, candidate, out, data))
            return true;
    }
    return false;
}

} // namespace

ValueText variableText(const Template& tpl, const VariableBlock& block, const zval* data)
{
    const LoopPosition position = findPosition(tpl, block.namespaceName, data);
    if (position.loop == nullptr)
        return {};
    if (block.outputKey)
        return ValueText(position.loop->currentKey.c_str());
    return ValueText(lookupFrom(tpl, block, position));
}

void renderMultiVariable(Template& tpl, MultiVariableBlock& block, std::string& out, const zval* data)
{
    if (!appendFirstValue(tpl, block, out, data) && block.hasDefault)
        out += block.defaultText;
}

void renderEscaped(Template& tpl, VariableBlock& block, std::string& out, const zval* data, ByteEscaping& escaping)
{
    escaping.append(out, variableText(tpl, block, data).view());
}

} // namespace zorvel
