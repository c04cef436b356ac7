#include "source/source_reader.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

#include "engine/guard.h"
#include "engine/reserve_ahead.h"
#include "ext/failure.h"

namespace zorvel
{

namespace
{

bool isBlankAfterBrace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

void reserveForChunk(std::string& out)
{
    constexpr std::size_t growth = 7;
    if (out.capacity() - out.size() < READ_CHUNK_SIZE)
        reserveAhead(out, out.size() * growth);
}

const char* findByte(const char* from, const char* end, char byte)
{
    const void* found = std::memchr(from, byte, static_cast<std::size_t>(end - from));
    return found != nullptr ? static_cast<const char*>(found) : end;
}

/// The first brace in [from, end), or end. In windows, so that a text full of the one brace is not searched
/// to its end for the other, again and again.
const char* findBrace(const char* from, const char* end)
{
    constexpr std::ptrdiff_t window = 512;
    while (from < end) {
        const char* const stop = from + std::min(window, end - from);
        const char* const brace = findByte(from, findByte(from, stop, '{'), '}');
        if (brace < stop)
            return brace;
        from = stop;
    }
    return end;
}

/// What one readUntil scans with, chunk after chunk. What it appends to outlives it.
class Scanner
{
public:
    Scanner(std::string& out, bool inTag) : out_(out), inTag_(inTag) {}

    /// Scans a chunk from `pos` on, which it moves.
    /// @return true when it stopped at the start of a tag, or behind the end of one; false at the chunk's end
    bool scan(std::string_view chunk, std::size_t& pos);

    /// A brace that the input ends with is literal.
    void finish();

private:
    enum class State { Plain, AfterOpen, AfterClose };

    void takePlain(std::string_view chunk, std::size_t& pos);
    void takeByteAfterOpen(char byte);

    std::string& out_;
    const bool inTag_;
    State state_ = State::Plain;
};

bool Scanner::scan(std::string_view chunk, std::size_t& pos)
{
    while (pos < chunk.size()) {
        switch (std::exchange(state_, State::Plain)) {
        case State::Plain:
            takePlain(chunk, pos);
            if (inTag_ && state_ == State::AfterClose)
                return true;
            break;
        case State::AfterOpen:
            if (!inTag_ && chunk[pos] != '{' && !isBlankAfterBrace(chunk[pos]))
                return true;
            takeByteAfterOpen(chunk[pos]);
            ++pos;
            break;
        case State::AfterClose:
            out_ += '}';
            if (chunk[pos] == '}')
                ++pos;
            break;
        }
    }
    return false;
}

/// Takes the bytes up to the next brace, and the brace.
void Scanner::takePlain(std::string_view chunk, std::size_t& pos)
{
    const char* const start = chunk.data() + pos;
    const char* const end = chunk.data() + chunk.size();
    const char* const brace = findBrace(start, end);
    const auto length = static_cast<std::size_t>(brace - start);
    out_.append(start, length);
    pos += length;
    if (brace == end)
        return;
    ++pos;
    state_ = *brace == '{' ? State::AfterOpen : State::AfterClose;
}

/// The brace was literal: "{{" is one of them, and any other byte follows it unexamined.
void Scanner::takeByteAfterOpen(char byte)
{
    out_ += '{';
    if (byte != '{')
        out_ += byte;
}

void Scanner::finish()
{
    if (state_ != State::Plain)
        out_ += state_ == State::AfterOpen ? '{' : '}';
}

} // namespace

SourceReader::SourceReader(const std::string& source, bool stringMode) : stringMode(stringMode)
{
    if (stringMode) {
        buffer.assign(source.begin(), source.end());
        return;
    }
    stream = Stream::open(source);
    if (!stream)
        throwError(message::cannotOpen, " ", source);
}

bool SourceReader::atEnd() const
{
    return stringMode ? exhausted : pos >= buffer.size() && stream.atEnd();
}

bool SourceReader::readUntil(std::string& out, char delimiter)
{
    Scanner scanner(out, delimiter == '}');
    while (!scanner.scan({buffer.data(), buffer.size()}, pos)) {
        if (!fill()) {
            scanner.finish();
            return false;
        }
        memory.check(out.size());
        reserveForChunk(out);
    }
    return true;
}

void SourceReader::close()
{
    stream.close();
}

bool SourceReader::fill()
{
    exhausted = stringMode;
    pos = 0;
    if (stringMode || stream.atEnd()) {
        buffer = {};
        return false;
    }
    serveInterrupt();
    buffer.resize(READ_CHUNK_SIZE);
    buffer.resize(stream.read(buffer.data(), READ_CHUNK_SIZE));
    return true;
}

} // namespace zorvel
