#pragma once

#include "CliCommand.h"
#include "ExitCode.h"

#include <Error.h>

namespace vemo_client {

/// What a failure belongs to.
struct Place
{
    QString text; ///< "http://10.0.0.5, channel 3"
    QString host; ///< a message that names it already needs no other place
};

/// Failures of the device client SDK as exit codes and sentences.
class Failures final
{
public:
    static ExitCode codeOf(vms_sdk::ErrorKind kind);
    /// One sentence that names the place and the reason.
    static Outcome of(const vms_sdk::Error& error, const Place& place);
    /// For a certificate that is neither pinned nor verified: names the key and how it is trusted.
    static Outcome ofCertificate(const DeviceOptions& device, const QByteArray& keySha256, const QString& reason);
    static Outcome unknownChannel(int channelNo, const QList<vms_sdk::ChannelInfo>& channels, const QString& address);

    /// Scheme, host and port; nothing that could be a secret.
    static QString addressText(const QUrl& address);
};

} // namespace vemo_client
