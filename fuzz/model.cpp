#include "model.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <string_view>
#include <utility>

#include <php.h>

BEGIN_EXTERN_C()
#include <ext/standard/html.h>
END_EXTERN_C()

namespace model
{

namespace
{

using Type = Value::Type;

constexpr auto none = std::string::npos;
constexpr const char* blanks = " \t\r\n\f\v";

/// A broken rule, not yet with the name of the source that breaks it.
struct Fault {
    std::string message;
};

/// The whole message.
struct Failure {
    std::string message;
};

/// An object that has no text was to become one.
struct NoText {
};

std::string upToNul(const std::string& text)
{
    return text.substr(0, text.find('\0'));
}

bool contains(const std::vector<std::string>& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

// Data

/// False for a reference: none is entered, compared or filtered. Only its truth and its text are its value's.
bool is(const Value* value, Type type)
{
    return value != nullptr && value->type == type && !value->isReference;
}

bool isTrue(const Value& value)
{
    if (value.type == Type::String || value.type == Type::Float)
        return value.text != "" && value.text != "0";
    return value.type == Type::Object || value.number != 0 || !value.elements.empty();
}

const Value* elementOf(const Value& value, const Key& key)
{
    const auto has = [&](const Element& element) { return element.key == key; };
    const auto found = std::find_if(value.elements.begin(), value.elements.end(), has);
    return found != value.elements.end() ? &found->value : nullptr;
}

/// A number from 0 to 4294967295, as PHP writes it.
bool isPlainNumber(const std::string& key)
{
    const bool isSmall = key.size() < 10 || (key.size() == 10 && key <= "4294967295");
    return key == "0" || (isSmall && key.find_first_not_of("0123456789") == none && !key.empty() && key[0] != '0');
}

const Value* follow(const Value* value, const std::vector<std::string>& keys)
{
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const bool isNumber = isPlainNumber(keys[i]);
        const bool isEntered = is(value, Type::Array) || (i == 0 && isNumber && is(value, Type::Object));
        const Key key = isNumber ? Key(std::stoll(keys[i])) : Key(keys[i]);
        value = isEntered ? elementOf(*value, key) : nullptr;
    }
    return value;
}

/// What a loop from the top walks: what stands under `num` if anything does, and a reference to an array, too.
const Value* settledList(const Value* value)
{
    const Value* num = is(value, Type::Array) ? elementOf(*value, "num") : nullptr;
    const Value* list = num != nullptr ? num : value;
    return list != nullptr && list->type == Type::Array ? list : nullptr;
}

/// What a loop from an element walks: no reference, but an object under `num`.
const Value* elementList(const Value* value)
{
    const Value* num = is(value, Type::Array) ? elementOf(*value, "num") : nullptr;
    if (num == nullptr)
        return is(value, Type::Array) ? value : nullptr;
    return is(num, Type::Array) || is(num, Type::Object) ? num : nullptr;
}

// Paths

struct Path {
    bool isLoop = false;           ///< from a loop's element, or its key
    bool isKey = false;            ///< [*]
    std::string loop;              ///< empty: the innermost
    std::vector<std::string> keys; ///< from the element, or else from the top

    void addSegment(const std::string& segment, const std::string& head)
    {
        if (segment == "*" || segment == "[*]") {
            if (isLoop)
                throw Fault{head + ": too many *"};
            if (segment == "[*]" && !keys.empty())
                throw Fault{"Bad formated parameter: [*] must be last"};
            isLoop = true;
            isKey = segment == "[*]";
        } else if (!loop.empty())
            throw Fault{head + ": too many namespaces"};
        else if (isLoop)
            loop = segment;
        else
            keys.insert(keys.begin(), segment);
    }
};

/// From the right: the rule that is broken first from there is the one that is reported.
Path parsePath(const std::string& text)
{
    Path path;
    const std::string head = "Bad formated parameter'" + text + "'";
    std::size_t end = text.size();
    for (auto colons = text.rfind("::"); colons != none; colons = text.rfind("::", colons - 1)) {
        const bool isEmpty = colons + 2 >= end; // so it is between two of three colons
        if (!isEmpty)
            path.addSegment(text.substr(colons + 2, end - colons - 2), head);
        if (isEmpty || colons == 0)
            throw Fault{head + ": too many :"};
        end = colons;
    }
    const std::string first = text.substr(0, end);
    path.addSegment(first == ".*" ? "*" : first, "Bad formated parameter");
    return path;
}

// Filters

using Filter = std::string (*)(const std::string& text, const char* charset);

std::string addslashes(const std::string& text, const char*)
{
    std::string escaped;
    for (const char c : text) {
        if (c == '\'' || c == '"' || c == '\\' || c == '\0')
            escaped += '\\';
        escaped += c == '\0' ? '0' : c;
    }
    return escaped;
}

std::string rawurlencode(const std::string& text, const char*)
{
    constexpr std::string_view kept = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.~";
    constexpr const char* digits = "0123456789ABCDEF";
    std::string escaped;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        escaped += kept.find(c) != none ? std::string{c} : std::string{'%', digits[byte / 16], digits[byte % 16]};
    }
    return escaped;
}

template <bool all>
std::string entities(const std::string& text, const char* charset)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    zend_string* escaped = php_escape_html_entities(bytes, text.size(), all, ENT_COMPAT, charset);
    std::string copy(ZSTR_VAL(escaped), ZSTR_LEN(escaped));
    zend_string_release(escaped);
    return copy;
}

