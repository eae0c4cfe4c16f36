#include "LocalVerb.h"

#include "Terminal.h"

#include <BaseTools.h>
#include <Database.h>
#include <DevsMgrData.h>
#include <FilesCenterLogs.h>
#include <LocalIndexRescan.h>
#include <LocalRecordingIndexes.h>
#include <LocalSnapImageIndexes.h>
#include <SaveAsName.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <VCopyLocalFiles.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace vemo_client {

namespace {

using Action = LocalOptions::Action;
using Kind = LocalOptions::Kind;
using VCOMMON::LocalIndexRescan;
using VCOMMON::LocalRecordingIndexes;
using VCOMMON::LocalRecordingIndexInfo;
using VCOMMON::LocalRescanResult;
using VCOMMON::LocalSnapImageIndexes;
using VCOMMON::LocalSnapImageIndexInfo;
using VCOMMON::VCopyLocalFiles;
using vemo_base::BaseTools;

QString requestId()
{
    return QStringLiteral("local");
}

QDateTime beginOf(const CliCommand& command)
{
    return command.begin.isValid() ? command.begin : QDateTime::fromMSecsSinceEpoch(0);
}

QDateTime endOf(const CliCommand& command)
{
    return command.end.isValid() ? command.end : QDateTime(QDate(9999, 1, 1), QTime(0, 0));
}

/// What is on the disk now, when the index has never looked.
qint64 bytesOf(qint64 known, const QString& path)
{
    return known > 0 ? known : QFileInfo(path).size();
}

LocalFile fileOf(const LocalRecordingIndexInfo& record)
{
    const BaseTools& tools = BaseTools::instance();
    const bool exists = tools.isVideoExist(record.channelId);
    return {record.filePath,
            record.devName,
            record.channelNo,
            exists ? tools.getChannelName(record.channelId) : record.channelName,
            record.beginTime,
            record.endTime,
            bytesOf(record.bytes, record.filePath),
            record.problem,
            record.isSpanGuessed};
}

LocalFile fileOf(const LocalSnapImageIndexInfo& record)
{
    const QString current = BaseTools::instance().getChannelName(record.devId, record.channelNo);
    return {record.filePath,
            record.devName,
            record.channelNo,
            current.isEmpty() ? record.channelName : current,
            record.captureTime,
            {},
            bytesOf(record.bytes, record.filePath),
            record.problem,
            false};
}

void log(const LocalFile& file)
{
    vemo_worker::FilesCenterLogs& logs = vemo_worker::FilesCenterLogs::instance();
    const BaseTools& tools = BaseTools::instance();
    const QString time = tools.strDatetime(file.begin, false, false);
    if (file.isSnapshot()) {
        logs.deleteLocalCaptureLog(file.devName, file.channelNo, file.channel,
                                   LocalVerb::tr("Capture time:%1").arg(time));
        return;
    }
    const QString size =
        QStringLiteral("%1 B (%2)").arg(file.bytes).arg(tools.get2DatetimeIntervalTime(file.begin, file.end));
    logs.deleteLocalRecordLog(file.devName, file.channelNo, file.channel,
                              LocalVerb::tr("Record begin time:%1,file size:%2").arg(time, size));
}

} // namespace

LocalVerb::LocalVerb(const CliCommand& command, QObject* parent)
    : QObject(parent)
    , m_command(command)
{}

bool LocalVerb::changesStore(const CliCommand& command)
{
    return command.local.action == Action::Delete || command.local.action == Action::Rescan;
}

void LocalVerb::run()
{
    vemo_data::DevsMgrData::instance().load();
    const QString notice = vemo_data::Database::instance().notice();
    if (!notice.isEmpty())
        Terminal::error(notice);
    if (m_command.local.action == Action::Rescan)
        rescan();
    else if (m_command.local.kind == Kind::Recordings)
        askRecordings();
    else
        takeSnapshots();
}

void LocalVerb::interrupt()
{
    leave(ExitCode::Interrupted, tr("Interrupted."));
}

