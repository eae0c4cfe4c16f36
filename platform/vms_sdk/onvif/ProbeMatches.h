#pragma once

#include "VmsTypes.h"

#include <QHostAddress>
#include <QStringList>
#include <QVector>

namespace vms_sdk::onvif {

/// What one device tells in an answer to a probe; bounded and fit for showing.
using ProbeMatch = DiscoveredDev;

/// The largest answer that is read, and how many devices it may tell of (a discovery proxy answers for others).
constexpr int maxProbeAnswerBytes = 16 * 1024;
constexpr int maxMatchesAnAnswer = 64;

/// A probe for devices of a type ("dn:NetworkVideoTransmitter", "tds:Device") as the bytes of a datagram.
QByteArray makeProbe(const QString& messageId, const QString& type);

/// The devices that a datagram from `sender` tells of, as the answer to one of our probes; none when it is anything
/// else or breaks a limit. An address counts when it is http or https at a literal address that a client may call, and
/// carries no login: this computer's own addresses only from this computer. Pure, any thread.
QVector<ProbeMatch> readProbeMatches(const QByteArray& datagram, const QHostAddress& sender,
                                     const QStringList& messageIds);

} // namespace vms_sdk::onvif
