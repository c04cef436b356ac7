#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// The language's reference: docs/language.md and docs/messages.md as a program, slow and plain. It was written from
/// them and shares no line with the engine that it judges; where it and the engine differ, one of them or the
/// document is wrong. Only the two entity filters ask PHP, which has the tables.
namespace model
{

/// A key as PHP stores it: that of a plain number is an integer.
using Key = std::variant<std::int64_t, std::string>;

struct Element;

struct Value {
    enum class Type { Null, Boolean, Integer, Float, String, Array, Object };

    Value(Type type = Type::Null, std::int64_t number = 0, std::optional<std::string> text = {});

    Type type;
    std::int64_t number;             ///< of a boolean and an integer
    std::optional<std::string> text; ///< of a string; what PHP casts a float to, and an object when it can
    std::vector<Element> elements;   ///< of an array; an object's properties, private ones by PHP's inner name
    bool isReference = false;
};

struct Element {
    Key key;
    Value value;
};

/// What a call is seen to do.
struct Outcome {
    std::optional<std::string> page; ///< none: null
    std::string warning;             ///< the extension's own, none: empty
    bool threw = false;              ///< PHP's Error for an object that has no text
    int conversions = 0;             ///< PHP's warnings about arrays that become text

    bool operator==(const Outcome&) const = default;
};

/// All files there are, by the name that opens them.
using Files = std::map<std::string, std::string>;

/// @param source a file's name; the template itself when it is inMemory
Outcome render(const std::string& source, bool inMemory, const Value& data, const Files& files);

} // namespace model
