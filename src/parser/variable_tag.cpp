#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "blocks/variable_block.h"
#include "data/value_text.h"
#include "ext/failure.h"
#include "parser/blanks.h"
#include "parser/parameter_path.h"
#include "parser/tag_builders.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

/// What a variable tag's parameter consists of: `a b::c 'default text'`.
struct Alternatives {
    /// The words, and the blanks around them.
    std::string_view words;
    std::optional<std::string_view> defaultText;
};

/// The words of some alternatives, one at a time.
class WordCursor
{
public:
    explicit WordCursor(std::string_view words) : words_(words), start_(skipBlanks(words, 0)) {}

    /// @return false behind the last word
    bool next(std::string_view& word)
    {
        if (start_ == words_.size())
            return false;
        const std::size_t end = findBlank(words_, start_);
        word = words_.substr(start_, end - start_);
        start_ = skipBlanks(words_, end);
        return true;
    }

private:
    std::string_view words_;
    std::size_t start_;
};

std::string_view defaultTextAt(const Template& tpl, std::string_view parameter, std::size_t quote)
{
    if (quote + 1 == parameter.size() || parameter.back() != '\'')
        throwError(message::badVariable, parameter, message::quoteNotClosed, tpl.name());
    return parameter.substr(quote + 1, parameter.size() - quote - 2);
}

/// The first quote, which has to begin a word, begins the default text.
Alternatives splitAlternatives(const Template& tpl, std::string_view parameter)
{
    const std::size_t quote = parameter.find('\'');
    if (quote == std::string_view::npos)
        return {parameter, {}};
    if (quote > 0 && !isBlank(parameter[quote - 1]))
        throwError(message::badVariable, parameter, message::quoteInWord, tpl.name());
    return {parameter.substr(0, quote), defaultTextAt(tpl, parameter, quote)};
}

std::unique_ptr<Block> buildBlock(const Alternatives& alternatives)
{
    std::vector<std::string> candidates;
    WordCursor words(alternatives.words);
    for (std::string_view word; words.next(word);)
        candidates.emplace_back(word);
    if (!alternatives.defaultText)
        return std::make_unique<MultiVariableBlock>(std::move(candidates));
    return std::make_unique<MultiVariableBlock>(std::move(candidates), std::string(*alternatives.defaultText));
}

} // namespace

void parseVariableTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter)
{
    const Alternatives alternatives = splitAlternatives(tpl, parameter);
    WordCursor words(alternatives.words);
    for (std::string_view word; words.next(word);) {
        const ParameterView resolved = resolveView(tpl, word);
        if (resolved.status == ParamStatus::Found) {
            pending->text += ValueText(resolved.value).view();
            return;
        }
        if (resolved.status != ParamStatus::NotFound) {
            tpl.flushText(blocks, pending);
            blocks.push_back(buildBlock(alternatives));
            return;
        }
    }
    if (alternatives.defaultText)
        pending->text += *alternatives.defaultText;
    else
        pending->text.append("{").append(parameter).append("}");
}

} // namespace zorvel
