#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "blocks/variable_block.h"
#include "data/value_text.h"
#include "ext/failure.h"
#include "parser/parameter_path.h"
#include "parser/tag_builders.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

/// What a variable tag's parameter consists of: `a b::c 'default text'`.
struct Alternatives {
    std::vector<std::string> words;
    std::optional<std::string_view> defaultText;
};

constexpr std::string_view whitespace = " \t\n\v\f\r";

std::string_view defaultTextAt(const Template& tpl, std::string_view parameter, std::size_t quote)
{
    if (quote + 1 == parameter.size() || parameter.back() != '\'')
        throwError(message::BadVariable, parameter, message::QuoteNotClosed, tpl.fileNames.back());
    return parameter.substr(quote + 1, parameter.size() - quote - 2);
}

Alternatives splitAlternatives(const Template& tpl, std::string_view parameter)
{
    Alternatives alternatives;
    std::size_t start = parameter.find_first_not_of(whitespace);
    while (start != std::string_view::npos) {
        if (parameter[start] == '\'') {
            alternatives.defaultText = defaultTextAt(tpl, parameter, start);
            break;
        }
        const std::size_t end = std::min(parameter.find_first_of(whitespace, start), parameter.size());
        const std::string_view word = parameter.substr(start, end - start);
        if (word.find('\'') != std::string_view::npos)
            throwError(message::BadVariable, parameter, message::QuoteInWord, tpl.fileNames.back());
        alternatives.words.emplace_back(word);
        start = parameter.find_first_not_of(whitespace, end);
    }
    return alternatives;
}

std::unique_ptr<Block> buildBlock(Alternatives alternatives)
{
    if (!alternatives.defaultText)
        return std::make_unique<MultiVariableBlock>(std::move(alternatives.words));
    return std::make_unique<MultiVariableBlock>(std::move(alternatives.words),
                                                std::string(*alternatives.defaultText));
}

} // namespace

void parseVariableTag(Template& tpl, BlockList& blocks, std::unique_ptr<TextBlock>& pending,
                      std::string_view parameter)
{
    Alternatives alternatives = splitAlternatives(tpl, parameter);
    for (const std::string& word : alternatives.words) {
        const ParameterView resolved = resolveView(tpl, word);
        if (resolved.status == ParamStatus::Found) {
            pending->text += ValueText(resolved.value).view();
            return;
        }
        if (resolved.status != ParamStatus::NotFound) {
            Template::flushText(blocks, pending);
            blocks.push_back(buildBlock(std::move(alternatives)));
            return;
        }
    }
    if (alternatives.defaultText)
        pending->text += *alternatives.defaultText;
    else
        pending->text.append("{").append(parameter).append("}");
}

} // namespace zorvel
