#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include <php.h>

#include "source/template_fwd.h"

namespace zorvel
{

enum class ParamStatus : std::int32_t {
    Found = 0,     ///< an absolute path; once resolved, one whose value exists
    LoopValue = 1, ///< relative to a loop's current element: "*", "item::*::title"
    LoopKey = 2,   ///< a loop's current key: "[*]", "item::[*]"
    NotFound = 3,  ///< an absolute path whose value does not exist; only once resolved
};

struct ParsedParameter {
    /// All keys of an absolute path; of a loop path those to the right of the wildcard.
    std::deque<std::string> path;
    /// The declared name of the loop that is meant; empty: the innermost loop.
    std::string namespaceName;
    ParamStatus status;
};

struct ResolvedParameter {
    /// Borrowed from the user data; null unless the status is Found.
    const zval* value;
    std::deque<std::string> path;
    std::string namespaceName;
    ParamStatus status;
};

/// A resolved parameter that owns nothing, for the many whose path nobody keeps: an empty deque alone is two
/// allocations. The views are into the parameter's text; the path is text still, its keys separated by "::",
/// and empty also for a loop path without keys.
struct ParameterView {
    const zval* value = nullptr;
    std::string_view path;
    std::string_view namespaceName;
    ParamStatus status = ParamStatus::Found;
};

/// The keys of a parameter's path.
std::deque<std::string> keysOf(const ParameterView& view);

/// Reads the syntax of a parameter: names, "*" and "[*]" between "::", at most one of them a wildcard.
///
///     user::name          the keys "user" and "name"
///     *::title            "title" in the innermost loop's element
///     item::*::a::b       "a" and "b" in the element of the loop named "item"
///     item::[*]           the key of that loop
///     item::[*]::a        wrong: nothing is below a key
///     a::b::*             wrong: a loop has one name
///
/// Segments are read from right to left: of several faults in one parameter the rightmost is reported.
/// @throws std::runtime_error for a malformed parameter
ParsedParameter parseParameterPath(Template& tpl, std::string_view parameter);

/// Parses a parameter and looks an absolute path up in the user data. Loop paths wait for their loop.
/// @throws std::runtime_error for a malformed parameter
ResolvedParameter resolveParameter(Template& tpl, std::string_view parameter);

/// The same without a copy of anything.
ParameterView resolveView(const Template& tpl, std::string_view parameter);

} // namespace zorvel
