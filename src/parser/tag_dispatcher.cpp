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
    const std::string_view text = type == EndOptional  ? message::UnexpectedEndOptional
                                  : type == EndDynamic ? message::UnexpectedEndDynamic
                                                       : message::UnexpectedEndReverseDynamic;
    throwError(text, tpl.fileNames.back());
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
    const std::string_view rest = tagText.substr(keywordLength);
    const std::size_t first = skipBlanks(rest, 0);
    if (first == rest.size())
        return std::string(rest);
    std::size_t end = rest.size();
    while (isBlank(rest[end - 1]))
        --end;
    return std::string(rest.substr(first, end - first));
}

bool dispatchTag(Template& tpl, BlockList& blocks, std::unique_ptr<TextBlock>& pending, int expectedClose)
{
    std::string text;
    tpl.reader.readUntil(text, '}');
    const TagInfo tag = classifyTag(text);
    switch (tag.type) {
    case Include:
        parseIncludeTag(tpl, blocks, pending, tag.parameter);
        return false;
    case Optional:
    case NotOptional:
        parseOptionalTag(tpl, blocks, pending, tag.parameter, tag.type == NotOptional);
        return false;
    case Dynamic:
    case ReverseDynamic:
        parseDynamicTag(tpl, blocks, pending, tag.parameter, tag.type == ReverseDynamic);
        return false;
    case EndOptional:
    case EndDynamic:
    case EndReverseDynamic:
        if (tag.type != expectedClose)
            failUnexpectedClose(tpl, tag.type);
        return true;
    case Addslashes:
        parseAddslashesTag(tpl, blocks, pending, tag.parameter);
        return false;
    case Htmlentities:
        parseHtmlentitiesTag(tpl, blocks, pending, tag.parameter);
        return false;
    case Htmlspecialchars:
        parseHtmlspecialcharsTag(tpl, blocks, pending, tag.parameter);
        return false;
    case Rawurlencode:
        parseRawurlencodeTag(tpl, blocks, pending, tag.parameter);
        return false;
    default:
        parseVariableTag(tpl, blocks, pending, tag.parameter);
        return false;
    }
}

} // namespace zorvel
