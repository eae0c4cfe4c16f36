#pragma once

#include "DeviceSession.h"
#include "SdkLimits.h"
#include "VmsTypes.h"

#include <QHash>
#include <QObject>
#include <QPointer>

namespace vms_sdk {

class SearchJob;

/// Where a stream is to be played from, and with which login.
struct ReplaySource
{
    QUrl url;
    DevLogin login;
    QString channelName;
    QString deviceName;
};

/// The object of the SOAP thread: the sessions by device and the searches that run. Its functions are called there, by
/// queued calls; answers are signals. Destroyed with its thread, in the middle of whatever runs.
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
    void cancelSearch(const QString& requestId);
    void findReplay(quint64 streamId, const QString& devId, int channelNo, const QString& recordingToken);

signals:
    void loginDone(const QString& devId, quint64 serial, const vms_sdk::Error& error);
    void statusChanged(const QString& devId, quint64 serial, vms_sdk::DevStatus status);
    void infoChanged(quint64 serial, const vms_sdk::DevInfo& info);
    void certificateRefused(const QString& devId, quint64 serial, const QSslCertificate& certificate,
                            const QByteArray& keySha256, const QString& reason);
    void searchDone(const QString& requestId, const vms_sdk::Error& error,
                    const QList<vms_sdk::VideoRecording>& recordings);
    void replayFound(quint64 streamId, const vms_sdk::Error& error, const vms_sdk::ReplaySource& source);

private:
    DeviceSession* openSession(const DevLogin& login, quint64 serial);
    void closeSession(const QString& devId);
    Error unknownDevice() const;

    const SdkLimits m_limits;
    QHash<QString, DeviceSession*> m_sessions;
    QHash<QString, SearchJob*> m_searches; ///< by request id
};

} // namespace vms_sdk
