#include "render/table_walk.h"

#include <array>
#include <charconv>

#include "data/path_lookup.h"

namespace zorvel
{

namespace
{

/// Not zend_array_dup, which turns a reference that nobody else holds into its value.
HashTable* copyOf(HashTable* table)
{
    HashTable* const copy = zend_new_array(zend_hash_num_elements(table));
    zend_hash_copy(copy, table, [](zval* element) { Z_TRY_ADDREF_P(element); });
    return copy;
}

/// The object is held while user code may run to make its properties.
TableRef copyOfProperties(const zval* object)
{
    ValueRef held = ValueRef::share(object);
    HashTable* const properties = propertiesOf(held.get());
    TableRef copy;
    if (properties != nullptr)
        catchingBailout([&] { copy = TableRef::adopt(copyOf(properties)); });
    return copy;
}

} // namespace

TableWalk::TableWalk(const zval* value, bool reverse) : reverse_(reverse)
{
    if (Z_TYPE_P(value) == IS_ARRAY)
        table_ = TableRef::share(Z_ARRVAL_P(value));
    else if (Z_TYPE_P(value) == IS_OBJECT)
        table_ = copyOfProperties(value);
    if (table_.get() != nullptr)
        left_ = table_.get()->nNumUsed;
}

const zval* TableWalk::next(std::string& key)
{
    while (left_ > 0) {
        const HashTable* const table = table_.get();
        const std::uint32_t position = reverse_ ? left_ - 1 : table->nNumUsed - left_;
        --left_;
        const zval* const element = ZEND_HASH_ELEMENT(table, position);
        if (Z_TYPE_P(element) == IS_UNDEF)
            continue;
        readKey(key, element, position);
        return element;
    }
    return nullptr;
}

void TableWalk::readKey(std::string& key, const zval* element, zend_ulong position) const
{
    const auto* const bucket = HT_IS_PACKED(table_.get()) ? nullptr : reinterpret_cast<const Bucket*>(element);
    if (bucket != nullptr && bucket->key != nullptr) {
        key.assign(ZSTR_VAL(bucket->key), ZSTR_LEN(bucket->key));
        return;
    }
    std::array<char, 20> digits;
    const zend_ulong index = bucket != nullptr ? bucket->h : position;
    key.assign(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), index).ptr);
}

} // namespace zorvel
