#include <memory>
#include <string>
#include <utility>

#include "blocks/section_block.h"
#include "data/visibility.h"
#include "parser/parameter_path.h"
#include "parser/tag_builders.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

OptionalMode modeFor(ParamStatus status)
{
    if (status == ParamStatus::LoopValue)
        return OptionalMode::TestValue;
    return status == ParamStatus::LoopKey ? OptionalMode::TestKey : OptionalMode::Always;
}

} // namespace

void parseOptionalTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter, bool negated)
{
    const std::size_t sizeBefore = tpl.input->treeSize + pending->text.size();
    tpl.flushText(blocks, pending);
    const std::size_t space = parameter.find(' ');
    const std::string_view compareText =
        space == std::string_view::npos ? std::string_view() : parameter.substr(space + 1);
    ResolvedParameter resolved = resolveParameter(tpl, parameter.substr(0, space));
    const OptionalMode mode = modeFor(resolved.status);
    const bool inTree = mode != OptionalMode::Always || isVisible(tpl, resolved.value, compareText) != negated;

    auto section = std::make_unique<OptionalBlock>(std::move(resolved.namespaceName), std::move(resolved.path), mode,
                                                   std::string(compareText), negated);
    OptionalBlock& block = *section;
    if (inTree)
        blocks.push_back(std::move(section));
    tpl.parseBlocks(block.children, pending, EndOptional);
    if (!inTree)
        tpl.input->treeSize = sizeBefore;
}

} // namespace zorvel
