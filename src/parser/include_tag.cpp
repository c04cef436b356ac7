#include <exception>
#include <string>

#include "ext/failure.h"
#include "parser/parameter_path.h"
#include "parser/tag_builders.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

std::string fileNameFrom(const Template& tpl, const ParameterView& resolved, std::string_view parameter)
{
    if (resolved.status == ParamStatus::LoopValue || resolved.status == ParamStatus::LoopKey)
        throwError(message::badInclude, parameter, message::asteriskInFileName, tpl.name());
    if (resolved.value != nullptr && Z_TYPE_P(resolved.value) == IS_STRING)
        return Z_STRVAL_P(resolved.value);
    if (parameter.empty())
        throwError(message::noFileName, tpl.name());
    return std::string(parameter);
}

void checkCircle(const Template& tpl, const std::string& fileName, std::string_view parameter)
{
    for (const std::string& parent : tpl.fileNames) {
        if (parent == fileName)
            throwError(message::badInclude, parameter, message::includeCircle, tpl.name());
    }
}

void parseFile(Template& tpl, BlockList& blocks, PendingText& pending, const std::string& fileName)
{
    Template child(fileName, tpl.input, false);
    child.fileNames = tpl.fileNames;
    child.fileNames.push_back(fileName);
    child.parseBlocks(blocks, pending, 0);
    child.reader.close();
}

} // namespace

void parseIncludeTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter)
{
    tpl.flushText(blocks, pending);
    const std::string fileName = fileNameFrom(tpl, resolveView(tpl, parameter), parameter);
    checkCircle(tpl, fileName, parameter);
    try {
        parseFile(tpl, blocks, pending, fileName);
    } catch (const std::exception& failure) {
        if (!std::string_view(failure.what()).starts_with(message::cannotOpen))
            throw;
    }
}

} // namespace zorvel
