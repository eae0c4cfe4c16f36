#pragma once

#include <functional>
#include <string>

/// Work under failing allocations, in builds whose allocator can be replaced (glibc without sanitizers): every one that
/// the calling thread asks for is counted, in whatever library, and one of them can be refused.
namespace starvation {

bool isPossible();

struct Outcome
{
    long cases = 0; ///< allocations that were refused, one a run
    long kept = 0;  ///< runs that kept a block
    std::string problem;
};

/// Runs the work undisturbed, then once for each of its allocations with that one refused. `std::bad_alloc` may leave
/// it; more than two blocks that are kept then are a problem. What ends the process is told on the standard error
/// stream first, by the name.
Outcome everyAllocation(const std::string& name, const std::function<void()>& work);

} // namespace starvation
