#pragma once

#include "onvif/SoapService.h"

#include <vector>

namespace recorder_sim {

/// The operations of the ONVIF recording search service. Filters by recording, time and topic; other filters are taken
/// and have no effect. An end point before the start point searches backwards.
const std::vector<SoapOperationEntry>& searchOperations();

} // namespace recorder_sim
