#include "data/path_lookup.h"

#include <charconv>
#include <cstdint>
#include <optional>

#include "engine/guard.h"
#include "source/template.h"

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

/// A property table's slot for a declared property is indirect.
/// @return the value that it stands for; null for an uninitialised property and for null
const zval* followSlot(const zval* slot)
{
    if (slot != nullptr && Z_TYPE_P(slot) == IS_INDIRECT)
        slot = Z_INDIRECT_P(slot);
    return slot != nullptr && Z_TYPE_P(slot) != IS_UNDEF ? slot : nullptr;
}

const zval* elementAt(const zval* current, std::uint32_t index)
{
    if (current == nullptr)
        return nullptr;
    if (Z_TYPE_P(current) == IS_ARRAY)
        return zend_hash_index_find(Z_ARRVAL_P(current), index);
    if (Z_TYPE_P(current) == IS_OBJECT)
        return followSlot(zend_hash_index_find(propertiesOf(current), index));
    return nullptr;
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

const zval* lookupPath(Template& tpl, const std::deque<std::string>& path, const zval* start)
{
    auto next = path.begin();
    return walk(tpl.input->userData, start, [&](std::string_view& key) {
        if (next == path.end())
            return false;
        key = *next++;
        return true;
    });
}

const zval* lookupAbsolutePath(Template& tpl, std::string_view path)
{
    return walk(tpl.input->userData, nullptr,
                [keys = KeyCursor(path)](std::string_view& key) mutable { return keys.next(key); });
}

HashTable* propertiesOf(const zval* object)
{
    HashTable* properties = nullptr;
    guarded([&] { properties = Z_OBJ_HT_P(object)->get_properties(Z_OBJ_P(object)); });
    return properties;
}

} // namespace zorvel
