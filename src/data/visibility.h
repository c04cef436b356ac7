#pragma once

#include <string_view>

#include <php.h>

#include "source/template_fwd.h"

namespace zorvel
{

/// The test of an optional section. Without a text to compare with, the value's truth, for an array with an
/// element "visible" that element's. With one, equality by the value's type: strings byte for byte, integers
/// with the number that the text begins with, booleans with "0" for false and anything else for true; other
/// types never equal. Quotes around the text are taken off.
/// @param value null: hidden
/// @throws Bailout, PendingException from an object's own conversion
bool isVisible(Template& tpl, const zval* value, std::string_view compareText);

} // namespace zorvel
