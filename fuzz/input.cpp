#include "input.h"

#include <algorithm>
#include <cctype>
#include <limits>
#include <utility>

namespace fuzz
{

namespace
{

using model::Key;
using model::Value;
using Type = Value::Type;

constexpr std::size_t mostElements = 8;

Key keyOf(char sign)
{
    static const std::map<char, Key> longer = {{'N', "num"},        {'V', "visible"}, {'-', -1},
                                               {'+', 4294967295LL}, {'.', "007"},     {'~', "2nd"}};
    if (const auto found = longer.find(sign); found != longer.end())
        return found->second;
    return std::isdigit(static_cast<unsigned char>(sign)) != 0 ? Key(std::int64_t{sign - '0'})
                                                               : Key(std::string(1, sign));
}

class DataReader
{
public:
    explicit DataReader(const std::string& text) : text_(text), at_(text.find('[')) {}

    Value root()
    {
        take();
        return array(Type::Array);
    }

private:
    bool atEnd() const { return at_ >= text_.size(); }
    char take() { return atEnd() ? '\0' : text_[at_++]; }

    Value value()
    {
        const char sign = take();
        switch (sign) {
        case '[':
            return array(Type::Array);
        case 'A':
            return array(Type::Object);
        case 'p':
        case 'l':
        case 'y':
            return row();
        case 'o':
            take();
            return {Type::Object, 0, std::string("<o'\xE9&\0\">", 8)};
        case '\'':
        case '`':
            return {Type::String, 0, upTo(sign)};
        default:
            return scalar(sign);
        }
    }

    static Value scalar(char sign)
    {
        static const std::map<char, Value> known = {{'t', {Type::Boolean, 1}},
                                                    {'f', {Type::Boolean, 0}},
                                                    {'d', {Type::Float, 0, "1.5"}},
                                                    {'D', {Type::Float, 0, "0"}},
                                                    {'m', {Type::Integer, std::numeric_limits<std::int64_t>::min()}}};
        if (const auto found = known.find(sign); found != known.end())
            return found->second;
        return std::isdigit(static_cast<unsigned char>(sign)) != 0 ? Value{Type::Integer, sign - '0'} : Value{};
    }

    std::string upTo(char quote)
    {
        const auto end = std::min(text_.find(quote, at_), text_.size());
        const auto begin = std::exchange(at_, end + 1);
        return begin < end ? text_.substr(begin, end - begin) : "";
    }

    /// The class Row's properties that have a value.
    Value row()
    {
        Value object{Type::Object};
        object.elements.push_back({"a", value()});
        object.elements.push_back({"b", {}});
        object.elements.push_back({std::string("\0Row\0c", 6), {Type::Integer, 7}});
        return object;
    }

    Value array(Type type)
    {
        Value array{type};
        while (!atEnd()) {
            char sign = take();
            if (sign == ']' || array.elements.size() == mostElements)
                break;
            const bool isReference = sign == '&';
            if (isReference)
                sign = take();
            set(array, keyOf(sign), value(), isReference);
        }
        return array;
    }

    /// As PHP assigns: an element keeps its place, and a reference stays one.
    static void set(Value& array, const Key& key, Value value, bool isReference)
    {
        const auto has = [&](const model::Element& element) { return element.key == key; };
        auto found = std::find_if(array.elements.begin(), array.elements.end(), has);
        if (found == array.elements.end())
            found = array.elements.insert(found, {key, {}});
        value.isReference = isReference || found->value.isReference;
        found->value = std::move(value);
    }

    const std::string& text_;
    std::size_t at_;
};

bool has(const std::string& input, const std::string& word, int most)
{
    for (std::size_t at = 0; (at = input.find(word, at)) != std::string::npos; ++at)
        --most;
    return most < 0;
}

} // namespace

Input readInput(const std::string& bytes)
{
    const std::string line = "\n--\n";
    std::vector<std::string> parts;
    std::size_t begin = 0;
    for (std::size_t end = 0; parts.size() < 5 && (end = bytes.find(line, begin)) != std::string::npos;
         begin = end + line.size())
        parts.push_back(bytes.substr(begin, end - begin));
    parts.push_back(bytes.substr(begin));
    parts.resize(std::max<std::size_t>(parts.size(), 2));
    Input input{parts[0], parts[1], {}};
    for (std::size_t i = 0; i < parts.size(); ++i)
        input.files["in://" + std::to_string(i)] = parts[i];
    return input;
}

model::Value readData(const std::string& text)
{
    return DataReader(text).root();
}

bool isSmall(const std::string& input)
{
    return !has(input, "dynamic", 8) && !has(input, "include", 8);
}

} // namespace fuzz
