#include "observe.h"

#include <cstdlib>
#include <cstring>
#include <utility>

#include <ext/standard/file.h>
#include <zend_exceptions.h>

#include "embed.h"
#include "faults.h"
#include "heap.h"
#include "memory_files.h"

namespace fuzz
{

namespace
{

using model::Value;
using Type = Value::Type;

zend_class_entry* textClass = nullptr;
zend_class_entry* rowClass = nullptr;
zend_object_handlers textHandlers;
model::Outcome seen;

constexpr std::string_view objectText("<o'\xE9&\0\">", 8);

zend_result castText(zend_object* object, zval* result, int type)
{
    if (type != IS_STRING)
        return zend_std_cast_object_tostring(object, result, type);
    ZVAL_STRINGL(result, objectText.data(), objectText.size());
    return SUCCESS;
}

zend_class_entry* addClass(const char* name)
{
    zend_class_entry entry;
    INIT_CLASS_ENTRY_EX(entry, name, strlen(name), nullptr);
    return zend_register_internal_class(&entry);
}

/// A property of each sort: plain ones, one that is not initialised, and a private one.
void addRow()
{
    rowClass = addClass("Row");
    zend_declare_property_null(rowClass, ZEND_STRL("a"), ZEND_ACC_PUBLIC);
    zend_declare_property_null(rowClass, ZEND_STRL("b"), ZEND_ACC_PUBLIC);
    zval none;
    ZVAL_UNDEF(&none);
    zend_string* name = zend_string_init("unset", 5, true);
    zend_declare_typed_property(rowClass, name, &none, ZEND_ACC_PUBLIC, nullptr, ZEND_TYPE_INIT_MASK(MAY_BE_LONG));
    zend_string_release(name);
    zend_declare_property_long(rowClass, ZEND_STRL("c"), 7, ZEND_ACC_PRIVATE);
}

zend_result addAllClasses(int, int)
{
    textClass = addClass("Text");
    textHandlers = std_object_handlers;
    textHandlers.cast_object = castText;
    textClass->default_object_handlers = &textHandlers;
    addRow();
    return SUCCESS;
}

zend_module_entry classesModule = {
    STANDARD_MODULE_HEADER,    "classes", nullptr, addAllClasses, nullptr, nullptr, nullptr, nullptr, "1",
    STANDARD_MODULE_PROPERTIES};

void note(const zend_string* message)
{
    const faults::Armed none(false);
    const std::string text(ZSTR_VAL(message), ZSTR_LEN(message));
    if (text == "Array to string conversion")
        ++seen.conversions;
    else if (!text.starts_with("PHP Request Startup: Unable to find the wrapper")) // PHP's, of an unknown scheme
        seen.warning += text;
}

void collect(int type, zend_string*, std::uint32_t, zend_string* message)
{
    note(message);
    if ((type & E_FATAL_ERRORS) != 0)
        zend_bailout();
}

zval arrayToPhp(const Value& value)
{
    zval array;
    array_init(&array);
    for (const auto& [key, inner] : value.elements) {
        zval element = toPhp(inner);
        if (const auto* number = std::get_if<std::int64_t>(&key))
            zend_hash_index_add_new(Z_ARRVAL(array), *number, &element);
        else
            zend_hash_str_add_new(Z_ARRVAL(array), std::get<std::string>(key).data(), std::get<std::string>(key).size(),
                                  &element);
    }
    return array;
}

zval rowToPhp(const Value& first)
{
    zval row;
    object_init_ex(&row, rowClass);
    zval value = toPhp(first);
    ZVAL_COPY_VALUE(OBJ_PROP_NUM(Z_OBJ(row), 0), &value);
    return row;
}

zval objectToPhp(const Value& value)
{
    const bool isRow = value.elements.size() == 3 && value.elements[2].key == model::Key(std::string("\0Row\0c", 6));
    if (isRow)
        return rowToPhp(value.elements[0].value);
    zval object;
    object_init_ex(&object, value.text ? textClass : zend_standard_class_def);
    if (value.text)
        return object;
    zval properties = arrayToPhp(value); // numbers among their names, as casts to objects once left them
    Z_OBJ(object)->properties = Z_ARRVAL(properties);
    return object;
}

zval bareToPhp(const Value& value)
{
    zval made;
    ZVAL_NULL(&made);
    if (value.type == Type::Boolean)
        ZVAL_BOOL(&made, value.number != 0);
    else if (value.type == Type::Integer)
        ZVAL_LONG(&made, value.number);
    else if (value.type == Type::Float)
        ZVAL_DOUBLE(&made, std::stod(*value.text));
    else if (value.type == Type::String)
        ZVAL_STRINGL(&made, value.text->data(), value.text->size());
    else if (value.type == Type::Array)
        return arrayToPhp(value);
    else if (value.type == Type::Object)
        return objectToPhp(value);
    return made;
}

bool isSameArray(const HashTable* table, const Value& made)
{
    if (zend_hash_num_elements(table) != made.elements.size())
        return false;
    auto expected = made.elements.begin();
    zend_ulong number = 0;
    zend_string* name = nullptr;
    zval* value = nullptr;
    ZEND_HASH_FOREACH_KEY_VAL(const_cast<HashTable*>(table), number, name, value)
    {
        const model::Key key = name != nullptr ? model::Key(std::string(ZSTR_VAL(name), ZSTR_LEN(name)))
                                               : model::Key(static_cast<std::int64_t>(number));
        if (key != expected->key || !isSame(*value, expected->value))
            return false;
        ++expected;
    }
    ZEND_HASH_FOREACH_END();
    return true;
}

/// One frame between the call and the bottom of the stack, on which no exception could stay pending.
class Frame
{
public:
    Frame() : below_(EG(current_execute_data))
    {
        frame_.func = reinterpret_cast<zend_function*>(const_cast<zend_internal_function*>(&zend_pass_function));
        frame_.prev_execute_data = below_;
        EG(current_execute_data) = &frame_;
    }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    ~Frame() { EG(current_execute_data) = below_; }

private:
    zend_execute_data frame_{};
    zend_execute_data* below_;
};

zif_handler zorvel = nullptr;

/// Faults strike in the extension, and in what it calls.
void armedZorvel(zend_execute_data* execute_data, zval* return_value)
{
    const faults::Armed armed;
    zorvel(execute_data, return_value);
}

/// Ends what an exception of PHP's left.
/// @return true when there was one
bool forgetException()
{
    const bool threw = EG(exception) != nullptr;
    zend_clear_exception();
    return threw;
}

} // namespace

void startPhp(const char* settings)
{
    setenv("USE_ZEND_ALLOC", "0", 1);
    embed::start(settings);
    zorvel = std::exchange(findFunction("zorvel")->internal_function.handler, armedZorvel);
    heap::watchEngine();
}

void enterModelWorld()
{
    zend_interned_strings_switch_storage(false); // for names that outlive the next request
    zend_startup_module(&classesModule);
    memory_files::registerWrapper();
    zend_interned_strings_switch_storage(true);
    zend_error_cb = collect;
}

zend_function* findFunction(const char* name)
{
    return static_cast<zend_function*>(zend_hash_str_find_ptr(CG(function_table), name, strlen(name)));
}

bool isExtensions(const zend_execute_data* frame)
{
    return frame != nullptr && frame->func != nullptr && frame->func->type == ZEND_INTERNAL_FUNCTION &&
           frame->func->internal_function.handler == armedZorvel;
}

zval toPhp(const Value& value)
{
    zval made = bareToPhp(value);
    if (value.isReference)
        ZVAL_NEW_REF(&made, &made);
    return made;
}

bool isSame(const zval& value, const Value& made)
{
    const zval* inner = &value;
    if ((Z_TYPE(value) == IS_REFERENCE) != made.isReference)
        return false;
    ZVAL_DEREF(inner);
    switch (made.type) {
    case Type::Array:
        return Z_TYPE_P(inner) == IS_ARRAY && isSameArray(Z_ARRVAL_P(inner), made);
    case Type::Object:
        return Z_TYPE_P(inner) == IS_OBJECT;
    default:
        zval expected = bareToPhp(made);
        const bool same = zend_is_identical(const_cast<zval*>(inner), &expected);
        zval_ptr_dtor(&expected);
        return same;
    }
}

bool call(const char* function, zval* result, std::uint32_t count, zval* arguments)
{
    const Frame frame;
    const faults::Armed none(false); // so that it is as before when a bailout has jumped over armedZorvel
    ZVAL_UNDEF(result);
    zend_try
    {
        zend_call_known_function(findFunction(function), nullptr, nullptr, result, count, arguments, nullptr);
    }
    zend_catch
    {
        FG(wrapper_errors) = nullptr; // PHP may have been about to add to it, and trips over what it finds there
        return false;
    }
    zend_end_try();
    return true;
}

Seen observe(const std::string& source, bool inMemory, zval* data)
{
    zval page;
    zval arguments[3];
    ZVAL_STRINGL(&arguments[0], source.data(), source.size());
    ZVAL_COPY_VALUE(&arguments[1], data);
    ZVAL_BOOL(&arguments[2], inMemory);
    seen = {};
    const bool returned = call("zorvel", &page, 3, arguments);
    zval_ptr_dtor(&arguments[0]);
    seen.threw = returned && forgetException();
    if (returned && Z_TYPE(page) == IS_STRING)
        seen.page = std::string(Z_STRVAL(page), Z_STRLEN(page));
    if (returned)
        zval_ptr_dtor(&page);
    return {std::exchange(seen, {}), !returned};
}

} // namespace fuzz
