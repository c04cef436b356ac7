#include "source/template.h"

#include <utility>

#include "engine/guard.h"
#include "engine/reserve_ahead.h"
#include "ext/failure.h"
#include "parser/tag_dispatcher.h"
#include "render/renderer.h"

namespace zorvel
{

namespace
{

/// What a block takes, with what it holds in memory of its own.
constexpr std::size_t blockSize = 400;
/// A text that is given is held by the call's input, as the template's name, by its reader, and in the page. Room for
/// all, though most is never written, makes glibc keep at the call's end what else it would return to the system, and
/// fault in again, at each call.
constexpr std::size_t copiesOfText = 4;

/// Leaves the first block empty when it is a text: the block is rendered once more.
std::string takeFirstText(const BlockList& blocks)
{
    if (blocks.empty() || blocks.front() == nullptr || blocks.front()->type != Text)
        return {};
    return std::exchange(static_cast<TextBlock&>(*blocks.front()).text, {});
}

} // namespace

Template::Template(std::string source, TemplateInput* input, bool stringMode)
    : input(input), reader(source, stringMode), stringMode(stringMode)
{
    fileNames.push_back(std::move(source));
}

void Template::parse()
{
    auto pending = std::make_unique<TextBlock>();
    reserveAhead(pending->text, stringMode ? name().size() * copiesOfText : READ_CHUNK_SIZE);
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
    input->treeSize += pending->text.size() + blockSize;
    if (pending->text.empty())
        return;
    list.push_back(std::move(pending));
    pending = std::make_unique<TextBlock>();
}

std::string Template::render()
{
    std::string out = takeFirstText(blocks);
    if (out.empty())
        out.reserve(READ_CHUNK_SIZE);
    renderBlocks(*this, blocks, out, nullptr);
    return out;
}

} // namespace zorvel