const std::map<std::string, Filter> filters = {{"addslashes", addslashes},
                                               {"htmlentities", entities<true>},
                                               {"htmlspecialchars", entities<false>},
                                               {"rawurlencode", rawurlencode}};

// Sections that show or hide

bool isEqual(const Value* value, std::string wanted)
{
    const auto quote = wanted.find('\'');
    if (const auto last = wanted.rfind('\''); last != quote)
        wanted = wanted.substr(quote + 1, last - quote - 1);
    std::int64_t number = 0; // stays so when there are no digits, or too many
    std::from_chars(wanted.data(), wanted.data() + wanted.size(), number);
    if (is(value, Type::String))
        return upToNul(*value->text) == wanted;
    if (is(value, Type::Integer))
        return value->number == number;
    return is(value, Type::Boolean) && (value->number != 0) == (wanted != "0");
}

bool isVisible(const Value* value, const std::string& compare)
{
    if (!compare.empty())
        return isEqual(value, compare);
    const Value* visible = is(value, Type::Array) ? elementOf(*value, "visible") : nullptr;
    return value != nullptr && isTrue(visible != nullptr ? *visible : *value);
}

// Pages

struct Loop {
    std::string name;
    std::string key;
    const Value* element;
};

/// A page as it is rendered, with the loops that run, outermost first.
struct Page {
    std::string text;
    std::vector<Loop> loops;

    const Loop* find(const std::string& name) const
    {
        if (name.empty())
            return loops.empty() ? nullptr : &loops.back();
        const auto isMeant = [&](const Loop& loop) { return loop.name == name; };
        const auto found = std::find_if(loops.begin(), loops.end(), isMeant);
        return found != loops.end() ? &*found : nullptr;
    }
};

/// What is left of a template once it is parsed: what to do for the page, in order.
using Body = std::vector<std::function<void(Page&)>>;

void run(const Body& body, Page& page)
{
    for (const auto& step : body)
        step(page);
}

void append(Body& body, const Body& more)
{
    body.insert(body.end(), more.begin(), more.end());
}

std::string keyText(const Key& key)
{
    const auto* number = std::get_if<std::int64_t>(&key);
    return number != nullptr ? std::to_string(static_cast<std::uint64_t>(*number)) : std::get<std::string>(key);
}

void repeat(const Value& list, const std::string& name, bool reverse, const Body& body, Page& page)
{
    const std::size_t count = list.elements.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Element& element = list.elements[reverse ? count - 1 - i : i];
        page.loops.push_back({name, keyText(element.key), &element.value});
        run(body, page);
        page.loops.pop_back();
    }
}

struct Alternatives {
    std::vector<std::string> words;
    std::optional<std::string> fallback;
};

Alternatives parseAlternatives(const std::string& text)
{
    const std::string head = "Variable block bad parameter '" + text + "': ";
    Alternatives all;
    std::size_t at = text.find_first_not_of(blanks);
    while (at != none && text[at] != '\'') {
        const auto end = std::min(text.find_first_of(" \t\r\n\f\v'", at), text.size());
        if (end < text.size() && text[end] == '\'')
            throw Fault{head + "' is forbidden in variable"};
        all.words.push_back(text.substr(at, end - at));
        at = text.find_first_not_of(blanks, end);
    }
    if (at == none)
        return all;
    if (at + 1 == text.size() || text.back() != '\'')
        throw Fault{head + "could not find second ' as the last character"};
    all.fallback = text.substr(at + 1, text.size() - at - 2);
    return all;
}

/// A call, as every source of it knows it.
struct Call {
    const std::string& source;
    const Value& data;
    const Files& files;
    int conversions = 0;

    const Value* lookup(const Path& path) const
    {
        return path.isLoop || isPlainNumber(path.keys[0]) ? nullptr : follow(&data, path.keys);
    }

