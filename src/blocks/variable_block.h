#pragma once

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "blocks/block.h"
#include "blocks/only_key.h"

namespace zorvel
{

/// A value, or with outputKey the key, of a loop that is being rendered.
class VariableBlock : public Block
{
public:
    /// The declared name of the loop that is meant; empty: the innermost loop.
    std::string namespaceName;
    /// The keys to descend from that loop's current element; empty: the element itself.
    std::deque<std::string> path;
    /// See onlyKeyOf.
    StringRef onlyKey;
    /// The block stands for the loop's current key; path is not used.
    bool outputKey = false;

protected:
    explicit VariableBlock(std::int32_t code) : Block(code) {}
    VariableBlock(std::int32_t code, std::string loopName, std::deque<std::string>&& keys, bool key)
        : Block(code),
          namespaceName(std::move(loopName)),
          path(std::move(keys)),
          onlyKey(onlyKeyOf(path)),
          outputKey(key)
    {
    }
};

/// `{name}`, `{a *::b 'default'}`: a variable tag with at least one candidate that depends on a loop. The
/// inherited fields are empty after construction; rendering stores in them the parse of the loop candidate
/// that it tries.
class MultiVariableBlock final : public VariableBlock
{
public:
    explicit MultiVariableBlock(std::vector<std::string> words) : VariableBlock(Variable), candidates(std::move(words))
    {
    }
    MultiVariableBlock(std::vector<std::string> words, std::string fallback)
        : VariableBlock(Variable), candidates(std::move(words)), defaultText(std::move(fallback)), hasDefault(true)
    {
    }

    /// The tag's parameters as written, tried in this order. Never empty.
    std::vector<std::string> candidates;
    /// Output when no candidate has a value and hasDefault is set.
    std::string defaultText;
    /// The tag had a default text, though maybe an empty one.
    bool hasDefault = false;
    /// The inherited fields hold the parse of the only candidate, for good.
    bool isParsed = false;
};

/// `{addslashes P}` and its kin: a value of a loop put through one of PHP's escaping functions; which one,
/// the type code alone says.
template <BlockType Code>
class FilterBlock final : public VariableBlock
{
public:
    FilterBlock(std::string loopName, std::deque<std::string>&& keys, bool key)
        : VariableBlock(Code, std::move(loopName), std::move(keys), key)
    {
    }
};

using AddslashesBlock = FilterBlock<Addslashes>;
using HtmlentitiesBlock = FilterBlock<Htmlentities>;
using HtmlspecialcharsBlock = FilterBlock<Htmlspecialchars>;
using RawurlencodeBlock = FilterBlock<Rawurlencode>;

} // namespace zorvel
