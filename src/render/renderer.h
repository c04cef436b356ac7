#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <php.h>

#include "blocks/block.h"
#include "source/template_fwd.h"

namespace zorvel
{

/// Renders one block: appends its text to the output. The last argument is the current data element, the
/// one that the innermost loop being rendered has reached; null outside every loop.
using BlockRenderer = std::function<void(Template&, Block&, std::string&, const zval*)>;

struct RendererEntry {
    std::int32_t type;
    BlockRenderer renderer;
};

/// The renderers of the ten types that occur on blocks, ascending by type code.
std::vector<RendererEntry> buildRendererTable();

/// Renders a list in order: the top-level blocks or a section's children.
/// @throws std::runtime_error for a null entry, and when the sections are nested too deeply for the stack
void renderBlocks(Template& tpl, const BlockList& blocks, std::string& out, const zval* data);

} // namespace zorvel
