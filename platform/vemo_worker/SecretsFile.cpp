#include "SecretsFile.h"

#include "ClientSecretKey.h"
#include "SecretBox.h"
#include "SysPaths.h"

#include <DataFolder.h>

#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace vemo_worker {

namespace {

constexpr qint64 fileLimitBytes = 4 * 1024 * 1024;

QByteArray magic()
{
    return QByteArrayLiteral("vemo secrets 1\n");
}

QString path()
{
    return SysPaths::configDir() + QStringLiteral("/secrets");
}

QByteArray key()
{
    QString error;
    const QByteArray result = ClientSecretKey::instance().key(&error);
    if (result.isEmpty())
        qWarning().noquote() << "stored passwords:" << error;
    return result;
}

} // namespace

SecretsFile::State SecretsFile::load(QMap<QString, QString>* texts)
{
    QFile file(path());
    if (!file.exists() || file.size() == 0)
        return State::Absent;
    if (!file.open(QIODevice::ReadOnly) || file.size() > fileLimitBytes || file.read(magic().size()) != magic())
        return State::Damaged;
    const QByteArray secretKey = key();
    if (secretKey.isEmpty())
        return State::NoKey;
    const auto plain = SecretBox::open(secretKey, file.readAll(), magic());
    if (!plain)
        return State::Damaged;
    const QJsonObject object = QJsonDocument::fromJson(*plain).object();
    for (auto each = object.begin(); each != object.end(); ++each)
        texts->insert(each.key(), each.value().toString());
    return State::Good;
}

bool SecretsFile::save(const QMap<QString, QString>& texts)
{
    QJsonObject object;
    for (auto each = texts.begin(); each != texts.end(); ++each)
        object.insert(each.key(), each.value());
    const QByteArray sealed = SecretBox::seal(key(), QJsonDocument(object).toJson(QJsonDocument::Compact), magic());
    if (sealed.isEmpty() || !vemo_data::DataFolder::makePrivateFile(path()))
        return false;
    // The existing target gives the new file its permissions before anything is written to it.
    QSaveFile file(path());
    return file.open(QIODevice::WriteOnly) && file.write(magic() + sealed) == magic().size() + sealed.size() &&
           file.commit();
}

std::optional<QString> SecretsFile::read(const QString& name)
{
    QMap<QString, QString> texts;
    load(&texts);
    return texts.contains(name) ? std::optional<QString>(texts.value(name)) : std::nullopt;
}

bool SecretsFile::write(const QString& name, const QString& text)
{
    QMap<QString, QString> texts;
    const State state = load(&texts);
    if (state == State::NoKey)
        return false;
    if (state == State::Damaged) {
        const QString aside = path() + QStringLiteral(".damaged-") +
                              QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmsszzz"));
        if (!QFile::rename(path(), aside))
            return false;
        qWarning().noquote() << "stored passwords can't be opened; set aside as" << aside;
    }
    texts.insert(name, text);
    return save(texts);
}

bool SecretsFile::remove(const QString& name)
{
    QMap<QString, QString> texts;
    if (load(&texts) != State::Good || texts.remove(name) == 0)
        return true;
    return save(texts);
}

} // namespace vemo_worker