void LocalVerb::rescan()
{
    connect(&LocalIndexRescan::instance(), &LocalIndexRescan::signalFinished, this, [this](const LocalRescanResult& r) {
        for (const QString& problem : r.problems)
            fail(problem);
        if (m_command.json)
            Terminal::out(QString::fromUtf8(QJsonDocument(QJsonObject{{QStringLiteral("recordings"), r.recordings},
                                                                      {QStringLiteral("snapshots"), r.snapshots},
                                                                      {QStringLiteral("read"), r.read},
                                                                      {QStringLiteral("broken"), r.broken},
                                                                      {QStringLiteral("gone"), r.gone}})
                                                .toJson(QJsonDocument::Compact)));
        else
            Terminal::out(tr("%1 recordings, %2 snapshots; %3 new or changed, %4 of them broken; %5 gone.")
                              .arg(r.recordings)
                              .arg(r.snapshots)
                              .arg(r.read)
                              .arg(r.broken)
                              .arg(r.gone));
        leave(ExitCode::Done);
    });
    const vemo_worker::SystemConfig& config = vemo_worker::SystemConfig::instance();
    LocalIndexRescan::instance().start(
        m_command.local.folder.isEmpty()
            ? QStringList{config.getLocalRecordingPath(), config.getLocalSnapshotPath()}
            : QStringList{QDir::cleanPath(QFileInfo(m_command.local.folder).absoluteFilePath())});
}

void LocalVerb::askRecordings()
{
    LocalRecordingIndexes& indexes = LocalRecordingIndexes::instance();
    connect(&indexes, &LocalRecordingIndexes::signalGetLocalRecordingIndexesInfoResult, this,
            [this](const QString&, const QList<LocalRecordingIndexInfo>& records) { takeRecordings(records); });
    emit indexes.signalGetLocalRecordingIndexesInfo(requestId(), beginOf(m_command), endOf(m_command), 0);
}

void LocalVerb::takeRecordings(const QList<LocalRecordingIndexInfo>& records)
{
    for (const LocalRecordingIndexInfo& record : records)
        m_files.append(fileOf(record));
    if (records.size() == LocalRecordingIndexes::maxRecordsAnswered)
        fail(tr("There are more than %1 recordings; only the oldest are taken. Give --begin and --end.")
                 .arg(records.size()));
    act();
}

void LocalVerb::takeSnapshots()
{
    const QList<LocalSnapImageIndexInfo> records =
        LocalSnapImageIndexes::instance().getLocalSnapImageIndexesInfo(beginOf(m_command), endOf(m_command));
    for (const LocalSnapImageIndexInfo& record : records)
        m_files.append(fileOf(record));
    act();
}

void LocalVerb::act()
{
    const QString channel = m_command.local.channel;
    if (!channel.isEmpty()) {
        const auto isOther = [&channel](const LocalFile& file) {
            return file.channel.compare(channel, Qt::CaseInsensitive) != 0;
        };
        m_files.erase(std::remove_if(m_files.begin(), m_files.end(), isOther), m_files.end());
    }
    switch (m_command.local.action) {
    case Action::SaveAs:
        saveAs();
        break;
    case Action::Delete:
        if (m_command.local.kind == Kind::Recordings)
            removeRecords();
        else
            removeFiles();
        break;
    default:
        list();
        break;
    }
}

void LocalVerb::list()
{
    if (!m_command.json && !m_files.isEmpty())
        Terminal::out(LocalListing::header());
    for (const LocalFile& file : qAsConst(m_files))
        Terminal::out(m_command.json ? LocalListing::json(file) : LocalListing::row(file));
    leave(ExitCode::Done);
}

