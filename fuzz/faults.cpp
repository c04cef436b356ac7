#include "faults.h"

#include <utility>

namespace faults
{

namespace
{

struct Plan {
    Kind kind = Kind::None;
    Act act = nullptr;
    std::int64_t first = 0;
    std::int64_t last = 0;
    std::int64_t met = 0;
};

Plan current;
bool armed = false;

} // namespace

void plan(Kind kind, Act act, std::int64_t first, std::int64_t last)
{
    current = {kind, act, first, last};
}

std::int64_t met()
{
    return current.met;
}

bool isArmed()
{
    return armed;
}

bool reach(Kind kind)
{
    if (!armed || kind != current.kind)
        return false;
    ++current.met;
    const bool strikes = current.met >= current.first && current.met <= current.last;
    if (strikes && current.act != nullptr)
        current.act();
    return strikes;
}

Armed::Armed(bool armed_) : before_(std::exchange(armed, armed_)) {}

Armed::~Armed()
{
    armed = before_;
}

} // namespace faults
