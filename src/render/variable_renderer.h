#pragma once

#include <string>

#include <php.h>

#include "blocks/variable_block.h"
#include "data/escaping.h"
#include "data/value_text.h"
#include "source/template_fwd.h"

namespace zorvel
{

/// The text of the value or key that a block names, relative to the loops being rendered.
/// @param data the current data element; null outside every loop, where the block has no value
/// @return no value when the loop or the value does not exist; valid until the block's loop moves on
ValueText variableText(const Template& tpl, const VariableBlock& block, const zval* data);

/// Appends the first candidate that has a value, even an empty one, else the default text. Leaves the parse
/// of the last loop candidate tried in the block's inherited fields.
void renderMultiVariable(Template& tpl, MultiVariableBlock& block, std::string& out, const zval* data);

/// Appends the block's value, escaped as ISO-8859-1 text. The common shape of the four filters.
void renderEscaped(Template& tpl, VariableBlock& block, std::string& out, const zval* data, ByteEscaping& escaping);

} // namespace zorvel