void LocalVerb::saveAs()
{
    const QString folder = QFileInfo(m_command.local.target).absoluteFilePath();
    if (!QDir().mkpath(folder)) {
        leave(ExitCode::Disk, tr("The folder %1 can't be made.").arg(QDir::toNativeSeparators(folder)));
        return;
    }
    QStringList sources;
    QStringList targets;
    for (const LocalFile& file : qAsConst(m_files)) {
        sources.append(file.path);
        const QString name = file.isSnapshot() ? vemo_base::SaveAsName::snapshot(file.channel, file.begin, file.path)
                                               : vemo_base::SaveAsName::recording(file.channel, file.begin, file.end);
        targets.append(folder + QLatin1Char('/') + name);
    }
    auto* copier = new VCopyLocalFiles(requestId(), this);
    copier->setRoot(folder);
    connect(copier, &VCopyLocalFiles::signalCopyFileSucceeded, this,
            [this](const QString&, const QString& source, const QString& target) {
                if (m_command.json)
                    Terminal::out(QString::fromUtf8(
                        QJsonDocument(QJsonObject{{QStringLiteral("path"), source}, {QStringLiteral("saved"), target}})
                            .toJson(QJsonDocument::Compact)));
                else
                    Terminal::out(target);
            });
    connect(copier, &VCopyLocalFiles::signalCopyFileFailed, this,
            [this](const QString&, const QString& source, const QString& reason) {
                fail(tr("%1 could not be saved: %2").arg(QDir::toNativeSeparators(source), reason));
            });
    connect(copier, &VCopyLocalFiles::signalCopyFilesFinished, this, [this] { leave(ExitCode::Done); });
    if (!copier->copyFiles(sources, targets))
        leave(ExitCode::Failed, tr("The files could not be saved."));
}

void LocalVerb::removeRecords()
{
    QStringList paths;
    for (const LocalFile& file : qAsConst(m_files))
        paths.append(file.path);
    LocalRecordingIndexes& indexes = LocalRecordingIndexes::instance();
    connect(&indexes, &LocalRecordingIndexes::signalDeleteLocalRecordingIndexesResult, this,
            [this](const QString&, const QStringList&, bool success) {
                if (success)
                    removeFiles();
                else
                    leave(ExitCode::Disk, tr("The database could not be written."));
            });
    emit indexes.signalDeleteLocalRecordingIndexes(requestId(), paths);
}

void LocalVerb::removeFiles()
{
    QStringList paths;
    for (const LocalFile& file : qAsConst(m_files))
        paths.append(file.path);
    vemo_worker::SystemAssistant::instance().removeFiles(
        paths, this, [this](const QStringList& remaining) { finishRemoval(remaining); });
}

void LocalVerb::finishRemoval(const QStringList& remaining)
{
    const QSet<QString> left(remaining.begin(), remaining.end());
    QStringList gone;
    for (const LocalFile& file : qAsConst(m_files)) {
        if (left.contains(file.path)) {
            fail(tr("%1 could not be deleted.").arg(QDir::toNativeSeparators(file.path)));
            continue;
        }
        log(file);
        gone.append(file.path);
        Terminal::out(m_command.json ? QString::fromUtf8(QJsonDocument(QJsonObject{{QStringLiteral("path"), file.path},
                                                                                   {QStringLiteral("deleted"), true}})
                                                             .toJson(QJsonDocument::Compact))
                                     : file.path);
    }
    if (m_command.local.kind == Kind::Recordings) {
        LocalRecordingIndexes::instance().restoreLocalRecordingIndexes(remaining);
        vemo_worker::SystemAssistant::instance().removeVdxFiles(gone);
        vemo_worker::SystemAssistant::instance().finishRemovals();
    } else {
        LocalSnapImageIndexes::instance().deleteLocalSnapImageIndexes(gone);
    }
    // The event loop, which would hand over what was posted, ends here.
    if (vemo_data::Database::instance().run([](QSqlDatabase&) { return true; }))
        leave(ExitCode::Done);
    else
        leave(ExitCode::Disk, tr("The database could not be written."));
}

void LocalVerb::fail(const QString& sentence)
{
    m_anyFailed = true;
    Terminal::error(sentence);
}

void LocalVerb::leave(ExitCode code, const QString& sentence)
{
    m_exit.leave(code == ExitCode::Done && m_anyFailed ? ExitCode::Incomplete : code, sentence);
}

} // namespace vemo_client
