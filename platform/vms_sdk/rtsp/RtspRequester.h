#pragma once

#include "DigestAuthenticator.h"
#include "RtspMessage.h"

#include <QList>
#include <QString>

#include <utility>

namespace vms_sdk::rtsp {

/// One request as it can be sent again: without the headers that differ every time.
struct RtspRequest
{
    QByteArray method;
    QByteArray uri;
    RtspHeaderList headers;
};

/// Numbers and signs the requests of one RTSP session and finds the request to which an answer belongs. No socket in
/// it.
class RtspRequester
{
public:
    RtspRequester(const QString& user, const QString& password, bool overTls);

    /// The bytes to send.
    QByteArray send(const RtspRequest& request);
    /// The request that `answer` answers; false when there is none. An answer without a CSeq belongs to the oldest.
    bool takeAnswered(const RtspMessage& answer, RtspRequest& request);
    QByteArray answerTo(const RtspMessage& peerRequest, bool known) const;

    DigestAuthenticator& authenticator() { return m_authenticator; }
    void setSession(const QByteArray& id) { m_session = id; }
    bool hasSession() const { return !m_session.isEmpty(); }

private:
    static constexpr int maxOpenRequests = 64;

    DigestAuthenticator m_authenticator;
    QByteArray m_session;
    int m_lastSequence = 0;
    QList<std::pair<int, RtspRequest>> m_open; ///< oldest first
};

} // namespace vms_sdk::rtsp
