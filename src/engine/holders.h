#pragma once

#include <string_view>
#include <utility>

#include "php.h"

#include "engine/guard.h"

namespace zorvel
{

/// Owns one reference to an engine string, or none.
class StringRef
{
public:
    StringRef() = default;
    explicit StringRef(zend_string* owned) : string_(owned) {}
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

    /// A new engine string with a copy of the bytes.
    /// @throws Bailout when memory_limit is reached
    static StringRef copyOf(std::string_view bytes)
    {
        StringRef copy;
        catchingBailout([&] { copy = StringRef(zend_string_init(bytes.data(), bytes.size(), false)); });
        return copy;
    }

    explicit operator bool() const { return string_ != nullptr; }
    zend_string* get() const { return string_; }
    zend_string* release() { return std::exchange(string_, nullptr); }
    /// The text up to its first NUL byte; valid as long as this holder.
    std::string_view text() const { return ZSTR_VAL(string_); }

private:
    zend_string* string_ = nullptr;
};

/// Holds a private copy of a value, as the engine copies one: it shares an array, object or string by its
/// reference count. Undefined until it holds one.
class ValueRef
{
public:
    ValueRef() { ZVAL_UNDEF(&value_); }
    ValueRef(const ValueRef&) = delete;
    ValueRef& operator=(const ValueRef&) = delete;
    ~ValueRef()
    {
        if (!Z_REFCOUNTED(value_))
            return;
        if (Z_REFCOUNT(value_) > 1)
            Z_DELREF(value_);
        else
            guardedNoThrow([this] { zval_ptr_dtor(&value_); });
    }

    /// To be called once.
    void hold(const zval* value) { ZVAL_COPY(&value_, value); }
    zval* get() { return &value_; }

private:
    zval value_;
};

/// A counted hold on a hash table, or none: whoever writes to the table has to separate from it first.
class TableRef
{
public:
    TableRef() = default;
    /// @param table may be null
    explicit TableRef(HashTable* table) : table_(table)
    {
        if (table_ != nullptr)
            GC_TRY_ADDREF(table_);
    }
    /// @param table a new table, of which this holder becomes the owner
    static TableRef owning(HashTable* table)
    {
        TableRef ref;
        ref.table_ = table;
        return ref;
    }
    TableRef(TableRef&& other) noexcept : table_(std::exchange(other.table_, nullptr)) {}
    TableRef& operator=(TableRef&& other) noexcept
    {
        std::swap(table_, other.table_);
        return *this;
    }
    ~TableRef()
    {
        if (table_ == nullptr)
            return;
        if (GC_REFCOUNT(table_) > 1)
            GC_TRY_DELREF(table_);
        else
            guardedNoThrow([this] { zend_array_release(table_); });
    }

    HashTable* get() const { return table_; }

private:
    HashTable* table_ = nullptr;
};

} // namespace zorvel
