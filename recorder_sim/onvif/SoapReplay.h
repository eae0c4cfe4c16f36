#pragma once

#include "onvif/SoapService.h"

#include <vector>

namespace recorder_sim {

/// The operations of the ONVIF replay service that the simulated recorder knows.
const std::vector<SoapOperationEntry>& replayOperations();

} // namespace recorder_sim
