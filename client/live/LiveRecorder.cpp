#include "LiveRecorder.h"

#include <BaseTools.h>
#include <DevsMgrData.h>
#include <DiskCall.h>
#include <DiskManager.h>
#include <LocalRecordingIndexes.h>
#include <RecordingFile.h>
#include <SysPaths.h>
#include <SystemConfig.h>
#include <ToolsCollection.h>
#include <vav_frame.h>
#include <vaws_download.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QStorageInfo>
#include <QUuid>

namespace vemo_client {

Q_LOGGING_CATEGORY(lcLiveRecorder, "vemo.live.record")

namespace {

const char* const frameSource = "vavFrame";
constexpr int lookMs = 500;
constexpr int diskMs = 10'000;
constexpr int placeMs = 10'000;
constexpr int readMs = 30'000;
constexpr int finishMs = 60'000;
constexpr qint64 mostBacklogBytes = 32LL * 1024 * 1024;
constexpr int maxNameBytes = 220; ///< room for " (2)" and what the library adds to tell parts apart
constexpr int maxDevBytes = 80;
constexpr std::size_t flagsOffset = 7; ///< in the header of a vav_frame packet
constexpr std::size_t reportBytes = 256 * 1024;

QJsonObject reportOf(const QByteArray& taskId)
{
    QByteArray text(static_cast<int>(reportBytes), '\0');
    const int length = vaws_download_get_report(taskId.constData(), text.data(), reportBytes);
    if (length < 0 || static_cast<std::size_t>(length) >= reportBytes)
        return {};
    text.truncate(length);
    return QJsonDocument::fromJson(text).object();
}

VCOMMON::LocalRecordingIndexInfo indexInfo(const ChannelRef& channel, const QString& channelName,
                                           const QString& devName, const QString& path)
{
    const VCOMMON::RecordingFile file = VCOMMON::RecordingFile::read(path);
    VCOMMON::LocalRecordingIndexInfo info;
    info.devId = channel.devId;
    info.channelNo = channel.channelNo;
    info.channelId = vemo_base::BaseTools::instance().formatChannelId(channel.devId, channel.channelNo);
    info.channelName = channelName;
    info.devName = devName;
    info.problem = file.problem;
    info.beginTime = file.likelyBegin;
    info.endTime = file.likelyEnd;
    info.filePath = path;
    info.bytes = file.bytes;
    return info;
}

} // namespace

LiveRecorder::LiveRecorder(const ChannelRef& channel, QObject* parent)
    : QObject(parent)
    , m_channel(channel)
{
    m_lookTimer.setInterval(lookMs);
    connect(&m_lookTimer, &QTimer::timeout, this, &LiveRecorder::look);
}

LiveRecorder::~LiveRecorder()
{
    stopNow();
}

void LiveRecorder::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit signalStateChanged();
}

qint64 LiveRecorder::recordedMs() const
{
    return m_sinceBegin.isValid() ? m_sinceBegin.elapsed() : 0;
}

/// As downloads are named, but for the end, which is not known.
QString LiveRecorder::fileName() const
{
    using VCOMMON::ToolsCollection;
    QString channel = m_channelName;
    ToolsCollection::formatLegalFileName(channel, QString());
    QString device = m_devName;
    ToolsCollection::formatLegalFileName(device, QString());
    ToolsCollection::cutToBytes(device, maxDevBytes);
    const QString rest = QLatin1Char('@') + device + QLatin1Char('_') + QString::number(m_channel.channelNo) +
                         QLatin1Char('@') + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMddhhmmss")) +
                         QStringLiteral("@Live.mp4");
    ToolsCollection::cutToBytes(channel, maxNameBytes - rest.toUtf8().size());
    return channel + rest;
}

