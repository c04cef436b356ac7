#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include <php.h>

namespace zorvel
{

/// Owns a PHP stream opened for reading. Held by its resource, since user code that runs during a call can
/// get at every resource of the request and close it: such a stream is at its end.
class Stream
{
public:
    Stream() = default;
    Stream(Stream&& other) noexcept
        : resource_(std::exchange(other.resource_, nullptr)), failedReads_(other.failedReads_)
    {
    }
    Stream& operator=(Stream&& other) noexcept
    {
        std::swap(resource_, other.resource_);
        std::swap(failedReads_, other.failedReads_);
        return *this;
    }
    ~Stream();

    /// Opens a file through PHP's stream layer, relative names searched along PHP's include path. An empty
    /// name and one with a NUL byte name no file.
    /// @return a stream that is false when the file cannot be opened
    /// @throws Bailout, PendingException from a userland stream wrapper
    static Stream open(const std::string& name);

    explicit operator bool() const { return resource_ != nullptr; }

    /// Two reads in a row that fail end a stream too: one that cannot be read may never say that it has ended.
    /// @throws Bailout, PendingException from a userland stream wrapper
    bool atEnd() const;

    /// @return the number of bytes read, at most size; 0 after a read error too
    /// @throws Bailout, PendingException from a userland stream wrapper
    std::size_t read(char* buffer, std::size_t size);

    /// Closes it ahead of the destructor, which has to keep to itself what goes wrong.
    /// @throws Bailout, PendingException from a userland stream wrapper
    void close();

private:
    void free();
    void hold(php_stream* opened);
    /// The stream, or null when it has been closed behind our back.
    php_stream* get() const { return static_cast<php_stream*>(resource_->ptr); }

    zend_resource* resource_ = nullptr;
    int failedReads_ = 0;
};

} // namespace zorvel