    std::string text(const Value& value)
    {
        if (value.type == Type::Object && !value.text)
            throw NoText{};
        if (value.type == Type::Integer || (value.type == Type::Boolean && value.number != 0))
            return std::to_string(value.number);
        conversions += value.type == Type::Array ? 1 : 0;
        return value.type == Type::Array ? "Array" : upToNul(value.text.value_or(""));
    }

    std::optional<std::string> text(const Path& path, const Page& page)
    {
        const Loop* loop = path.isLoop ? page.find(path.loop) : nullptr;
        if (loop != nullptr && path.isKey)
            return upToNul(loop->key);
        const Value* value = loop != nullptr ? follow(loop->element, path.keys) : lookup(path);
        return value != nullptr ? std::optional(text(*value)) : std::nullopt;
    }

    /// An alternative behind one from a loop is first read here: a fault in it names the call's template.
    std::string text(const Alternatives& all, const Page& page)
    {
        try {
            for (const std::string& word : all.words) {
                if (const auto found = text(parsePath(word), page))
                    return *found;
            }
        } catch (const Fault& fault) {
            throw Failure{fault.message + " in " + source};
        }
        return all.fallback.value_or("");
    }
};

// Templates

struct Tag {
    std::string keyword; ///< empty: a variable's
    std::string parameter;
};

Tag classify(const std::string& text)
{
    for (const char* keyword : {"include", "optional", "!optional", "/optional", "dynamic", "rdynamic", "/dynamic",
                                "/rdynamic", "addslashes", "htmlentities", "htmlspecialchars", "rawurlencode", ""}) {
        if (!text.starts_with(keyword))
            continue;
        const std::string rest = text.substr(std::string_view(keyword).size());
        const auto first = rest.find_first_not_of(blanks);
        const auto last = rest.find_last_not_of(blanks);
        return {keyword, first == none ? rest : rest.substr(first, last - first + 1)};
    }
    return {};
}

/// One template, parsed from its first byte to its last. What it leaves to do outlives it.
class Source
{
public:
    /// @param names of this source and, before it, those that include it
    static Body parse(Call& call, const std::string& text, const std::vector<std::string>& names)
    {
        try {
            return Source(call, text, names).body("");
        } catch (const Fault& fault) {
            throw Failure{fault.message + " in " + names.back()};
        }
    }

private:
    Source(Call& call, const std::string& text, const std::vector<std::string>& names)
        : call_(call), text_(text), names_(names)
    {
    }

    /// @param closing the keyword of the tag that ends it, empty: only the end of the text does
    Body body(const std::string& closing)
    {
        Body body;
        while (readText(body)) {
            const Tag tag = classify(readTag());
            if (!closing.empty() && tag.keyword == closing)
                return body;
            add(body, tag);
        }
        if (!closing.empty())
            throw Fault{"Missing closing tag"};
        return body;
    }

    /// Up to a brace that begins a tag. A brace doubled is one brace, a closing one alone is text.
    bool readText(Body& body)
    {
        std::string text;
        bool tagBegins = false;
        for (; at_ < text_.size() && !tagBegins; ++at_) {
            const auto next = text_.substr(at_ + 1, 1);
            tagBegins = text_[at_] == '{' && next.find_first_not_of("{ \t\r\n") == 0;
            if (!tagBegins)
                text += text_[at_];
            if ((text_[at_] == '{' || text_[at_] == '}') && next == text_.substr(at_, 1))
                ++at_;
        }
        settle(body, text);
        return tagBegins;
    }

    /// Up to the closing brace, or the end. Behind an opening brace in a tag no brace is one.
    std::string readTag()
    {
        std::string tag;
        for (; at_ < text_.size() && text_[at_] != '}'; ++at_) {
            tag += text_[at_];
            if (text_[at_] == '{' && at_ + 1 < text_.size() && text_[++at_] != '{')
                tag += text_[at_];
        }
        ++at_;
        return tag;
    }

    static void settle(Body& body, const std::string& text)
    {
        body.emplace_back([text](Page& page) { page.text += text; });
    }

    void add(Body& body, const Tag& tag)
    {
        if (tag.keyword.starts_with('/'))
            throw Fault{"Unexpected closing " + tag.keyword.substr(1) + " tag"};
        if (tag.keyword.empty())
            variable(body, tag.parameter);
        else if (tag.keyword == "include")
            include(body, tag.parameter);
        else if (tag.keyword.ends_with("optional"))
            optional(body, tag.parameter, tag.keyword == "optional");
        else if (tag.keyword.ends_with("dynamic"))
            dynamic(body, tag);
        else
            filter(body, tag.parameter, filters.at(tag.keyword));
    }

