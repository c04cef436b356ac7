#include <sstream>

#include <gtest/gtest.h>

#include "blocks/section_block.h"
#include "blocks/text_block.h"
#include "blocks/variable_block.h"
#include "data/escaping.h"
#include "embed.h"
#include "parser/tag_dispatcher.h"
#include "render/renderer.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

std::string join(const std::deque<std::string>& path)
{
    std::string text;
    for (const auto& key : path)
        text += "/" + key;
    return text;
}

std::string dump(const BlockList& blocks);

/// One block: its type code, then its fields, those at their initial value left out.
std::string dump(const Block& block)
{
    std::ostringstream out;
    out << block.type;
    if (const auto* text = dynamic_cast<const TextBlock*>(&block))
        out << " '" << text->text << "'";
    if (const auto* variable = dynamic_cast<const VariableBlock*>(&block))
        out << " " << variable->namespaceName << join(variable->path) << (variable->outputKey ? " key" : "");
    if (const auto* multi = dynamic_cast<const MultiVariableBlock*>(&block)) {
        for (const auto& candidate : multi->candidates)
            out << " " << candidate;
        out << (multi->hasDefault ? " '" + multi->defaultText + "'" : "");
    }
    if (const auto* section = dynamic_cast<const SubBlock*>(&block))
        out << " " << section->namespaceName << join(section->path) << (section->data != nullptr ? " data" : "");
    if (const auto* loop = dynamic_cast<const DynamicBlock*>(&block))
        out << " " << loop->declaredNamespace << (loop->enabled ? "" : " disabled");
    if (const auto* optional = dynamic_cast<const OptionalBlock*>(&block))
        out << " mode" << static_cast<unsigned>(optional->mode) << " '" << optional->compareText << "'";
    if (const auto* section = dynamic_cast<const SubBlock*>(&block))
        out << " [" << dump(section->children) << "]";
    return out.str();
}

std::string dump(const BlockList& blocks)
{
    std::string text;
    for (const auto& block : blocks)
        text += (text.empty() ? "" : ", ") + dump(*block);
    return text;
}

/// A template parsed over some data, inside a request.
struct Parsed {
    Parsed(const std::string& text, const std::string& dataExpression)
        : data(embed::evaluate(dataExpression)), input{text, &data}, tpl(text, &input, true)
    {
        tpl.parse();
    }
    ~Parsed() { zval_ptr_dtor(&data); }

    embed::Request request;
    zval data;
    TemplateInput input;
    Template tpl;
};

TEST(Tree, HoldsWhatParsingCouldNotSettle)
{
    const struct {
        const char* text;
        const char* data;
        const char* tree;
    } cases[] = {
        {"", "[]", ""},
        {"a{{b", "[]", "2 'a{b'"},
        {"{a} {b} {c 'd'}!", "['a' => 1]", "2 '1 {b} d!'"},
        {"x{*::a b ''}y", "['b' => 1]", "2 'x', 1  *::a b '', 2 'y'"},
        {"{missing n::[*]}", "[]", "1  missing n::[*]"},
        {"{htmlentities n::*::a::b}", "[]", "12 n/a/b"},
        {"{addslashes *}{htmlspecialchars [*]}{rawurlencode *::0}", "[]", "11 , 13  key, 14 /0"},
        {"{optional a}x{/optional}{!optional a}y{/optional}", "['a' => 1]", "4 /a mode0 '' [2 'x']"},
        {"{optional b}x{/optional}{!optional b c}y{/optional}", "[]", "5 /b mode0 'c' [2 'y']"},
        {"{optional *::a 'b'}{/optional}{!optional n::[*] 3}{/optional}", "[]",
         "4 /a mode1 ''b'' [], 5 n mode2 '3' []"},
        {"{dynamic r}x{/dynamic}{rdynamic n,r}{/rdynamic}", "['r' => [1]]", "6  data  [2 'x'], 7  data n []"},
        {"{dynamic n,m}x{/dynamic}{dynamic n,o::*::p}{/dynamic}", "[]", "6   disabled [2 'x'], 6 o/p n []"},
        {"{dynamic r}{/dynamic}", "['r' => ['num' => 5]]", "6   disabled []"},
    };
    for (const auto& [text, data, tree] : cases)
        EXPECT_EQ(dump(Parsed(text, data).tpl.blocks), tree) << text;
}

TEST(Tag, HasItsParameterTrimmed)
{
    const struct {
        const char* tag;
        std::size_t keywordLength;
        const char* parameter;
    } cases[] = {{"", 7, ""}, {"include", 7, ""}, {"include\ta b \v", 7, "a b"}, {"include \n", 7, " \n"}};
    for (const auto& [tag, keywordLength, parameter] : cases)
        EXPECT_EQ(trimParameter(tag, keywordLength), parameter) << tag;
}

void expectRefused(Template& tpl)
{
    try {
        tpl.render();
        FAIL() << "rendered a null block";
    } catch (const std::runtime_error& failure) {
        EXPECT_STREQ(failure.what(), "Null subBlock detected");
    }
}

TEST(Renderer, RefusesANullBlock)
{
    Parsed parsed("{dynamic r}x{/dynamic}", "['r' => [1]]");
    static_cast<SubBlock&>(*parsed.tpl.blocks.front()).children.push_back(nullptr);
    expectRefused(parsed.tpl);
    parsed.tpl.blocks.front() = nullptr;
    expectRefused(parsed.tpl);
}

/// Of bytes alone and in pairs, in ISO-8859-1 and in the charset that is configured, made byte by byte and by PHP's
/// function at once.
void compareWithPhp(const Escaping& escaping)
{
    ByteEscaping byByte(escaping);
    for (unsigned pair = 1; pair < 0x10000; ++pair) {
        const std::string both{static_cast<char>(pair >> 8), static_cast<char>(pair)};
        const std::string_view text = pair < 0x100 ? std::string_view(both).substr(1) : both;
        if (text.back() == '\0')
            continue;
        std::string escaped;
        byByte.append(escaped, text);
        ASSERT_EQ(escaped, StringRef::adopt(escaping.escape(text, "ISO-8859-1")).textUpToNul()) << pair;
        std::string configured;
        byByte.appendConfigured(configured, text);
        ASSERT_EQ(configured, StringRef::adopt(escaping.escape(text, nullptr)).textUpToNul()) << pair;
    }
}

TEST(Escaping, OfEachByteStandsAlone)
{
    const embed::Request request;
    compareWithPhp(escapingOf<Addslashes>());
    compareWithPhp(escapingOf<Htmlentities>());
    compareWithPhp(escapingOf<Htmlspecialchars>());
    compareWithPhp(escapingOf<Rawurlencode>());
}

} // namespace

} // namespace zorvel
