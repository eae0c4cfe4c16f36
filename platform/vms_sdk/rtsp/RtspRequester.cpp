#include "RtspRequester.h"

namespace vms_sdk::rtsp {

RtspRequester::RtspRequester(const QString& user, const QString& password, bool overTls)
    : m_authenticator(user, password, overTls)
{}

QByteArray RtspRequester::send(const RtspRequest& request)
{
    RtspMessage message;
    message.method = request.method;
    message.uri = request.uri;
    message.headers.append(RtspHeader("CSeq", QByteArray::number(++m_lastSequence)));
    message.headers.append(RtspHeader("User-Agent", "Vemo"));
    if (!m_session.isEmpty())
        message.headers.append(RtspHeader("Session", m_session));
    const QByteArray authorization = m_authenticator.authorization(request.method, request.uri);
    if (!authorization.isEmpty())
        message.headers.append(RtspHeader("Authorization", authorization));
    message.headers.append(request.headers);
    m_open.append({m_lastSequence, request});
    // A peer that never answers keep-alives must not make the list grow.
    if (m_open.size() > maxOpenRequests)
        m_open.removeFirst();
    return message.serialized();
}

bool RtspRequester::takeAnswered(const RtspMessage& answer, RtspRequest& request)
{
    const int sequence = answer.sequence();
    for (int i = 0; i < m_open.size(); ++i) {
        if (sequence >= 0 && m_open.at(i).first != sequence)
            continue;
        request = m_open.takeAt(i).second;
        return true;
    }
    return false;
}

QByteArray RtspRequester::answerTo(const RtspMessage& peerRequest, bool known) const
{
    RtspMessage message;
    message.status = known ? 200 : 501;
    message.reason = known ? "OK" : "Not Implemented";
    message.headers.append(RtspHeader("CSeq", peerRequest.header("CSeq")));
    if (!m_session.isEmpty())
        message.headers.append(RtspHeader("Session", m_session));
    return message.serialized();
}

} // namespace vms_sdk::rtsp