LiveRecorder::Place LiveRecorder::findPlace(const QString& folder, const QString& fileName)
{
    if (folder.isEmpty() || !QDir().mkpath(folder))
        return {{}, tr("The folder for recordings can't be used: %1").arg(QDir::toNativeSeparators(folder))};
    if (QStorageInfo(folder).bytesAvailable() < reserveBytes)
        return {{}, tr("The disk of the folder for recordings has less than 1 GB left.")};
    return {VCOMMON::ToolsCollection::freeFileName(folder + QLatin1Char('/') + fileName), {}};
}

void LiveRecorder::start()
{
    if (m_state != State::Idle)
        return;
    m_taskId = "live-" + QUuid::createUuid().toByteArray(QUuid::WithoutBraces);
    m_files.clear();
    m_problem.clear();
    m_hasGap = false;
    m_waitsForKey = false;
    m_sinceBegin.invalidate();
    m_channelName = vemo_base::BaseTools::instance().getChannelName(m_channel.devId, m_channel.channelNo);
    m_devName = vemo_data::DevsMgrData::instance().getDevInfoById(m_channel.devId).name;
    setState(State::Preparing);
    const QString folder = vemo_worker::SystemConfig::instance().getLocalRecordingPath();
    vemo_worker::DiskCall::start(
        this, placeMs,
        [this, folder, name = fileName()](const std::atomic<bool>&) -> vemo_worker::DiskCall::Answer {
            const Place place = findPlace(folder, name);
            return [this, place] { takePlace(place); };
        },
        [this] {
            takePlace({{}, tr("The disk of the folder for recordings does not answer.")});
        });
}

void LiveRecorder::takePlace(const Place& place)
{
    if (m_state != State::Preparing)
        return;
    m_path = place.path;
    m_problem = place.problem;
    if (m_problem.isEmpty()) {
        // Does nothing where the queue of downloads has done so already.
        vaws_download_init_sdk(QDir(vemo_worker::SysPaths::tempDir()).absolutePath().toUtf8().constData());
        const int result = vaws_download_file(frameSource, 0, m_path.toUtf8().constData(), m_taskId.constData());
        if (result == VAWS_REFUSED)
            m_problem = tr("The disk of the folder for recordings has less than 1 GB left.");
        else if (result < 0)
            m_problem = tr("The recording could not be started.");
    }
    if (!m_problem.isEmpty())
        return end();
    vaws_download_push_player_event(m_taskId.constData(), VAWS_PLAYER_PLAYING);
    qCInfo(lcLiveRecorder).noquote() << "recording into" << m_path;
    m_lookTimer.start();
    m_sinceAsked.start();
    emit signalReady();
}

void LiveRecorder::begin(const QVector<QByteArray>& packets)
{
    if (m_state != State::Preparing)
        return;
    setState(State::Recording);
    for (const QByteArray& batch : packets)
        push(batch);
}

/// A copy with a flag set on its first frame.
static QByteArray flagged(const QByteArray& packets, std::uint8_t flag)
{
    QByteArray copy = packets;
    vav::PacketReader reader(copy.constData(), static_cast<std::size_t>(copy.size()));
    while (reader.next() == vav::PacketReader::Status::Packet) {
        if (reader.kind() != vav::PacketKind::Frame)
            continue;
        const auto* begin = reinterpret_cast<const std::uint8_t*>(copy.constData());
        const auto at = static_cast<std::size_t>(reader.payload() - begin) - vav::headerBytes + flagsOffset;
        copy[static_cast<int>(at)] = static_cast<char>(reader.frame().flags | flag);
        break;
    }
    return copy;
}

void LiveRecorder::push(const QByteArray& packets)
{
    if (m_state != State::Recording || packets.isEmpty())
        return;
    if (vaws_download_get_backlog(m_taskId.constData()) > mostBacklogBytes) {
        if (!m_hasGap)
            qCWarning(lcLiveRecorder).noquote() << "the disk is too slow for" << m_path;
        m_hasGap = true;
        return;
    }
    if (!m_sinceBegin.isValid())
        m_sinceBegin.start();
    const QByteArray batch = m_hasGap ? flagged(packets, vav::Discontinuity) : packets;
    m_hasGap = false;
    vaws_download_push_vavframe(m_taskId.constData(), batch.constData(), static_cast<std::size_t>(batch.size()));
}