    void variable(Body& body, const std::string& parameter)
    {
        const Alternatives all = parseAlternatives(parameter);
        for (const std::string& word : all.words) {
            const Path path = parsePath(word);
            if (const Value* value = call_.lookup(path))
                return settle(body, call_.text(*value));
            if (path.isLoop) {
                body.emplace_back([all, &call = call_](Page& page) { page.text += call.text(all, page); });
                return;
            }
        }
        settle(body, all.fallback.value_or("{" + parameter + "}"));
    }

    void filter(Body& body, const std::string& parameter, Filter escape)
    {
        const Path path = parsePath(parameter);
        const Value* value = call_.lookup(path);
        if (is(value, Type::String))
            settle(body, upToNul(escape(*value->text, nullptr)));
        if (!path.isLoop)
            return;
        body.emplace_back([=, &call = call_](Page& page) {
            if (const auto text = call.text(path, page))
                page.text += escape(*text, "ISO-8859-1");
        });
    }

    void include(Body& body, const std::string& parameter)
    {
        const Path path = parsePath(parameter);
        const std::string head = "Include block bad parameter '" + parameter + "': ";
        if (path.isLoop)
            throw Fault{head + "asterisk in filename is forbidden"};
        const Value* value = call_.lookup(path);
        if (parameter.empty() && !is(value, Type::String))
            throw Fault{"Include block bad parameter: no parameter found"};
        auto names = names_;
        names.push_back(is(value, Type::String) ? upToNul(*value->text) : parameter);
        if (contains(names_, names.back()))
            throw Fault{head + "circle is detected"};
        if (const auto file = call_.files.find(names.back()); file != call_.files.end())
            append(body, parse(call_, file->second, names));
    }

    void optional(Body& body, const std::string& parameter, bool wanted)
    {
        const auto space = parameter.find(' ');
        const Path path = parsePath(parameter.substr(0, space));
        const std::string compare = space == none ? "" : parameter.substr(space + 1);
        const Body inside = this->body("/optional");
        if (!path.isLoop) {
            append(body, isVisible(call_.lookup(path), compare) == wanted ? inside : Body());
            return;
        }
        body.emplace_back([=](Page& page) {
            const Loop* loop = page.find(path.loop);
            if (loop == nullptr)
                return;
            const bool isKey = path.isKey && loop->key == compare;
            if ((path.isKey ? isKey : isVisible(follow(loop->element, path.keys), compare)) == wanted)
                run(inside, page);
        });
    }

    void dynamic(Body& body, const Tag& tag)
    {
        const auto comma = tag.parameter.find(',');
        const std::string name = comma != none ? tag.parameter.substr(0, comma) : "";
        const std::string written = comma != none ? tag.parameter.substr(comma + 1) : tag.parameter;
        const std::string head = "Dynamic block bad parameter '" + written + "': ";
        if (!name.empty() && contains(openLoops_, name))
            throw Fault{head + "namespace is used already"};
        const Path path = parsePath(written);
        if (path.isKey)
            throw Fault{head + "[*] is forbidden"};
        const Value* settled = settledList(call_.lookup(path));
        if (written.empty() && settled == nullptr)
            throw Fault{head + "no parameter found"};
        openLoops_.push_back(path.isLoop || settled != nullptr ? name : "");
        const Body inside = this->body("/" + tag.keyword);
        openLoops_.pop_back();
        body.emplace_back([=, reverse = tag.keyword == "rdynamic"](Page& page) {
            const Loop* loop = path.isLoop ? page.find(path.loop) : nullptr;
            const Value* list = loop != nullptr ? elementList(follow(loop->element, path.keys)) : settled;
            if (list != nullptr)
                repeat(*list, name, reverse, inside, page);
        });
    }

    Call& call_;
    const std::string& text_;
    const std::vector<std::string>& names_;
    std::size_t at_ = 0;
    std::vector<std::string> openLoops_;
};

std::string render(Call& call, bool inMemory)
{
    const auto file = call.files.find(call.source);
    if (!inMemory && file == call.files.end())
        throw Failure{"Could not open file " + call.source};
    Page page;
    run(Source::parse(call, inMemory ? call.source : file->second, {call.source}), page);
    return page.text;
}

} // namespace

Value::Value(Type type, std::int64_t number, std::optional<std::string> text)
    : type(type), number(number), text(std::move(text))
{
}

Outcome render(const std::string& source, bool inMemory, const Value& data, const Files& files)
{
    Call call{source, data, files};
    Outcome outcome;
    try {
        outcome.page = render(call, inMemory);
    } catch (const Failure& failure) {
        outcome.warning = upToNul(failure.message);
    } catch (const NoText&) {
        outcome.threw = true;
    }
    outcome.conversions = call.conversions;
    return outcome;
}

} // namespace model
