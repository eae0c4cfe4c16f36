#include "Failures.h"

#include <QCoreApplication>

#include <algorithm>

namespace vemo_client {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::Failures", text);
}

/// "1 to 4, 7" for 1, 2, 3, 4, 7.
QString ranges(QList<int> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    QStringList parts;
    for (int i = 0; i < numbers.size();) {
        int last = i;
        while (last + 1 < numbers.size() && numbers.at(last + 1) == numbers.at(last) + 1)
            ++last;
        parts.append(last == i ? QString::number(numbers.at(i))
                               : tr("%1 to %2").arg(numbers.at(i)).arg(numbers.at(last)));
        i = last + 1;
    }
    return parts.join(QLatin1String(", "));
}

} // namespace

QString Failures::addressText(const QUrl& address)
{
    return address.toString(QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment);
}

ExitCode Failures::codeOf(vms_sdk::ErrorKind kind)
{
    switch (kind) {
    case vms_sdk::ErrorKind::None:
        return ExitCode::Done;
    case vms_sdk::ErrorKind::LoginRefused:
    case vms_sdk::ErrorKind::AccountLocked:
    case vms_sdk::ErrorKind::NotActivated:
        return ExitCode::LoginRefused;
    case vms_sdk::ErrorKind::Unreachable:
    case vms_sdk::ErrorKind::TimedOut:
        return ExitCode::Unreachable;
    case vms_sdk::ErrorKind::LimitReached:
        return ExitCode::LimitReached;
    case vms_sdk::ErrorKind::Cancelled:
        return ExitCode::Interrupted;
    case vms_sdk::ErrorKind::NotFound:
    case vms_sdk::ErrorKind::NoReplay:
    case vms_sdk::ErrorKind::BrokenOff:
    case vms_sdk::ErrorKind::Corrupt:
    case vms_sdk::ErrorKind::Unsupported:
    case vms_sdk::ErrorKind::CertificateRefused:
    case vms_sdk::ErrorKind::Refused:
        break;
    }
    return ExitCode::Failed;
}

Outcome Failures::of(const vms_sdk::Error& error, const Place& place)
{
    QString message = error.message.isEmpty() ? tr("The recorder gave no reason") : error.message;
    if (!message.endsWith(QLatin1Char('.')))
        message += QLatin1Char('.');
    const bool namesHost = !place.host.isEmpty() && message.contains(place.host);
    return {codeOf(error.kind), namesHost ? message : QString(place.text % QLatin1String(": ") % message)};
}

Outcome Failures::ofCertificate(const DeviceOptions& device, const QByteArray& keySha256, const QString& reason)
{
    const QString key = QString::fromLatin1(keySha256.toHex());
    const QString address = addressText(device.address);
    if (!device.tls.pinnedKeySha256.isEmpty())
        return {ExitCode::Failed,
                tr("%1 shows another key than the pinned one, so nothing was sent to it; the SHA-256 of its key is %2.")
                    .arg(address, key)};
    QString why = reason;
    while (why.endsWith(QLatin1Char('.')))
        why.chop(1);
    return {ExitCode::Failed, tr("The certificate of %1 is not trusted (%2), so nothing was sent to it; if this is the "
                                 "key of your recorder, add --pin %3.")
                                  .arg(address, why, key)};
}

Outcome Failures::unknownChannel(int channelNo, const QList<vms_sdk::ChannelInfo>& channels, const QString& address)
{
    if (channels.isEmpty())
        return {ExitCode::Failed, tr("%1 has no channels, so there is no channel %2.").arg(address).arg(channelNo)};
    QList<int> numbers;
    for (const vms_sdk::ChannelInfo& channel : channels)
        numbers.append(channel.channelNo);
    return {ExitCode::Failed,
            tr("%1 has no channel %2; its channels are %3.").arg(address).arg(channelNo).arg(ranges(numbers))};
}

} // namespace vemo_client
