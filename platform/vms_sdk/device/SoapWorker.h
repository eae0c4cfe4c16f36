#pragma once

#include "DeviceSession.h"
#include "SdkLimits.h"
#include "VmsTypes.h"

#include <QHash>
#include <QObject>
#include <QPointer>

namespace vms_sdk {

class DiscoveryJob;
class SearchJob;

/// What a stream is wanted of.
struct StreamWish
{
    QString devId;
    int channelNo = 0;
    bool isLive = false;
    LiveProfile profile = LiveProfile::Main; ///< live
    QString recordingToken;                  ///< replay; empty: the channel's own recording
};

/// Where a stream is to be played from, and with which login.
struct StreamSource
{
    QUrl url;
    DevLogin login;
    QString channelName;
    QString deviceName;
    qint64 clockSkewMs = 0; ///< the device's clock minus ours
};

/// The object of the SOAP thread: the sessions by device, the searches and discoveries that run. Its functions are
/// called there, by queued calls; answers are signals. Destroyed with its thread, in the middle of whatever runs.
class SoapWorker final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SoapWorker)

public:
    explicit SoapWorker(const SdkLimits& limits);
    ~SoapWorker() override;

    /// A login that differs from the one before ends the session and whatever runs on it.
    void logIn(const DevLogin& login, quint64 serial);
    void logOut(const QString& devId);
    void search(const RecsSearchCondition& condition);
    void discover(const QString& requestId, int timeoutMs);
    void cancel(const QString& requestId);
    void findSource(quint64 streamId, const StreamWish& wish);

signals:
    void loginDone(const QString& devId, quint64 serial, const vms_sdk::Error& error);
    void statusChanged(const QString& devId, quint64 serial, vms_sdk::DevStatus status);
    void infoChanged(quint64 serial, const vms_sdk::DevInfo& info);
    void certificateRefused(const QString& devId, quint64 serial, const QSslCertificate& certificate,
                            const QByteArray& keySha256, const QString& reason);
    void searchDone(const QString& requestId, const vms_sdk::Error& error,
                    const QList<vms_sdk::VideoRecording>& recordings);
    void sourceFound(quint64 streamId, const vms_sdk::Error& error, const vms_sdk::StreamSource& source);
    void devDiscovered(const QString& requestId, const vms_sdk::DiscoveredDev& dev);
    void discoveryDone(const QString& requestId, const vms_sdk::Error& error);

private:
    DeviceSession* openSession(const DevLogin& login, quint64 serial);
    void closeSession(const QString& devId);
    Error unknownDevice() const;

    const SdkLimits m_limits;
    QHash<QString, DeviceSession*> m_sessions;
    QHash<QString, SearchJob*> m_searches; ///< by request id
    QHash<QString, DiscoveryJob*> m_discoveries;
};

} // namespace vms_sdk
