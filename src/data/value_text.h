#pragma once

#include <array>
#include <string_view>

#include <php.h>

#include "engine/holders.h"

namespace zorvel
{

/// The text of a value as PHP converts it, up to its first NUL byte, or no value. The user data is not
/// touched: a string is viewed in place, anything else converted in a private copy.
class ValueText
{
public:
    /// No value.
    ValueText() = default;
    /// The text of a value; none for null.
    /// @throws Bailout, PendingException from an object's own conversion or an error handler
    explicit ValueText(const zval* value);
    /// A text that is no value of the user data, such as a loop's key. It outlives this object.
    explicit ValueText(const char* text) : view_(text), exists_(true) {}
    ValueText(const ValueText&) = delete;
    ValueText& operator=(const ValueText&) = delete;

    explicit operator bool() const { return exists_; }
    /// Valid as long as this object and until user code runs.
    std::string_view view() const { return view_; }

private:
    void convert(const zval* value);

    /// As many digits and a sign as a 64-bit integer has.
    std::array<char, 20> digits_;
    ValueRef converted_;
    std::string_view view_;
    bool exists_ = false;
};

} // namespace zorvel
