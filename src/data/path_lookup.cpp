#include "data/path_lookup.h"

#include <charconv>
#include <cstdint>
#include <optional>

#include "engine/guard.h"

namespace zorvel
{

namespace
{

std::optional<std::uint32_t> indexOf(std::string_view key)
{
    if (key.empty() || key.front() < '0' || key.front() > '9' || (key.front() == '0' && key.size() > 1))
        return {};
    std::uint32_t index = 0;
    const char* const end = key.data() + key.size();
    const auto [stop, error] = std::from_chars(key.data(), end, index);
    if (error != std::errc{} || stop != end)
        return {};
    return index;
}

/// The table that an index key enters: an array's, or an object's properties. Null for none.
HashTable* indexedTable(const zval* current)
{
    if (current == nullptr)
        return nullptr;
    if (Z_TYPE_P(current) == IS_ARRAY)
        return Z_ARRVAL_P(current);
    return Z_TYPE_P(current) == IS_OBJECT ? propertiesOf(current) : nullptr;
}

/// Declared properties, whose slots would have to be followed, have names and no indices.
const zval* elementAt(const zval* current, std::uint32_t index)
{
    const HashTable* const table = indexedTable(current);
    return table != nullptr ? zend_hash_index_find(table, index) : nullptr;
}

const zval* elementUnder(const zval* current, std::string_view key)
{
    if (Z_TYPE_P(current) != IS_ARRAY)
        return nullptr;
    return zend_hash_str_find(Z_ARRVAL_P(current), key.data(), key.size());
}

const zval* step(const zval* root, const zval* current, std::string_view key)
{
    if (const auto index = indexOf(key))
        return elementAt(current, *index);
    return elementUnder(current != nullptr ? current : root, key);
}

/// @param nextKey puts the next key of the path into its argument, false when there is none
template <typename NextKey>
const zval* walk(const zval* root, const zval* start, NextKey nextKey)
{
    std::string_view key;
    if (!nextKey(key))
        return start;
    const zval* found = step(root, start, key);
    while (nextKey(key)) {
        if (found == nullptr || Z_TYPE_P(found) != IS_ARRAY)
            return nullptr;
        found = step(root, found, key);
    }
    return found;
}

} // namespace

const zval* lookupPath(const zval* root, const std::deque<std::string>& path, const zval* start)
{
    auto next = path.begin();
    return walk(root, start, [&](std::string_view& key) {
        if (next == path.end())
            return false;
        key = *next++;
        return true;
    });
}

const zval* lookupOnlyKey(const zval* element, const zend_string* key)
{
    return Z_TYPE_P(element) == IS_ARRAY ? zend_hash_find_known_hash(Z_ARRVAL_P(element), key) : nullptr;
}

const zval* lookupAbsolutePath(const zval* root, std::string_view path)
{
    return walk(root, nullptr, [keys = KeyCursor(path)](std::string_view& key) mutable { return keys.next(key); });
}

HashTable* propertiesOf(const zval* object)
{
    HashTable* properties = nullptr;
    guarded([&] { properties = Z_OBJ_HT_P(object)->get_properties(Z_OBJ_P(object)); });
    return properties;
}

} // namespace zorvel
