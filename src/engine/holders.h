#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

#include <php.h>

#include "engine/guard.h"

namespace zorvel
{

// Holders of what is counted by the engine, or of nothing. To adopt takes over a reference that the caller owns; to
// share takes one more. Each gives its reference back as the engine does it, which tells the garbage collector, too:
// that may run user code, so that what is only borrowed may be gone afterwards.

/// Holds an engine string.
class StringRef
{
public:
    StringRef() = default;
    static StringRef adopt(zend_string* string)
    {
        StringRef ref;
        ref.string_ = string;
        return ref;
    }
    StringRef(StringRef&& other) noexcept : string_(std::exchange(other.string_, nullptr)) {}
    StringRef& operator=(StringRef&& other) noexcept
    {
        std::swap(string_, other.string_);
        return *this;
    }
    ~StringRef()
    {
        if (string_ != nullptr)
            zend_string_release(string_);
    }

    /// A new engine string of that many bytes, which the caller has to write.
    /// @throws Bailout when memory_limit is reached
    static StringRef ofLength(std::size_t length)
    {
        StringRef string;
        catchingBailout([&] { string = adopt(zend_string_alloc(length, false)); });
        string.bytes()[length] = '\0';
        return string;
    }

    /// The interned string with these bytes if there is one, else a new one; with its hash.
    /// @throws Bailout when memory_limit is reached
    static StringRef hashed(std::string_view bytes)
    {
        StringRef string;
        catchingBailout([&] { string = adopt(zend_string_init_existing_interned(bytes.data(), bytes.size(), false)); });
        zend_string_hash_val(string.get());
        return string;
    }

    explicit operator bool() const { return string_ != nullptr; }
    zend_string* get() const { return string_; }
    char* bytes() const { return ZSTR_VAL(string_); }
    zend_string* release() { return std::exchange(string_, nullptr); }
    /// The bytes before the first NUL byte; valid as long as this holder.
    std::string_view textUpToNul() const { return ZSTR_VAL(string_); }

private:
    zend_string* string_ = nullptr;
};

/// Holds a value; undefined when it holds nothing.
class ValueRef
{
public:
    ValueRef() { ZVAL_UNDEF(&value_); }
    static ValueRef share(const zval* value)
    {
        ValueRef ref;
        ZVAL_COPY(&ref.value_, value);
        return ref;
    }
    ValueRef(ValueRef&& other) noexcept : ValueRef() { std::swap(value_, other.value_); }
    ValueRef& operator=(ValueRef&& other) noexcept
    {
        std::swap(value_, other.value_);
        return *this;
    }
    ~ValueRef()
    {
        if (Z_REFCOUNTED(value_))
            guardedNoThrow([this] { zval_ptr_dtor(&value_); });
    }

    zval* get() { return &value_; }

private:
    zval value_;
};

/// Holds a hash table: whoever writes to it has to separate from it first.
class TableRef
{
public:
    TableRef() = default;
    static TableRef adopt(HashTable* table)
    {
        TableRef ref;
        ref.table_ = table;
        return ref;
    }
    static TableRef share(HashTable* table)
    {
        GC_TRY_ADDREF(table);
        return adopt(table);
    }
    TableRef(TableRef&& other) noexcept : table_(std::exchange(other.table_, nullptr)) {}
    TableRef& operator=(TableRef&& other) noexcept
    {
        std::swap(table_, other.table_);
        return *this;
    }
    ~TableRef()
    {
        if (table_ != nullptr && (GC_FLAGS(table_) & GC_IMMUTABLE) == 0)
            guardedNoThrow([this] { GC_DTOR(table_); });
    }

    HashTable* get() const { return table_; }

private:
    HashTable* table_ = nullptr;
};

} // namespace zorvel
