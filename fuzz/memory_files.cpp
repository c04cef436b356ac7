#include "memory_files.h"

#include <algorithm>
#include <cstring>

#include <php.h>

#include "faults.h"

namespace memory_files
{

namespace
{

using faults::Kind;

const model::Files* served = nullptr;
int opened = 0;

/// What a stream has not read yet.
struct Rest {
    const char* begin;
    const char* end;
};

ssize_t write(php_stream*, const char*, std::size_t)
{
    return -1;
}

/// A stream knows that it is at its end with its last piece when that is an even one, else by an empty piece.
ssize_t read(php_stream* stream, char* buffer, std::size_t size)
{
    if (faults::reach(Kind::ReadFile))
        return -1;
    auto* rest = static_cast<Rest*>(stream->abstract);
    const std::size_t left = rest->end - rest->begin;
    const std::size_t piece = std::min({size, left, 1 + left / 2 % 6});
    std::memcpy(buffer, rest->begin, piece);
    rest->begin += piece;
    stream->eof = piece == 0 || (piece == left && piece % 2 == 0) ? 1 : 0;
    return static_cast<ssize_t>(piece);
}

int close(php_stream* stream, int)
{
    pefree(stream->abstract, 1);
    --opened;
    return faults::reach(Kind::CloseFile) ? EOF : 0;
}

int flush(php_stream*)
{
    return 0;
}

const php_stream_ops streamOps = {write, read, close, flush, "memory", nullptr, nullptr, nullptr, nullptr};

/// @return null: there is no such file
const std::string* find(const char* name)
{
    const faults::Armed none(false);
    const auto file = served->find(name);
    return file != served->end() ? &file->second : nullptr;
}

php_stream* openFile(php_stream_wrapper*, const char* name, const char* mode, int, zend_string**,
                     php_stream_context* STREAMS_DC)
{
    const std::string* file = find(name);
    if (faults::reach(Kind::OpenFile) || file == nullptr)
        return nullptr;
    auto* rest = static_cast<Rest*>(pemalloc(sizeof(Rest), 1));
    *rest = {file->data(), file->data() + file->size()};
    php_stream* stream = nullptr;
    zend_try
    {
        stream = php_stream_alloc_rel(&streamOps, rest, nullptr, mode);
    }
    zend_catch
    {
        pefree(rest, 1);
        zend_bailout();
    }
    zend_end_try();
    ++opened;
    return stream;
}

const php_stream_wrapper_ops wrapperOps = {openFile, nullptr, nullptr, nullptr, nullptr, "memory",
                                           nullptr,  nullptr, nullptr, nullptr, nullptr};
const php_stream_wrapper wrapper = {&wrapperOps, nullptr, 0};

} // namespace

void registerWrapper()
{
    zend_hash_clean(php_stream_get_url_stream_wrappers_hash_global());
    php_register_url_stream_wrapper("in", &wrapper);
}

void switchOffPlainFiles()
{
    zend_string* name = zend_string_init("in", 2, false);
    php_unregister_url_stream_wrapper_volatile(name);
    php_register_url_stream_wrapper_volatile(name, const_cast<php_stream_wrapper*>(&wrapper));
    zend_string_release(name);
}

int open()
{
    return opened;
}

void serve(const model::Files* files)
{
    served = files;
}

} // namespace memory_files
