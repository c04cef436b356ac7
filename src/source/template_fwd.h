#pragma once

namespace zorvel
{

class Template;

} // namespace zorvel
