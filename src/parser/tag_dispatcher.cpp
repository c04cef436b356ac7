#include "parser/tag_dispatcher.h"

#include <array>

#include "ext/failure.h"
#include "parser/blanks.h"
#include "parser/tag_builders.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

struct TagKeyword {
    std::string_view keyword;
    BlockType type;
};

[[noreturn]] void failUnexpectedClose(const Template& tpl, BlockType type)
{
    const std::string_view text = type == EndOptional  ? message::unexpectedEndOptional
                                  : type == EndDynamic ? message::unexpectedEndDynamic
                                                       : message::unexpectedEndReverseDynamic;
    throwError(text, tpl.name());
}

void buildTag(Template& tpl, BlockList& blocks, PendingText& pending, const TagInfo& tag)
{
    switch (tag.type) {
    case Include:
        return parseIncludeTag(tpl, blocks, pending, tag.parameter);
    case Optional:
    case NotOptional:
        return parseOptionalTag(tpl, blocks, pending, tag.parameter, tag.type == NotOptional);
    case Dynamic:
    case ReverseDynamic:
        return parseDynamicTag(tpl, blocks, pending, tag.parameter, tag.type == ReverseDynamic);
    case Addslashes:
        return parseAddslashesTag(tpl, blocks, pending, tag.parameter);
    case Htmlentities:
        return parseHtmlentitiesTag(tpl, blocks, pending, tag.parameter);
    case Htmlspecialchars:
        return parseHtmlspecialcharsTag(tpl, blocks, pending, tag.parameter);
    case Rawurlencode:
        return parseRawurlencodeTag(tpl, blocks, pending, tag.parameter);
    default:
        return parseVariableTag(tpl, blocks, pending, tag.parameter);
    }
}

} // namespace

TagInfo classifyTag(std::string_view tagText)
{
    static const std::array<TagKeyword, 12> tagKeywords{{
        {"include", Include},
        {"optional", Optional},
        {"!optional", NotOptional},
        {"/optional", EndOptional},
        {"dynamic", Dynamic},
        {"rdynamic", ReverseDynamic},
        {"/dynamic", EndDynamic},
        {"/rdynamic", EndReverseDynamic},
        {"addslashes", Addslashes},
        {"htmlentities", Htmlentities},
        {"htmlspecialchars", Htmlspecialchars},
        {"rawurlencode", Rawurlencode},
    }};

    const char first = tagText.empty() ? '\0' : tagText.front();
    for (const auto& [keyword, type] : tagKeywords) {
        if (keyword.front() == first && tagText.starts_with(keyword))
            return {trimParameter(tagText, keyword.size()), type};
    }
    return {trimParameter(tagText, 0), Variable};
}

std::string trimParameter(std::string_view tagText, std::size_t keywordLength)
{
    if (tagText.empty())
        return {};
    const std::string_view rest = tagText.substr(keywordLength);
    const std::size_t first = skipBlanks(rest, 0);
    if (first == rest.size())
        return std::string(rest);
    std::size_t end = rest.size();
    while (isBlank(rest[end - 1]))
        --end;
    return std::string(rest.substr(first, end - first));
}

bool dispatchTag(Template& tpl, BlockList& blocks, PendingText& pending, int expectedClose)
{
    tpl.tagText.clear();
    tpl.reader.readUntil(tpl.tagText, '}');
    const TagInfo tag = classifyTag(tpl.tagText);
    if (tag.type != EndOptional && tag.type != EndDynamic && tag.type != EndReverseDynamic) {
        buildTag(tpl, blocks, pending, tag);
        return false;
    }
    if (tag.type != expectedClose)
        failUnexpectedClose(tpl, tag.type);
    return true;
}

} // namespace zorvel
