#pragma once

#include <deque>
#include <string>
#include <string_view>

#include <php.h>

namespace zorvel
{

/// Walks a path of keys through the user data. A key in canonical decimal form, from 0 to 4294967295, is an
/// index; an index enters arrays and the property tables of objects. Every other key is a string key, which
/// enters arrays only. On the way, references are not followed.
/// @param start where to begin; null: at the root of the user data, which only a string key enters
/// @return the value that the path names, borrowed from the user data, a reference as the reference itself;
///         `start` for an empty path; null when the path names nothing
const zval* lookupPath(const zval* root, const std::deque<std::string>& path, const zval* start);

/// The same for a path of one string key from a loop's element.
const zval* lookupOnlyKey(const zval* element, const zend_string* key);

/// The same for an absolute path that is still text, its keys separated by "::", the empty text one empty
/// key.
const zval* lookupAbsolutePath(const zval* root, std::string_view path);

/// The keys of "a::b::c", one at a time. Views into the text.
class KeyCursor
{
public:
    explicit KeyCursor(std::string_view path) : rest_(path) {}

    /// @return false behind the last key; `key` is then left as it was
    bool next(std::string_view& key)
    {
        if (done_)
            return false;
        const std::size_t end = rest_.find("::");
        key = rest_.substr(0, end);
        done_ = end == std::string_view::npos;
        if (!done_)
            rest_.remove_prefix(end + 2);
        return true;
    }

private:
    std::string_view rest_;
    bool done_ = false;
};

/// The property table of an object, or null. Asking for it may run user code.
/// @throws Bailout, PendingException
HashTable* propertiesOf(const zval* object);

} // namespace zorvel
