#include "source/source_reader.h"

#include <algorithm>
#include <cstring>

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
    State state = State::Plain;
    while (!scan(out, delimiter == '}', state)) {
        if (!fill()) {
            appendLastBrace(out, state);
            return false;
        }
        memory.check(out.size());
        reserveForChunk(out);
    }
    return true;
}

/// A brace that the input ends with is literal.
void SourceReader::appendLastBrace(std::string& out, State state)
{
    if (state != State::Plain)
        out += state == State::AfterOpen ? '{' : '}';
}

void SourceReader::close()
{
    stream.close();
}

/// Scans what is left of the buffer.
/// @return true when it stopped at the start of a tag, or behind the end of one
bool SourceReader::scan(std::string& out, bool inTag, State& state)
{
    while (pos < buffer.size()) {
        switch (state) {
        case State::Plain:
            scanPlain(out, state);
            if (inTag && state == State::AfterClose)
                return true;
            break;
        case State::AfterOpen:
            if (!inTag && buffer[pos] != '{' && !isBlankAfterBrace(buffer[pos]))
                return true;
            takeByteAfterOpen(out);
            state = State::Plain;
            break;
        case State::AfterClose:
            out += '}';
            if (buffer[pos] == '}')
                ++pos;
            state = State::Plain;
            break;
        }
    }
    return false;
}

/// Takes the run of bytes up to the next brace, and the brace.
void SourceReader::scanPlain(std::string& out, State& state)
{
    const char* const start = buffer.data() + pos;
    const char* const end = buffer.data() + buffer.size();
    const char* const brace = findBrace(start, end);
    const auto length = static_cast<std::size_t>(brace - start);
    out.append(start, length);
    pos += length;
    if (brace == end)
        return;
    ++pos;
    state = *brace == '{' ? State::AfterOpen : State::AfterClose;
}

/// The brace was literal: "{{" is one of them, and any other byte follows it unexamined.
void SourceReader::takeByteAfterOpen(std::string& out)
{
    out += '{';
    if (buffer[pos] != '{')
        out += buffer[pos];
    ++pos;
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
