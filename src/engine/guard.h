#pragma once

#include <concepts>

#include <php.h>

/// This thread's engine globals, found without a call into the engine each time; set when a call begins.
TSRMLS_MAIN_CACHE_EXTERN()

namespace zorvel
{

/// The engine gave up in the middle of a call into it: memory_limit, or a fatal error in user code. It
/// leaves by longjmp, which would run no destructor on its way; the guards below turn that into this
/// exception. Not a std::exception, so that nothing below the entry function stops it.
struct Bailout {
};

/// User code that ran during a call into the engine has thrown or exited; EG(exception) is set, and the
/// engine acts on it once the entry function has returned.
struct PendingException {
};

namespace detail
{

/// False when the call bailed out. The call must not throw, which would leave the engine a dead place to jump to,
/// and must own nothing, since a jump destroys nothing. Kept out of line: nothing of a caller's frame may live in a
/// register across the setjmp.
template <std::invocable Call>
zend_never_inline bool survives(Call& call) noexcept
{
    zend_try
    {
        call();
    }
    zend_catch
    {
        return false;
    }
    zend_end_try();
    return true;
}

} // namespace detail

/// Runs a call into the engine that allocates but runs no user code. Never in a catch clause: the exception caught
/// there would be leaked by the jump.
/// @throws Bailout
template <std::invocable Call>
void catchingBailout(Call call)
{
    if (!detail::survives(call))
        throw Bailout{};
}

/// Runs a call into the engine that may run user code as well.
/// @throws Bailout, PendingException
template <std::invocable Call>
void guarded(Call call)
{
    catchingBailout(call);
    if (EG(exception) != nullptr)
        throw PendingException{};
}

/// The same where nothing may be thrown: in destructors, and when the call has ended. What goes wrong is kept back for
/// the next serveInterrupt; after a bailout the engine has no current frame any more, which the PHP function sees, too.
template <std::invocable Call>
void guardedNoThrow(Call call) noexcept
{
    if (!detail::survives(call) || EG(exception) != nullptr)
        zend_atomic_bool_store_ex(&EG(vm_interrupt), true);
}

namespace detail
{

inline void actOnInterrupt()
{
    if (EG(current_execute_data) == nullptr)
        throw Bailout{};
    if (EG(exception) != nullptr)
        throw PendingException{};
    guarded([] { zend_fcall_interrupt(EG(current_execute_data)); });
}

} // namespace detail

/// Lets the engine in when it asks for it: max_execution_time has struck, or a signal's handler is due; and ends a call
/// in which a destructor has kept something back. To be called wherever long work goes on.
/// @throws Bailout, PendingException
inline void serveInterrupt()
{
    if (zend_atomic_bool_load_ex(&EG(vm_interrupt)))
        detail::actOnInterrupt();
}

/// True when the stack is used up but for the engine's reserve, in which it is still safe to fail.
inline bool stackIsUsedUp()
{
#ifdef ZEND_CHECK_STACK_LIMIT
    return zend_call_stack_overflowed(EG(stack_limit));
#else
    return false;
#endif
}

} // namespace zorvel
