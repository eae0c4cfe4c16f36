#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vaws {

/// Gives samples in decode order their decode times: the presentation times in order, later by the reorder depth, so
/// that no sample is to be shown before it is decoded. Ticks of any timescale. The depth comes from the parameter sets
/// or, where those are silent, from what observe() sees; it may grow later, then decode times crowd for one sample and
/// presentation stays exact.
class DecodeTimes final
{
public:
    explicit DecodeTimes(std::size_t reorderDepth = 0)
        : m_depth(reorderDepth)
    {}

    std::size_t depth() const { return m_depth; }

    /// Learns the depth from a sample, in decode order, ahead of assign().
    void observe(std::int64_t presentation);

    /// The decode time of the next sample. Strictly rising. `nominal` is the usual distance of samples, for the first
    /// ones.
    std::int64_t assign(std::int64_t presentation, std::int64_t nominal);

    /// No later sample can be presented before this or at it, as far as the depth is right.
    std::int64_t frontier() const;

private:
    std::size_t m_depth;
    std::vector<std::int64_t> m_recent;  ///< observed presentation times, the newest last
    std::vector<std::int64_t> m_waiting; ///< assigned presentation times not yet used as decode times, in order
    std::int64_t m_last = 0;
    bool m_started = false;
};

} // namespace vaws
