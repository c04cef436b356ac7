#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "engine/memory_bound.h"
#include "engine/stream.h"

namespace zorvel
{

/// Bytes of a template file that are read at a time, and the most that are held.
constexpr std::size_t READ_CHUNK_SIZE = 4092;

/// Delivers a template's bytes in two kinds of pieces: plain text up to the next tag, with the brace escapes
/// removed, and the text of one tag up to its closing brace. Bytes are handled as they are: no character set
/// is assumed, no line ending changed, a NUL byte is an ordinary byte.
///
/// What a brace means is known only from the byte after it, which may be the first of the next chunk. So a
/// scan carries a state from chunk to chunk:
///
///     a {{ b      Plain, AfterOpen at the first brace; the second makes it one literal "{"
///     a { b       AfterOpen, and a blank makes the brace literal text
///     a {name}    AfterOpen, and any other byte begins a tag: the scan stops in front of it
///     a }} b }    Plain, AfterClose at the first brace; "}}" and a lone "}" both yield "}"
///     {a{b}c}     inside a tag, AfterOpen takes the byte after a brace as it is: the tag is "a{b"; in
///                 {a{}c} that byte is the "}", so that the tag is "a{}c"
class SourceReader
{
public:
    /// @param source the template's text in string mode, else the name of its file
    /// @throws std::runtime_error when the file cannot be opened
    SourceReader(const std::string& source, bool stringMode);

    /// True when nothing is left to read.
    bool atEnd() const;

    /// Appends bytes to `out`: with the delimiter "{" plain text up to the next tag, with "}" the text of a
    /// tag, whose closing brace is consumed. Not to be called at the end.
    /// @return false when the input ended first; `out` has what was left of it
    bool readUntil(std::string& out, char delimiter);

    /// Closes the stream. Nothing can be read any more.
    /// @throws Bailout, PendingException from a userland stream wrapper
    void close();

private:
    bool fill();

    const bool stringMode;
    /// String mode only: the text has been scanned to its end.
    bool exhausted = false;
    /// Empty in string mode. Closed by close(), or when the reader is destroyed.
    Stream stream;
    /// Index of the first byte in buffer that has not been delivered.
    std::size_t pos = 0;
    /// The whole text in string mode, else the current chunk.
    std::vector<char> buffer;
    /// Asked as a text or tag grows that comes in many chunks.
    MemoryBound memory;
};

} // namespace zorvel
