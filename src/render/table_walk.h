#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <php.h>

#include "engine/holders.h"

namespace zorvel
{

/// A walk over the elements of an array, or the properties of an object, in order or in reverse. It keeps a
/// position of its own, and a hold on the array, or a copy of the property table: elements stay valid as long as
/// the walk. (An object's own table cannot be held: its slots live and die with the object, which a proxy swaps for
/// another, and the first write to a held table would cut it off from the object's declared properties.)
/// Uninitialised properties are passed over; any other value has no elements.
class TableWalk
{
public:
    /// @throws Bailout, PendingException from an object that makes its properties on demand
    TableWalk(const zval* value, bool reverse);

    std::size_t size() const { return table_.get() != nullptr ? zend_hash_num_elements(table_.get()) : 0; }

    /// @param key becomes the element's key as text: a string key whole, an integer key as the decimal
    ///        form of its 64 bits read as unsigned
    /// @return the next element; null behind the last
    const zval* next(std::string& key);

private:
    void readKey(std::string& key, const zval* element, zend_ulong position) const;

    TableRef table_;
    /// Slots that have not been looked at; a deleted element leaves an empty one.
    std::uint32_t left_ = 0;
    const bool reverse_;
};

} // namespace zorvel
