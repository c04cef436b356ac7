#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include <php.h>

#include "blocks/block.h"
#include "blocks/text_block.h"
#include "data/escaping.h"
#include "data/path_lookup.h"
#include "engine/memory_bound.h"
#include "source/source_reader.h"

namespace zorvel
{

class DynamicBlock;

/// What one call was given. Outlives every Template of the call.
struct TemplateInput {
    /// The file name as passed, or in string mode the template's text.
    std::string fileName;
    /// The user data: always an array, borrowed from the caller, only read.
    const zval* userData;
    /// Asked as the tree and the page grow.
    MemoryBound memory = {};
    /// Bytes of the blocks that have been parsed, roughly.
    std::size_t treeSize = 0;
    /// The filters' escapings, by code from Addslashes on; what they have asked of PHP is kept for the call.
    std::array<ByteEscaping, 4> escapings = {
        ByteEscaping(escapingOf<Addslashes>()),
        ByteEscaping(escapingOf<Htmlentities>()),
        ByteEscaping(escapingOf<Htmlspecialchars>()),
        ByteEscaping(escapingOf<Rawurlencode>()),
    };

    template <BlockType Code>
    ByteEscaping& escapingFor()
    {
        return std::get<Code - Addslashes>(escapings);
    }
};

/// One template source being parsed and rendered: the file or text given to the call, or one included file,
/// whose blocks go straight into the lists of the including template.
class Template
{
public:
    /// @throws std::runtime_error when the file cannot be opened
    Template(std::string source, TemplateInput* input, bool stringMode);
    Template(const Template&) = delete;
    Template& operator=(const Template&) = delete;

    /// Parses the whole source into blocks.
    void parse();

    /// Parses from the current position into `list` until the closing tag of code `expectedClose` has been
    /// read or, with 0, the input ends.
    /// @param pending text that has been read and is in no list yet; afterwards empty
    /// @throws std::runtime_error for every fault in the template's text
    void parseBlocks(BlockList& list, PendingText& pending, int expectedClose);

    /// Moves pending text, when there is any, to the end of `list`. Done before any other block is added, so
    /// that text and tags keep their order.
    void flushText(BlockList& list, PendingText& pending);

    /// The page. To be called once: it begins in the memory of the first text, which is moved out of its block, since
    /// copies of large texts cost more in page faults than all parsing.
    std::string render();

    /// This source's name, the one that messages cite.
    const std::string& name() const { return fileNames.back(); }

    /// The top-level blocks. Empty in an included file's template.
    BlockList blocks;
    /// The loops around the tag being parsed or the block being rendered, innermost last; they belong to the
    /// tree.
    std::vector<DynamicBlock*> dynamicStack;
    TemplateInput* input;
    SourceReader reader;
    bool stringMode;
    /// The include chain, this source's name last. In string mode the first is the text itself.
    std::vector<std::string> fileNames;
    /// The text of the tag that was read last, kept for its memory.
    std::string tagText;
};

/// The same from the root of the call's user data.
inline const zval* lookupPath(const Template& tpl, const std::deque<std::string>& path, const zval* start)
{
    return lookupPath(tpl.input->userData, path, start);
}

} // namespace zorvel
