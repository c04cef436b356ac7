#pragma once

#include "php.h"

/// This thread's engine globals, found without a call into the engine each time; set when a call begins.
ZEND_TSRMLS_CACHE_EXTERN()

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

/// False when the call bailed out. Kept out of line: nothing of a caller's frame may live in a register
/// across the setjmp.
template <typename Call>
zend_never_inline bool survives(Call& call)
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

/// Runs a call into the engine that allocates but runs no user code. It must own nothing itself.
/// @throws Bailout
template <typename Call>
void catchingBailout(Call call)
{
    if (!detail::survives(call))
        throw Bailout{};
}

/// Runs a call into the engine that may run user code as well.
/// @throws Bailout, PendingException
template <typename Call>
void guarded(Call call)
{
    catchingBailout(call);
    if (EG(exception) != nullptr)
        throw PendingException{};
}

/// The same where nothing may be thrown: in destructors, and when the call has ended. A bailout is kept back,
/// not forgotten: the engine has no current frame after one, which the PHP function sees.
template <typename Call>
void guardedNoThrow(Call call) noexcept
{
    detail::survives(call);
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
