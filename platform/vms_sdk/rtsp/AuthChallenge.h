#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

namespace vms_sdk::rtsp {

/// One challenge of a WWW-Authenticate header (RFC 7235 clause 4.1).
struct AuthChallenge
{
    QByteArray scheme;                        ///< lower case
    QHash<QByteArray, QByteArray> parameters; ///< names in lower case, values without quotes and escapes
};

/// Reads the challenges of one header value, which may hold several. What cannot be read is passed over up to the next
/// comma.
QList<AuthChallenge> parseChallenges(const QByteArray& value);

} // namespace vms_sdk::rtsp
