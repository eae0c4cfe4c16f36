#include "onvif/OnvifServer.h"
namespace recorder_sim {
OnvifServer::OnvifServer(RecorderState& recorder)
    : m_recorder(recorder)
{}
HttpResponse OnvifServer::handle(const TextRequest&, const ByteStream&)
{
    HttpResponse r;
    r.status = m_recorder.channels.empty() ? 500 : 404;
    return r;
}
} // namespace recorder_sim