void LiveRecorder::markGap()
{
    m_hasGap = m_sinceBegin.isValid();
}

void LiveRecorder::endTask()
{
    int64_t count = 0;
    char time[32] = {};
    vaws_download_stop(m_taskId.constData(), &count, time);
}

void LiveRecorder::stop()
{
    if (m_state == State::Preparing && !m_lookTimer.isActive())
        return end();
    if (!isRecording())
        return;
    endTask();
    m_sinceAsked.start();
    setState(State::Finishing);
    look();
}

void LiveRecorder::stopNow()
{
    if (m_state == State::Idle)
        return;
    if (isRecording() && m_lookTimer.isActive())
        endTask();
    m_lookTimer.stop();
    const QJsonArray files = reportOf(m_taskId)[QStringLiteral("files")].toArray();
    for (const QJsonValue& file : files) {
        const QString path = file.toString();
        if (!m_files.contains(path))
            VCOMMON::LocalRecordingIndexes::instance().addLocalRecordingIndex(
                indexInfo(m_channel, m_channelName, m_devName, path));
    }
    m_state = State::Idle;
}

void LiveRecorder::look()
{
    const int status = vaws_download_get_status(m_taskId.constData());
    const bool isOver = status == VAWS_STATUS_ENDED || status == VAWS_STATUS_UNKNOWN ||
                        (m_state == State::Finishing && m_sinceAsked.hasExpired(finishMs));
    takeReport(isOver);
    if (isOver)
        return end();
    if (m_state == State::Recording && m_sinceAsked.hasExpired(diskMs))
        askDisk();
}

void LiveRecorder::takeReport(bool isOver)
{
    const QJsonObject report = reportOf(m_taskId);
    const QJsonArray files = report[QStringLiteral("files")].toArray();
    QStringList fresh;
    for (int i = m_files.size(); i < files.size(); ++i)
        fresh.append(files.at(i).toString());
    m_files += fresh;
    if (!fresh.isEmpty())
        addToIndex(fresh);
    if (isOver && m_state == State::Recording) {
        const QString error = report[QStringLiteral("error")].toString();
        m_problem = error.isEmpty() ? tr("The recording was broken off.") : error;
        qCWarning(lcLiveRecorder).noquote() << "the recording into" << m_path << "ended:" << m_problem;
    }
}

void LiveRecorder::askDisk()
{
    m_sinceAsked.start();
    vemo_worker::DiskManager::instance().askFigures(
        m_path, this, [this](const vemo_worker::DiskManager::Figures& figures) {
            if (m_state != State::Recording || figures.freeBytes < 0 || figures.freeBytes >= reserveBytes)
                return;
            m_problem = tr("The disk of the folder for recordings has less than 1 GB left.");
            stop();
        });
}

void LiveRecorder::addToIndex(const QStringList& files)
{
    using Answer = vemo_worker::DiskCall::Answer;
    vemo_worker::DiskCall::start(
        this, readMs,
        [files, channel = m_channel, channelName = m_channelName,
         devName = m_devName](const std::atomic<bool>&) -> Answer {
            QVector<VCOMMON::LocalRecordingIndexInfo> records;
            for (const QString& path : files)
                records.append(indexInfo(channel, channelName, devName, path));
            return [records] {
                for (const VCOMMON::LocalRecordingIndexInfo& record : records)
                    VCOMMON::LocalRecordingIndexes::instance().addLocalRecordingIndex(record);
            };
        },
        [files] { qCWarning(lcLiveRecorder).noquote() << "not indexed, the disk does not answer:" << files; });
}

void LiveRecorder::end()
{
    m_lookTimer.stop();
    m_sinceBegin.invalidate();
    setState(State::Idle);
    emit signalEnded(m_problem, m_files);
}

} // namespace vemo_client
