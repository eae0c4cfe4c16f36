#pragma once

#include "onvif/SoapService.h"

#include <vector>

namespace recorder_sim {

/// The operations of the ONVIF recording service that the simulated recorder knows.
const std::vector<SoapOperationEntry>& recordingOperations();

} // namespace recorder_sim
