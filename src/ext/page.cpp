#include "ext/page.h"

#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "zend_exceptions.h"

#include "engine/guard.h"
#include "engine/holders.h"
#include "ext/failure.h"
#include "source/template.h"

namespace zorvel
{

namespace
{

struct Arguments {
    char* fileName = nullptr;
    std::size_t fileNameLength = 0;
    zval* userData = nullptr;
    bool stringMode = false;
};

StringRef page(const Arguments& arguments)
{
    TemplateInput input{{arguments.fileName, arguments.fileNameLength}, arguments.userData};
    Template tpl(input.fileName, &input, arguments.stringMode);
    tpl.parse();
    return StringRef::copyOf(tpl.render());
}

/// Runs a call, the one place where its exceptions end.
/// @return the failure's message; empty after success, and after a bailout or an exception of user code's,
///         which the engine knows of
template <typename Call>
std::string messageOf(Call call)
{
    try {
        call();
    } catch (const std::exception& failure) {
        return failure.what();
    } catch (const PendingException&) {
    } catch (const Bailout&) {
    }
    return {};
}

/// The same with the message in the engine's memory, where a bailout of the warning's cannot leak it.
template <typename Call>
StringRef failureOf(Call call)
{
    const std::string text = messageOf(call);
    StringRef message;
    if (!text.empty())
        messageOf([&] { message = StringRef::copyOf(text); });
    return message;
}

/// Bad arguments have left an exception of the engine's own, which would keep the warning from error handlers:
/// it is put aside meanwhile, and for good when the handler bails out, for shutdown functions to run. Not with
/// zend_exception_save, since autoloading in a handler would restore it.
void warn(const StringRef& message)
{
    zend_object* const pending = std::exchange(EG(exception), nullptr);
    guardedNoThrow([&] { zend_error(E_WARNING, "%s", ZSTR_VAL(message.get())); });
    if (pending == nullptr || EG(current_execute_data) == nullptr)
        return;
    if (EG(exception) != nullptr)
        zend_exception_set_previous(EG(exception), pending);
    else
        EG(exception) = pending;
}

/// Not after a bailout, and not beside an exception of user code's; one that refuses the arguments is the engine's.
bool isToBeReported(const zend_execute_data* execute_data)
{
    if (EG(current_execute_data) != execute_data)
        return false;
    return EG(exception) == nullptr || instanceof_function(EG(exception)->ce, zend_ce_type_error);
}

} // namespace

void renderPage(zend_execute_data* execute_data, zval* return_value)
{
    RETVAL_NULL();
    Arguments arguments;
    const bool valid = zend_parse_parameters(ZEND_NUM_ARGS(), "sa|b", &arguments.fileName, &arguments.fileNameLength,
                                             &arguments.userData, &arguments.stringMode) == SUCCESS;
    const StringRef failure = failureOf([&] {
        if (!valid)
            throwError(message::BadArguments);
        RETVAL_STR(page(arguments).release());
    });
    if (failure && isToBeReported(execute_data))
        warn(failure);
}

} // namespace zorvel
