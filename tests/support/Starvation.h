#pragma once

#include <functional>
#include <string>

/// Work under failing allocations, in builds whose allocator can be replaced (glibc without sanitizers): every one that
/// the calling thread asks for is counted, in whatever library, and one of them can be refused.
namespace starvation {

struct Outcome
{
    long cases = 0; ///< allocations that were refused, one a run
    long kept = 0;  ///< runs that kept blocks; lists, URLs, XML readers and patterns of Qt do when they get no more
};

/// Runs the work undisturbed, then once for each of its allocations with that one refused. `std::bad_alloc` may leave
/// it. What ends the process is told on the standard error stream first, by the name. Elsewhere nothing runs.
Outcome everyAllocation(const std::string& name, const std::function<void()>& work);

} // namespace starvation
