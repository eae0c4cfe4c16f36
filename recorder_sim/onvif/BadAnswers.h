#pragma once

#include "net/HttpConnection.h"

#include <string>

namespace recorder_sim {

// What a hostile or broken device answers.

HttpResponse rubbishAnswer();
HttpResponse endlessLineAnswer();
/// A SOAP answer that is XML of the worst kind: "dtd", "entities", "depth" or "attributes".
HttpResponse xmlBombAnswer(const std::string& kind);

} // namespace recorder_sim
