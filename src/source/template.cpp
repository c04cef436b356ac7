#include "source/template.h"

#include <utility>

#include "engine/guard.h"
#include "ext/failure.h"
#include "parser/tag_dispatcher.h"
#include "render/renderer.h"

namespace zorvel
{

namespace
{

/// Room for the text between two tags, in place of the first few growths.
constexpr std::size_t TEXT_RESERVE = 240;
/// What a block takes, with what it holds in memory of its own.
constexpr std::size_t BLOCK_SIZE = 400;

} // namespace

Template::Template(std::string source, TemplateInput* input, bool stringMode)
    : input(input), reader(source, stringMode), stringMode(stringMode)
{
    fileNames.push_back(std::move(source));
}

void Template::parse()
{
    auto pending = std::make_unique<TextBlock>();
    pending->text.reserve(READ_CHUNK_SIZE);
    parseBlocks(blocks, pending, 0);
}

void Template::parseBlocks(BlockList& list, PendingText& pending, int expectedClose)
{
    if (stackIsUsedUp())
        throwError(message::tooDeep, name());

    bool closed = false;
    while (!closed && !reader.atEnd()) {
        serveInterrupt();
        input->memory.check(input->treeSize + pending->text.size());
        closed = reader.readUntil(pending->text, '{') && dispatchTag(*this, list, pending, expectedClose);
    }
    flushText(list, pending);
    if (!closed && expectedClose != 0)
        throwError(message::missingClose, name());
}

void Template::flushText(BlockList& list, PendingText& pending)
{
    input->treeSize += pending->text.size() + BLOCK_SIZE;
    if (pending->text.empty())
        return;
    list.push_back(std::move(pending));
    pending = std::make_unique<TextBlock>();
    pending->text.reserve(TEXT_RESERVE);
}

std::string Template::render()
{
    if (blocks.size() == 1 && blocks.front() != nullptr && blocks.front()->type == Text)
        return std::move(static_cast<TextBlock&>(*blocks.front()).text);
    std::string out;
    out.reserve(READ_CHUNK_SIZE);
    renderBlocks(*this, blocks, out, nullptr);
    return out;
}

} // namespace zorvel
