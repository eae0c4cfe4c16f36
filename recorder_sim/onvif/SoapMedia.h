#pragma once

#include "onvif/SoapService.h"

#include <vector>

namespace recorder_sim {

/// The operations of the ONVIF media service that the simulated recorder knows.
const std::vector<SoapOperationEntry>& mediaOperations();

} // namespace recorder_sim
