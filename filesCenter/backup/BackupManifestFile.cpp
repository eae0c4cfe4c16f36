#include "BackupManifestFile.h"

#include <FileChecksum.h>
#include <PlainFile.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSet>

namespace vemo_filesCenter {

namespace {

using Record = BackupManifestFile::Record;

constexpr qint64 limitBytes = 16 * 1024 * 1024;
constexpr int version = 1;
constexpr int sumBytes = 32;
constexpr qint64 headBytes = 80;

QString utc(const QDateTime& time)
{
    return time.toUTC().toString(Qt::ISODateWithMs);
}

QDateTime local(const QJsonValue& value)
{
    return QDateTime::fromString(value.toString(), Qt::ISODateWithMs).toLocalTime();
}

QJsonObject objectOf(const Record& record)
{
    return {{QStringLiteral("file"), record.file},
            {QStringLiteral("device"), record.device},
            {QStringLiteral("channel_no"), record.channelNo},
            {QStringLiteral("channel"), record.channel},
            {QStringLiteral("begin"), utc(record.begin)},
            {QStringLiteral("end"), utc(record.end)},
            {QStringLiteral("bytes"), record.bytes},
            {QStringLiteral("sha256"), QString::fromLatin1(record.sha256.toHex())}};
}

Record recordOf(const QJsonObject& object)
{
    Record record;
    record.file = object[QStringLiteral("file")].toString();
    record.device = object[QStringLiteral("device")].toString();
    record.channelNo = object[QStringLiteral("channel_no")].toInt();
    record.channel = object[QStringLiteral("channel")].toString();
    record.begin = local(object[QStringLiteral("begin")]);
    record.end = local(object[QStringLiteral("end")]);
    record.bytes = static_cast<qint64>(object[QStringLiteral("bytes")].toDouble());
    record.sha256 = QByteArray::fromHex(object[QStringLiteral("sha256")].toString().toLatin1());
    return record;
}

/// Whether a file has the name that QSaveFile gives to what it writes, and begins as a manifest does or holds nothing.
/// Six small letters are rather somebody's ".backup": the few of ours that look like it stay.
bool isLeftover(const QString& folder, const QString& name)
{
    static const QRegularExpression ownName(
        QStringLiteral(R"(\A(?:SHA256SUMS|manifest\.json)\.(?![a-z]{6}\z)[A-Za-z]{6}\z)"));
    static const QRegularExpression ownHead(QStringLiteral(R"re(\A(?:\z|\\?[0-9a-f]{64}  |\{\n    "files": \[))re"));
    QFile file;
    if (!ownName.match(name).hasMatch() || !VCOMMON::PlainFile::open(file, folder % QLatin1Char('/') % name).isEmpty())
        return false;
    const QByteArray head = file.read(headBytes); // zeros: its content never reached the disk
    return ownHead.match(QString::fromLatin1(head.constData())).hasMatch();
}

/// What a disk that was pulled, or a program that was killed, left of replacing the manifest.
void removeLeftovers(const QString& folder)
{
    const QDir dir(folder);
    const QStringList names = dir.entryList({BackupManifestFile::sumsName() % QLatin1String(".??????"),
                                             BackupManifestFile::jsonName() % QLatin1String(".??????")},
                                            QDir::Files | QDir::NoSymLinks);
    for (const QString& name : names) {
        if (isLeftover(folder, name))
            QFile::remove(dir.filePath(name));
    }
}

/// A disk that others use too may hold anything under the name: a link there goes, and what it leads to stays as it is.
bool replace(const QString& path, const QByteArray& content)
{
    const QFileInfo before(path);
    const bool isOther = before.isSymLink() ? !QFile::remove(path) : before.exists() && !before.isFile();
    if (isOther)
        return false;
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
}

} // namespace

QString BackupManifestFile::sumsName()
{
    return QStringLiteral("SHA256SUMS");
}

QString BackupManifestFile::jsonName()
{
    return QStringLiteral("manifest.json");
}

QList<BackupManifestFile::Record> BackupManifestFile::read(const QString& folder)
{
    QFile file;
    const QString refused = VCOMMON::PlainFile::open(file, folder % QLatin1Char('/') % jsonName());
    if (!refused.isEmpty() || file.size() > limitBytes)
        return {};
    const QJsonArray files = QJsonDocument::fromJson(file.read(limitBytes))[QStringLiteral("files")].toArray();
    QMap<QString, Record> records;
    for (const QJsonValue& value : files) {
        const Record record = recordOf(value.toObject());
        const bool isName = !record.file.isEmpty() && !record.file.contains(QLatin1Char('/'));
        if (isName && record.sha256.size() == sumBytes)
            records.insert(record.file, record);
    }
    return records.values();
}

QStringList BackupManifestFile::unlisted(const QStringList& filePaths)
{
    QHash<QString, QSet<QString>> listed; // by folder
    QStringList paths;
    for (const QString& path : filePaths) {
        const QFileInfo file(path);
        auto known = listed.find(file.path());
        if (known == listed.end()) {
            known = listed.insert(file.path(), {});
            const QList<Record> records = read(file.path());
            for (const Record& record : records)
                known->insert(record.file);
        }
        if (file.isFile() && !known->contains(file.fileName()))
            paths.append(path);
    }
    return paths;
}

bool BackupManifestFile::merge(const QString& folder, const QList<Record>& added)
{
    QMap<QString, Record> records;
    const QList<Record> known = read(folder);
    for (const QList<Record>* list : {&known, &added}) {
        for (const Record& record : *list)
            records.insert(record.file, record);
    }
    QByteArray sums;
    QJsonArray files;
    for (const Record& record : qAsConst(records)) {
        sums += VCOMMON::FileChecksum::checkLine(record.sha256, record.file).toUtf8() + '\n';
        files.append(objectOf(record));
    }
    removeLeftovers(folder);
    const QJsonObject manifest{{QStringLiteral("version"), version}, {QStringLiteral("files"), files}};
    return replace(folder % QLatin1Char('/') % sumsName(), sums) &&
           replace(folder % QLatin1Char('/') % jsonName(), QJsonDocument(manifest).toJson());
}

} // namespace vemo_filesCenter
