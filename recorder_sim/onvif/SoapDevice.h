#pragma once

#include "onvif/SoapService.h"

#include <vector>

namespace recorder_sim {

/// The operations of the ONVIF device service that the simulated recorder knows.
const std::vector<SoapOperationEntry>& deviceOperations();

} // namespace recorder_sim
