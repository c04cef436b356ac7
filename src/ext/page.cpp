#include "ext/page.h"

#include <concepts>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include <zend_exceptions.h>

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

StringRef copyOf(std::string_view bytes)
{
    StringRef copy = StringRef::ofLength(bytes.size());
    std::memcpy(copy.bytes(), bytes.data(), bytes.size());
    return copy;
}

StringRef page(const Arguments& arguments)
{
    TemplateInput input{{arguments.fileName, arguments.fileNameLength}, arguments.userData};
    Template tpl(input.fileName, &input, arguments.stringMode);
    tpl.parse();
    return copyOf(tpl.render());
}

/// Runs a call, the one place where its exceptions end.
/// @return its failure; null after success, and after a bailout or an exception of user code's, which the engine
///         knows of
template <std::invocable Call>
std::exception_ptr failureOf(Call call)
{
    try {
        call();
    } catch (const std::exception&) {
        return std::current_exception();
    } catch (const PendingException&) {
    } catch (const Bailout&) {
    }
    return {};
}

/// Lends a failure's text to `use`, which must not call the engine: a jump out of a catch clause leaks the exception.
template <std::invocable<std::string_view> Use>
void useText(const std::exception_ptr& failure, Use use)
{
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception& exception) {
        use(exception.what());
    }
}

/// The failure's text in the engine's memory, where a bailout of the warning's cannot leak it. Copied without a detour:
/// the failure may be that there is no memory.
StringRef messageOf(const std::exception_ptr& failure)
{
    std::size_t length = 0;
    useText(failure, [&](std::string_view text) { length = text.size(); });
    StringRef message = StringRef::ofLength(length);
    useText(failure, [&](std::string_view text) { std::memcpy(message.bytes(), text.data(), length); });
    return message;
}

/// @return null when there is nothing to report
template <std::invocable Call>
StringRef failureMessageOf(Call call)
{
    StringRef message;
    if (const std::exception_ptr failure = failureOf(call))
        failureOf([&] { message = messageOf(failure); });
    return message;
}

bool isExit(const zend_object* exception)
{
    return zend_is_unwind_exit(exception) || zend_is_graceful_exit(exception);
}

/// Bad arguments have left an exception, which would keep the warning from error handlers: it is put aside meanwhile,
/// and for good when the handler exits or bails out, for shutdown functions to run. Not with zend_exception_save, since
/// autoloading in a handler would restore it.
void warn(const StringRef& message)
{
    zend_object* const pending = std::exchange(EG(exception), nullptr);
    guardedNoThrow([&] { zend_error(E_WARNING, "%s", message.bytes()); });
    if (pending == nullptr || EG(current_execute_data) == nullptr)
        return;
    if (EG(exception) == nullptr)
        EG(exception) = pending;
    else if (isExit(EG(exception)))
        guardedNoThrow([pending] { OBJ_RELEASE(pending); });
    else
        zend_exception_set_previous(EG(exception), pending);
}

/// Not after a bailout or an exit, and not beside an exception of user code's; but bad arguments always leave one.
bool shouldReport(const zend_execute_data* execute_data, bool argumentsAreValid)
{
    if (EG(current_execute_data) != execute_data)
        return false;
    if (EG(exception) == nullptr)
        return true;
    return !argumentsAreValid && !isExit(EG(exception));
}

} // namespace

void renderPage(zend_execute_data* execute_data, zval* return_value)
{
    RETVAL_NULL();
    Arguments arguments;
    // Without a guard: nothing that a jump would have to destroy is alive yet.
    const bool valid = zend_parse_parameters(ZEND_NUM_ARGS(), "sa|b", &arguments.fileName, &arguments.fileNameLength,
                                             &arguments.userData, &arguments.stringMode) == SUCCESS;
    const StringRef message = failureMessageOf([&] {
        if (!valid)
            throwError(message::badArguments);
        RETVAL_STR(page(arguments).release());
    });
    if (message && shouldReport(execute_data, valid))
        warn(message);
}

} // namespace zorvel
