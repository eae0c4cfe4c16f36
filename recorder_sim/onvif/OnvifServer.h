#pragma once

#include "net/HttpConnection.h"
#include "onvif/SearchSessions.h"
#include "onvif/SoapService.h"
#include "RecorderState.h"

#include <map>
#include <optional>
#include <string>

namespace recorder_sim {

/// The ONVIF services over SOAP 1.2 on HTTP. Logins by WS-UsernameToken digest or HTTP Digest; the operation alone
/// decides which service answers, whatever the path. handle() is safe from any thread.
class OnvifServer final
{
public:
    explicit OnvifServer(RecorderState& recorder);

    HttpResponse handle(const TextRequest& request, const ByteStream& stream);

private:
    HttpResponse answer(const TextRequest& request, const ByteStream& stream);
    std::optional<HttpResponse> faultyAnswer(const TextRequest& request) const;
    std::optional<HttpResponse> refuseLogin(const TextRequest& request, const SoapRequest& soap) const;

    RecorderState& m_recorder;
    SearchSessions m_searches;
    std::map<QString, SoapOperationEntry> m_operations; ///< by namespace, blank, name; constant after construction
};

} // namespace recorder_sim
