#include "SealedFile.h"

#include "ClientSecretKey.h"
#include "SecretBox.h"

#include <DataFolder.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QSaveFile>

#include <utility>

namespace vemo_worker {

namespace {

constexpr qint64 fileLimitBytes = 4 * 1024 * 1024;

QByteArray key(QString* error)
{
    const QByteArray result = ClientSecretKey::instance().key(error);
    if (result.isEmpty())
        qWarning().noquote() << "sealed files:" << *error;
    return result;
}

} // namespace

SealedFile::SealedFile(QString path, QByteArray magic)
    : m_path(std::move(path))
    , m_magic(std::move(magic))
{}

SealedFile::State SealedFile::read(QByteArray* plain, QString* problem) const
{
    QString ignored;
    QString& words = problem ? *problem : ignored;
    QFile file(m_path);
    if (!file.exists() || file.size() == 0)
        return State::Absent;
    words = QCoreApplication::translate("vemo_worker::SealedFile", "The file %1 is damaged.").arg(m_path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > fileLimitBytes || file.read(m_magic.size()) != m_magic)
        return State::Damaged;
    QString keyError;
    const QByteArray secretKey = key(&keyError);
    if (secretKey.isEmpty()) {
        words = keyError;
        return State::NoKey;
    }
    const auto opened = SecretBox::open(secretKey, file.readAll(), m_magic);
    if (!opened)
        return State::Damaged;
    words.clear();
    *plain = *opened;
    return State::Good;
}

bool SealedFile::write(const QByteArray& plain) const
{
    QString error;
    const QByteArray sealed = SecretBox::seal(key(&error), plain, m_magic);
    if (sealed.isEmpty() || !vemo_data::DataFolder::makePrivateFile(m_path))
        return false;
    // The existing target gives the new file its permissions before anything is written to it.
    QSaveFile file(m_path);
    return file.open(QIODevice::WriteOnly) && file.write(m_magic + sealed) == m_magic.size() + sealed.size() &&
           file.commit();
}

bool SealedFile::setAside() const
{
    const QString aside = m_path + QStringLiteral(".damaged-") +
                          QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmsszzz"));
    if (!QFile::rename(m_path, aside))
        return false;
    qWarning().noquote() << m_path << "can't be opened; set aside as" << aside;
    return true;
}

} // namespace vemo_worker
