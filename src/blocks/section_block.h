#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <utility>

#include <php.h>

#include "blocks/block.h"
#include "blocks/only_key.h"

namespace zorvel
{

/// A section: a body, and the data that decides how often it is rendered.
class SubBlock : public Block
{
public:
    /// The section's body. Destroying it recurses, in frames that are a fraction of those which the parser
    /// needs for the same depth: whatever could be parsed can be destroyed.
    BlockList children;
    /// The declared name of the loop that path starts from; empty: the innermost loop.
    std::string namespaceName;
    /// The keys from that loop's current element to the section's data.
    std::deque<std::string> path;
    /// See onlyKeyOf; none where the path is not looked up while rendering.
    StringRef onlyKey;
    /// The value to walk when it was found while parsing, borrowed from the user data; null when it is looked
    /// up from namespaceName and path for each element.
    const zval* data = nullptr;

protected:
    SubBlock(std::int32_t code, const zval* value) : Block(code), data(value) {}
    SubBlock(std::int32_t code, std::string loopName, std::deque<std::string>&& keys)
        : Block(code), namespaceName(std::move(loopName)), path(std::move(keys))
    {
    }
};

/// `{dynamic P}`, `{rdynamic P}`: a section repeated for every element of an array.
class DynamicBlock final : public SubBlock
{
public:
    /// A loop over an array that an enclosing loop's element holds.
    DynamicBlock(std::string name, std::string loopName, std::deque<std::string>&& keys, bool reverse)
        : SubBlock(codeFor(reverse), std::move(loopName), std::move(keys)), declaredNamespace(std::move(name))
    {
        onlyKey = onlyKeyOf(path);
    }
    /// A loop over an array that was found while parsing.
    DynamicBlock(std::string name, const zval* value, bool reverse)
        : SubBlock(codeFor(reverse), value), declaredNamespace(std::move(name))
    {
    }
    /// A loop over nothing: it keeps the body that was parsed into it and renders nothing.
    explicit DynamicBlock(bool reverse) : SubBlock(codeFor(reverse), nullptr), enabled(false) {}

    /// The name that the tag gives to this loop; empty: none.
    std::string declaredNamespace;
    /// The key of the element being rendered, as text. Read only while the loop is on the loop stack.
    std::string currentKey;
    /// The element being rendered, borrowed. Read only while the loop is on the loop stack.
    const zval* currentValue = nullptr;
    bool enabled = true;

private:
    static std::int32_t codeFor(bool reverse) { return reverse ? ReverseDynamic : Dynamic; }
};

enum class OptionalMode : std::uint32_t {
    Always = 0,    ///< decided while parsing: the body is shown
    TestValue = 1, ///< the value below the loop's current element is tested
    TestKey = 2,   ///< the loop's current key is compared
};

/// `{optional P}`, `{!optional P}`: a section that is shown or hidden by a condition.
class OptionalBlock final : public SubBlock
{
public:
    OptionalBlock(std::string loopName, std::deque<std::string>&& keys, OptionalMode how, std::string text,
                  bool negated)
        : SubBlock(negated ? NotOptional : Optional, std::move(loopName), std::move(keys)),
          mode(how),
          compareText(std::move(text))
    {
        if (how == OptionalMode::TestValue)
            onlyKey = onlyKeyOf(path);
    }

    OptionalMode mode;
    /// What the value or key is compared with; empty: a value is tested for truth.
    std::string compareText;
};

} // namespace zorvel
