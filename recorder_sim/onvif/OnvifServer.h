#pragma once

#include "net/HttpConnection.h"
#include "RecorderState.h"

namespace recorder_sim {

/// The ONVIF services over SOAP 1.2. handle() is safe from any thread.
class OnvifServer final
{
public:
    explicit OnvifServer(RecorderState& recorder);

    HttpResponse handle(const TextRequest& request, const ByteStream& stream);

private:
    RecorderState& m_recorder;
};

} // namespace recorder_sim
