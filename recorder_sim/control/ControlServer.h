#pragma once

#include "net/HttpConnection.h"
#include "RecorderState.h"

#include <functional>

namespace recorder_sim {

/// The control address: switches faults, tells what is recorded and what a replay sends. Stateless beside the
/// recorder's state; handle() is safe from any thread. No login: it listens on loopback by default.
class ControlServer final
{
public:
    ControlServer(RecorderState& recorder, std::function<void(int seconds)> goOffline);

    HttpResponse handle(const TextRequest& request, const ByteStream& stream);

private:
    HttpResponse setFault(const std::string& target);
    HttpResponse listFaults() const;
    HttpResponse statistics() const;
    HttpResponse recordings(const std::string& target) const;
    HttpResponse samples(const std::string& target) const;

    RecorderState& m_recorder;
    const std::function<void(int seconds)> m_goOffline;
};

} // namespace recorder_sim
