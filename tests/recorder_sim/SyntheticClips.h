#pragma once

#include "media/MediaLoop.h"

#include <memory>

namespace recorder_sim {

/// A loop of small made-up units in the form of real clips: GOPs of 50 pictures in the order I P B B, and G.711 of 20
/// ms.
std::shared_ptr<const MediaLoop> syntheticLoop(int width);

} // namespace recorder_sim
