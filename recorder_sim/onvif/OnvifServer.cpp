#include "onvif/OnvifServer.h"

#include "onvif/BadAnswers.h"
#include "onvif/SoapDevice.h"
#include "onvif/SoapMedia.h"
#include "onvif/SoapRecording.h"
#include "onvif/SoapReplay.h"
#include "onvif/SoapSearch.h"

#include <algorithm>

namespace recorder_sim {
namespace {

constexpr std::int64_t maxDelayMs = 10 * 60 * 1000;

HttpResponse soapResponse(int status, const QByteArray& body)
{
    HttpResponse response;
    response.status = status;
    response.contentType = "application/soap+xml; charset=utf-8";
    response.body = body.toStdString();
    return response;
}

HttpResponse faultResponse(const SoapFault& fault)
{
    return soapResponse(fault.code == QLatin1String("s:Receiver") ? 500 : 400, writeFault(fault));
}

} // namespace

OnvifServer::OnvifServer(RecorderState& recorder)
    : m_recorder(recorder)
{
    const auto add = [this](const char* nameSpace, const std::vector<SoapOperationEntry>& operations) {
        for (const SoapOperationEntry& entry : operations)
            m_operations.emplace(QLatin1String(nameSpace) + QLatin1Char(' ') + QLatin1String(entry.name), entry);
    };
    add(onvif_ns::device, deviceOperations());
    add(onvif_ns::media, mediaOperations());
    add(onvif_ns::recording, recordingOperations());
    add(onvif_ns::search, searchOperations());
    add(onvif_ns::replay, replayOperations());
}

HttpResponse OnvifServer::handle(const TextRequest& request, const ByteStream& stream)
{
    ++m_recorder.statistics.soapRequests;
    const std::optional<HttpResponse> faulty = faultyAnswer(request);
    HttpResponse response = faulty ? *faulty : answer(request, stream);
    response.delayMs =
        static_cast<int>(std::clamp<std::int64_t>(m_recorder.faults.number("slow-soap").value_or(0), 0, maxDelayMs));
    response.trickles = m_recorder.faults.isOn("one-byte-a-second");
    if (const auto headers = m_recorder.faults.number("many-headers")) {
        for (std::int64_t i = 0; i < std::min<std::int64_t>(*headers, 2'000'000); ++i)
            response.headers.emplace_back("X-" + std::to_string(i), "1");
    }
    return response;
}

std::optional<HttpResponse> OnvifServer::faultyAnswer(const TextRequest& request) const
{
    const FaultPlan& faults = m_recorder.faults;
    if (faults.isOn("rubbish"))
        return rubbishAnswer();
    if (faults.isOn("endless-line"))
        return endlessLineAnswer();
    if (const auto kind = faults.value("xml-bomb"))
        return xmlBombAnswer(*kind);
    if (faults.isOn("redirect-loop")) {
        HttpResponse response;
        response.status = 302;
        response.headers.emplace_back("Location", request.target);
        return response;
    }
    return std::nullopt;
}

std::optional<HttpResponse> OnvifServer::refuseLogin(const TextRequest& request, const SoapRequest& soap) const
{
    const Options& options = m_recorder.options;
    const bool refuseAll = m_recorder.faults.isOn("wrong-password");
    const bool loop = m_recorder.faults.isOn("auth-loop");
    const TokenVerdict token = soap.checkToken(QByteArray::fromStdString(options.user),
                                               QByteArray::fromStdString(options.password), m_recorder.deviceTimeNs());
    const SoapFault fault =
        SoapFault::sender("ter:NotAuthorized", "", QStringLiteral("The action requires a right login"));
    if (token != TokenVerdict::Missing && !loop) {
        if (token == TokenVerdict::Accepted && !refuseAll)
            return std::nullopt;
        ++m_recorder.statistics.loginsRefused;
        return faultResponse(fault);
    }
    const DigestAuth::Verdict verdict =
        m_recorder.httpAuth.check(request.header("Authorization"), request.method, request.target);
    if (verdict == DigestAuth::Verdict::Accepted && !refuseAll && !loop)
        return std::nullopt;
    if (verdict != DigestAuth::Verdict::Missing && verdict != DigestAuth::Verdict::Stale)
        ++m_recorder.statistics.loginsRefused;
    HttpResponse response = soapResponse(401, writeFault(fault));
    for (const std::string& challenge : m_recorder.httpAuth.challenges(loop || verdict == DigestAuth::Verdict::Stale))
        response.headers.emplace_back("WWW-Authenticate", challenge);
    return response;
}

HttpResponse OnvifServer::answer(const TextRequest& request, const ByteStream& stream)
{
    HttpResponse response;
    if (request.method != "POST") {
        response.status = 405;
        return response;
    }
    SoapRequest soap;
    // HTTP clients ask for a challenge with a request without body.
    if (request.body.empty()) {
        if (const auto refusal = refuseLogin(request, soap))
            return *refusal;
    }
    if (!soap.parse(QByteArray::fromStdString(request.body)))
        return faultResponse(SoapFault::sender("ter:WellFormed", "", QStringLiteral("Not a SOAP 1.2 request")));
    const auto entry = m_operations.find(soap.body->nameSpace + QLatin1Char(' ') + soap.body->name);
    if (entry == m_operations.end())
        return faultResponse(
            SoapFault::receiver("ter:ActionNotSupported", "", QStringLiteral("There is no such operation")));
    if (entry->second.needsLogin) {
        if (const auto refusal = refuseLogin(request, soap))
            return *refusal;
    }
    std::string hostAndPort(request.header("Host"));
    if (hostAndPort.empty())
        hostAndPort = stream.localHost();
    SoapContext context{m_recorder, m_searches, QString::fromStdString(hostAndPort).section(QLatin1Char(':'), 0, 0),
                        (stream.isEncrypted() ? QStringLiteral("https://") : QStringLiteral("http://")) +
                            QString::fromStdString(hostAndPort),
                        stream.isEncrypted()};
    SoapFault fault;
    const QByteArray body =
        writeEnvelope([&](QXmlStreamWriter& xml) { fault = entry->second.operation(context, *soap.body, xml); });
    return fault ? faultResponse(fault) : soapResponse(200, body);
}

} // namespace recorder_sim
