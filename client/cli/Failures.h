#pragma once

#include "CliCommand.h"
#include "ExitCode.h"

#include <Error.h>

namespace vemo_client {

/// Failures of the device client SDK as exit codes and sentences.
class Failures final
{
public:
    static ExitCode codeOf(vms_sdk::ErrorKind kind);
    /// `where` names what was asked ("http://10.0.0.5, channel 3").
    static Outcome of(const vms_sdk::Error& error, const QString& where);
    /// For a certificate that is neither pinned nor verified: names the key and how it is trusted.
    static Outcome ofCertificate(const DeviceOptions& device, const QByteArray& keySha256, const QString& reason);
    static Outcome unknownChannel(int channelNo, const QList<vms_sdk::ChannelInfo>& channels, const QString& address);

    /// The address without whatever could be a secret: no user, no query.
    static QString addressText(const QUrl& address);
};

} // namespace vemo_client
