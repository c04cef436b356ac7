#include <memory>
#include <utility>

#include "blocks/variable_block.h"
#include "engine/escaping.h"
#include "parser/parameter_path.h"
#include "parser/tag_builders.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

/// A known string is escaped at once, in PHP's configured charset; anything else that is known gives nothing.
template <typename FilterBlock>
void parseFilterTag(Template& tpl, BlockList& blocks, std::unique_ptr<TextBlock>& pending, std::string_view parameter,
                    const Escaping& escaping)
{
    const ParameterView resolved = resolveView(tpl, parameter);
    if (resolved.status == ParamStatus::Found) {
        if (Z_TYPE_P(resolved.value) == IS_STRING)
            pending->text += escape(escaping, {Z_STRVAL_P(resolved.value), Z_STRLEN_P(resolved.value)}, nullptr).text();
        return;
    }
    if (resolved.status == ParamStatus::NotFound)
        return;
    Template::flushText(blocks, pending);
    ParsedParameter parsed = parseParameterPath(tpl, parameter);
    blocks.push_back(std::make_unique<FilterBlock>(std::move(parsed.namespaceName), std::move(parsed.path),
                                                   parsed.status == ParamStatus::LoopKey));
}

} // namespace

void parseAddslashesTag(Template& tpl, BlockList& blocks, std::unique_ptr<TextBlock>& pending,
                        std::string_view parameter)
{
    parseFilterTag<AddslashesBlock>(tpl, blocks, pending, parameter, addslashesEscaping);
}

void parseHtmlentitiesTag(Template& tpl, BlockList& blocks, std::unique_ptr<TextBlock>& pending,
                          std::string_view parameter)
{
    parseFilterTag<HtmlentitiesBlock>(tpl, blocks, pending, parameter, htmlentitiesEscaping);
}

void parseHtmlspecialcharsTag(Template& tpl, BlockList& blocks, std::unique_ptr<TextBlock>& pending,
                              std::string_view parameter)
{
    parseFilterTag<HtmlspecialcharsBlock>(tpl, blocks, pending, parameter, htmlspecialcharsEscaping);
}

void parseRawurlencodeTag(Template& tpl, BlockList& blocks, std::unique_ptr<TextBlock>& pending,
                          std::string_view parameter)
{
    parseFilterTag<RawurlencodeBlock>(tpl, blocks, pending, parameter, rawurlencodeEscaping);
}

} // namespace zorvel
