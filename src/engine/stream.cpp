#include "engine/stream.h"

#include <algorithm>

#include <php_streams.h>

#include "engine/guard.h"

namespace zorvel
{

namespace
{

/// What is asked of a file at a time, where that costs a system call.
constexpr std::size_t fileChunk = std::size_t{64} << 10;

} // namespace

void Stream::hold(php_stream* opened)
{
    resource_ = opened->res;
    GC_ADDREF(resource_);
    opened->flags |= PHP_STREAM_FLAG_NO_FCLOSE | PHP_STREAM_FLAG_SUPPRESS_ERRORS;
    if (php_stream_is(opened, PHP_STREAM_IS_STDIO))
        opened->chunk_size = fileChunk;
}

Stream::~Stream()
{
    if (resource_ == nullptr)
        return;
    guardedNoThrow([this] { free(); });
    guardedNoThrow([this] { zend_list_delete(resource_); });
}

void Stream::close()
{
    if (resource_ == nullptr)
        return;
    guarded([this] { free(); });
}

void Stream::free()
{
    if (php_stream* stream = get())
        php_stream_free(stream, PHP_STREAM_FREE_CLOSE);
}

Stream Stream::open(const std::string& name)
{
    Stream stream;
    if (name.empty() || name.find('\0') != std::string::npos)
        return stream;
    guarded([&] {
        if (auto* opened = php_stream_open_wrapper_ex(name.c_str(), "rb", USE_PATH, nullptr, nullptr))
            stream.hold(opened);
    });
    return stream;
}

bool Stream::atEnd() const
{
    bool end = true;
    guarded([&] { end = get() == nullptr || failedReads_ > 1 || php_stream_eof(get()); });
    return end;
}

std::size_t Stream::read(char* buffer, std::size_t size)
{
    ssize_t count = 0;
    guarded([&] { count = get() != nullptr ? php_stream_read(get(), buffer, size) : 0; });
    failedReads_ = count < 0 ? failedReads_ + 1 : 0;
    return static_cast<std::size_t>(std::max<ssize_t>(count, 0));
}

} // namespace zorvel
