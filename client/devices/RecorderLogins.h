#pragma once

#include <DevRecord.h>
#include <VmsTypes.h>

#include <QHash>
#include <QObject>
#include <QSslCertificate>
#include <QStringList>
#include <QTimer>

#include <optional>

namespace vemo_client {

/// How the logins of the stored recorders go, for those who show it, and what a person does about them. GUI thread; one
/// object, as long as the window.
///
/// start() has vemo_worker::DeviceLogins log in every stored recorder and try again those that can't be reached. One
/// that refused the login waits for retry() or change(), since many tries would lock the account. One that is online is
/// asked again now and then, so that its loss shows. A certificate that is neither verified nor pinned waits for
/// trust(); until then nothing is sent to the recorder. A disabled recorder is logged out and left alone.
class RecorderLogins final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecorderLogins)

public:
    enum class Phase : int { Unknown = 0, Connecting, Online, Failed, PasswordWanted, CertificateUnknown, Disabled };

    struct Login
    {
        Phase phase = Phase::Unknown;
        vms_sdk::Error error; ///< with Failed
        // With CertificateUnknown:
        QByteArray offeredKeySha256;
        QSslCertificate offeredCertificate;
        QString host;                ///< whom it should be issued for
        QString certificateReason;   ///< why it is not trusted
        QByteArray trustedKeySha256; ///< the pin that it does not match, empty: none
    };

    explicit RecorderLogins(QObject* parent = nullptr);
    ~RecorderLogins() override;

    void start();

    /// Stores the recorder and logs in; returns its id.
    QString add(const vemo_data::DevRecord& record, const QString& password);
    /// Stores a recorder whose password is not known yet: it waits for that.
    void addWithoutPassword(const vemo_data::DevRecord& record);
    /// Stores another address, user or name, and logs in anew; without a password the kept one stays.
    void change(const vemo_data::DevRecord& record, const std::optional<QString>& password);
    /// Forgets the recorder, its channels and its password. Tasks and files of it stay.
    void remove(const QString& devId);
    void retry(const QString& devId);
    void setEnabled(const QString& devId, bool enabled);
    /// Takes the recorder at another address with the login and the pin that it has.
    void moveTo(const QString& devId, const QUrl& address);
    /// Pins the key that the recorder showed, and logs in; unless it has shown another one since: then the person is
    /// asked again.
    void trust(const QString& devId, const QByteArray& shownKeySha256);

    Login login(const QString& devId) const { return m_logins.value(devId); }
    int recorders() const { return m_logins.size(); }
    /// Those that are neither online nor being asked.
    QStringList offline() const;

    static bool retriesAfter(vms_sdk::ErrorKind kind);

signals:
    /// The recorder's login changed; it was added or removed.
    void signalChanged(const QString& devId);
    /// The recorder's password could not be kept for the next start.
    void signalPasswordNotKept(const QString& devId);

private:
    void logIn(const QString& devId);
    void keepPassword(const QString& devId, const QString& password);
    /// Asks the recorders that are online whether they still are.
    void look();
    void setPhase(const QString& devId, Phase phase);
    void takeLogin(const QString& devId, const vms_sdk::Error& error);
    void takeStatus(const QString& devId, vms_sdk::DevStatus status);
    void takeCertificate(const QString& devId, const QSslCertificate& certificate, const QByteArray& keySha256,
                         const QString& reason);

    QHash<QString, Login> m_logins;
    QTimer m_lookTimer;
};

} // namespace vemo_client
