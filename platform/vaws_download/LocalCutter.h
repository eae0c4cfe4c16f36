#pragma once

#include "CutList.h"
#include "FrameTarget.h"

#include <memory>
#include <string>

namespace vaws {

/// Reads a span out of local recording files, packets as they are, on a thread of its own, and gives them to a target
/// in order. A file that is missing or broken is left out and told. Life: start() once, then the target's sourceEnded()
/// once, unless requestStop() comes before; the destructor stops and joins.
class LocalCutter
{
public:
    /// Made by the codec library; nullptr, with a sentence in `error`, where that is missing.
    static std::unique_ptr<LocalCutter> create(CutList list, FrameTarget& target, std::string& error);
    virtual ~LocalCutter() = default;

    virtual void start() = 0;
    /// The thread ends as soon as it looks; does not wait for it. Safe for threads.
    virtual void requestStop() = 0;
};

} // namespace vaws
