#include "ClientSecretKey.h"

#include "SecretBox.h"
#include "SysPaths.h"
#include "SystemWorker.h"

#include <DataFolder.h>

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMutexLocker>
#include <QSaveFile>

namespace vemo_worker {

namespace {

constexpr int fileLimitBytes = 4096;
constexpr int mostRounds = 10'000'000;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_worker::ClientSecretKey", text);
}

QByteArray sealContext()
{
    return QByteArrayLiteral("vemo secrets.key 1");
}

QString base64(const QByteArray& data)
{
    return QString::fromLatin1(data.toBase64());
}

QByteArray fromBase64(const QJsonValue& value)
{
    return QByteArray::fromBase64(value.toString().toLatin1());
}

} // namespace

ClientSecretKey::ClientSecretKey() = default;

ClientSecretKey& ClientSecretKey::instance()
{
    static ClientSecretKey key;
    return key;
}

bool ClientSecretKey::isAllPowerful() const
{
    return SystemWorker::instance().isCurUserHasPower(SystemWorker::allPowers);
}

void ClientSecretKey::reset()
{
    const QMutexLocker lock(&m_mutex);
    m_key.clear();
    m_passwordTaken = false;
}

void ClientSecretKey::giveBackPassword()
{
    const QMutexLocker lock(&m_mutex);
    if (!password().isEmpty())
        qputenv("VEMO_SECRETS_PASSWORD", m_password.toLocal8Bit());
}

QString ClientSecretKey::password()
{
    if (!m_passwordTaken) {
        m_password = qEnvironmentVariable("VEMO_SECRETS_PASSWORD");
        // Programs that we start don't get to see it.
        qunsetenv("VEMO_SECRETS_PASSWORD");
        m_passwordTaken = true;
    }
    return m_password;
}

QByteArray ClientSecretKey::key(QString* error)
{
    const QMutexLocker lock(&m_mutex);
    if (m_key.isEmpty()) {
        const QString path = SysPaths::configDir() + QStringLiteral("/secrets.key");
        m_key = QFile::exists(path) ? load(path, error) : make(path, error);
    }
    return m_key;
}

QByteArray ClientSecretKey::make(const QString& path, QString* error)
{
    const QByteArray key = SecretBox::randomBytes(SecretBox::keyBytes);
    if (key.isEmpty())
        *error = tr("The system gives no random numbers.");
    return !key.isEmpty() && write(path, key, error) ? key : QByteArray();
}

bool ClientSecretKey::write(const QString& path, const QByteArray& key, QString* error)
{
    QJsonObject object{{QStringLiteral("version"), 1}};
    if (password().isEmpty()) {
        object.insert(QStringLiteral("key"), base64(key));
    } else {
        const QByteArray salt = SecretBox::randomBytes(SecretBox::saltBytes);
        const QByteArray wrapping = SecretBox::keyFromPassword(password(), salt, SecretBox::passwordRounds);
        object.insert(QStringLiteral("kdf"), QStringLiteral("pbkdf2-hmac-sha256"));
        object.insert(QStringLiteral("rounds"), SecretBox::passwordRounds);
        object.insert(QStringLiteral("salt"), base64(salt));
        object.insert(QStringLiteral("sealed_key"), base64(SecretBox::seal(wrapping, key, sealContext())));
    }
    // An existing target gives the new file its permissions before anything is written to it.
    QSaveFile file(path);
    const QByteArray text = QJsonDocument(object).toJson();
    if (vemo_data::DataFolder::makePrivateFile(path) && file.open(QIODevice::WriteOnly) &&
        file.write(text) == text.size() && file.commit())
        return true;
    *error = tr("The key file %1 can't be written.").arg(path);
    return false;
}

QByteArray ClientSecretKey::load(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = tr("The key file %1 can't be read: %2.").arg(path, file.errorString());
        return {};
    }
    const QByteArray text = file.read(fileLimitBytes);
    file.close();
    if (text.isEmpty())
        return make(path, error); // a crash between making and filling it
    const QJsonObject object = QJsonDocument::fromJson(text).object();
    QByteArray key = fromBase64(object.value(QStringLiteral("key")));
    if (object.contains(QStringLiteral("sealed_key"))) {
        const int rounds = object.value(QStringLiteral("rounds")).toInt();
        if (password().isEmpty()) {
            *error = tr("The stored passwords are locked; set VEMO_SECRETS_PASSWORD.");
            return {};
        }
        const QByteArray wrapping = SecretBox::keyFromPassword(
            password(), fromBase64(object.value(QStringLiteral("salt"))), qBound(1, rounds, mostRounds));
        const auto opened =
            SecretBox::open(wrapping, fromBase64(object.value(QStringLiteral("sealed_key"))), sealContext());
        if (!opened) {
            *error = tr("VEMO_SECRETS_PASSWORD is not the password of the stored passwords.");
            return {};
        }
        return *opened;
    }
    if (key.size() != SecretBox::keyBytes) {
        *error = tr("The key file %1 is damaged.").arg(path);
        return {};
    }
    // A password was set since: from now on the key lies sealed.
    if (!password().isEmpty() && !write(path, key, error))
        return {};
    return key;
}

} // namespace vemo_worker
