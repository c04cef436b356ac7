#include "ext/failure.h"

#include <stdexcept>
#include <string>

namespace zorvel
{

void throwError(std::string_view piece, std::string_view second, std::string_view third, std::string_view fourth)
{
    std::string text;
    text.reserve(piece.size() + second.size() + third.size() + fourth.size());
    text.append(piece).append(second).append(third).append(fourth);
    throw std::runtime_error(text);
}

} // namespace zorvel
