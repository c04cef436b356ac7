#pragma once

#include <cstdint>

/// Faults that strike while the extension runs: one kind of operation counts, and those that are chosen fail.
namespace faults
{

enum class Kind { None, New, EngineAllocation, OpenFile, ReadFile, CloseFile, Interrupt };

/// What happens at an operation that is to fail: it may throw, bail out, or return.
using Act = void (*)();

/// @param first the number of the operation at which it strikes; 0: at none
/// @param last the last one
void plan(Kind kind, Act act, std::int64_t first, std::int64_t last);

/// How many operations of the kind have been met since.
std::int64_t met();

bool isArmed();

/// Counts an operation, and lets it fail.
/// @return true when it is to fail, if the act returns
bool reach(Kind kind);

/// Faults strike in its lifetime, or do not, for what serves the harness itself.
class Armed
{
public:
    explicit Armed(bool armed = true);
    Armed(const Armed&) = delete;
    Armed& operator=(const Armed&) = delete;
    ~Armed();

private:
    bool before_;
};

} // namespace faults
