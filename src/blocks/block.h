#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace zorvel
{

/// Type codes of tags and blocks, one numbering for both. Some codes name tags that never become blocks:
/// Include and the closing tags. Unscoped, since a code is compared with the plain integer that a parse
/// loop carries as the closing tag it waits for (0: none).
enum BlockType : std::int32_t {
    Variable = 1,
    Text = 2,
    Include = 3,
    Optional = 4,
    NotOptional = 5,
    Dynamic = 6,
    ReverseDynamic = 7,
    EndOptional = 8,
    EndDynamic = 9,
    EndReverseDynamic = 10,
    Addslashes = 11,
    Htmlentities = 12,
    Htmlspecialchars = 13,
    Rawurlencode = 14,
};

/// A node of a parsed template. Blocks carry data only: what is done with one is chosen by its type code,
/// which agrees with its class. No block owns a PHP value; values are borrowed from the user data, which
/// outlives the tree.
class Block
{
public:
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    virtual ~Block() = default;

    const std::int32_t type;

protected:
    explicit Block(std::int32_t code) : type(code) {}
};

/// Blocks in document order; the list owns them. It never holds a TextBlock with empty text.
using BlockList = std::vector<std::unique_ptr<Block>>;

} // namespace zorvel
