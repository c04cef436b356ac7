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
    if (table_.get() == nullptr)
        return;
    if (reverse_)
        zend_hash_internal_pointer_end_ex(table_.get(), &position_);
    else
        zend_hash_internal_pointer_reset_ex(table_.get(), &position_);
}

const zval* TableWalk::next(std::string& key)
{
    if (table_.get() == nullptr)
        return nullptr;
    const zval* element = zend_hash_get_current_data_ex(table_.get(), &position_);
    if (element != nullptr) {
        readKey(key);
        advance();
    }
    return element;
}

void TableWalk::readKey(std::string& key)
{
    zend_string* name = nullptr;
    zend_ulong index = 0;
    if (zend_hash_get_current_key_ex(table_.get(), &name, &index, &position_) == HASH_KEY_IS_STRING) {
        key.assign(ZSTR_VAL(name), ZSTR_LEN(name));
        return;
    }
    std::array<char, 20> digits;
    key.assign(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), index).ptr);
}

void TableWalk::advance()
{
    if (reverse_)
        zend_hash_move_backwards_ex(table_.get(), &position_);
    else
        zend_hash_move_forward_ex(table_.get(), &position_);
}

} // namespace zorvel
