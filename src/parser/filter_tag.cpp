#include <memory>
#include <string>

#include "blocks/variable_block.h"
#include "data/escaping.h"
#include "parser/parameter_path.h"
#include "parser/tag_builders.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

/// What is known and no string gives nothing.
void appendKnown(std::string& text, const zval* value, ByteEscaping& escaping)
{
    if (Z_TYPE_P(value) == IS_STRING)
        escaping.appendConfigured(text, {Z_STRVAL_P(value), Z_STRLEN_P(value)});
}

template <BlockType Code>
void parseFilterTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter)
{
    const ParameterView resolved = resolveView(tpl, parameter);
    if (resolved.status == ParamStatus::NotFound)
        return;
    if (resolved.status == ParamStatus::Found)
        return appendKnown(pending->text, resolved.value, tpl.input->escapingFor<Code>());
    tpl.flushText(blocks, pending);
    blocks.push_back(std::make_unique<FilterBlock<Code>>(std::string(resolved.namespaceName), keysOf(resolved),
                                                         resolved.status == ParamStatus::LoopKey));
}

} // namespace

void parseAddslashesTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter)
{
    parseFilterTag<Addslashes>(tpl, blocks, pending, parameter);
}

void parseHtmlentitiesTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter)
{
    parseFilterTag<Htmlentities>(tpl, blocks, pending, parameter);
}

void parseHtmlspecialcharsTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter)
{
    parseFilterTag<Htmlspecialchars>(tpl, blocks, pending, parameter);
}

void parseRawurlencodeTag(Template& tpl, BlockList& blocks, PendingText& pending, std::string_view parameter)
{
    parseFilterTag<Rawurlencode>(tpl, blocks, pending, parameter);
}

} // namespace zorvel
