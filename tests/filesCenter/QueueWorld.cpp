#include "QueueWorld.h"

#include <DataSignals.h>
#include <DevsMgrData.h>
#include <download/DownloadFileName.h>
#include <DownloadTaskData.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <VMessageBox.h>

#include <QCoreApplication>
#include <QDir>
#include <QMap>
#include <QSignalSpy>
#include <QtEndian>

using vemo_data::DownloadTaskInfo;

namespace {

QByteArray box(const QByteArray& type, const QByteArray& payload)
{
    QByteArray size(4, '\0');
    qToBigEndian<quint32>(static_cast<quint32>(payload.size() + 8), size.data());
    return size + type + payload;
}

/// Zeroes but for numbers of 32 bits at these places.
QByteArray numbers(int size, const QMap<int, quint32>& values)
{
    QByteArray bytes(size, '\0');
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        qToBigEndian<quint32>(value.value(), bytes.data() + value.key());
    return bytes;
}

QByteArray tag(const QByteArray& name, const QByteArray& text)
{
    return box("----", box("mean", QByteArray(4, '\0') + "com.vemo") + box("name", QByteArray(4, '\0') + name) +
                           box("data", QByteArray("\0\0\0\1\0\0\0\0", 8) + text));
}

QByteArray utc(const QDateTime& time)
{
    return time.toUTC().toString(QStringLiteral("yyyy-MM-ddThh:mm:ss.zzzZ")).toLatin1();
}

} // namespace

QueueWorld::QueueWorld()
    : m_folder(m_world.path(QStringLiteral("videos/Downloads")))
{
    sdks.reset();
    QDir().mkpath(m_folder);
    vemo_worker::SystemConfig::instance().setVideoFilePath(m_world.path(QStringLiteral("videos")));
    vemo_worker::SystemConfig::instance().setDownloadPath(m_folder);
    for (const char* devId : {"dev", "dev2"}) {
        vemo_data::DevRecord record;
        record.devId = QLatin1String(devId);
        record.name = QStringLiteral("Recorder");
        record.address = QUrl(QStringLiteral("http://127.0.0.1:1/onvif"));
        vemo_data::DevsMgrData::instance().addSessionDev(record);
    }
    vemo_worker::SystemAssistant::instance().setPresenter(
        [this](const QString&, const QString& text) { alerts.append(text); });
    vemo_base::VMessageBox::setAnswerer([this](const QString& text) {
        questions.append(text);
        if (whileAsked)
            whileAsked();
        return answer;
    });
}

QueueWorld::~QueueWorld()
{
    settle();
    vemo_base::VMessageBox::setAnswerer({});
    vemo_worker::SystemAssistant::instance().setPresenter({});
    for (const char* devId : {"dev", "dev2"})
        vemo_data::DevsMgrData::instance().removeDev(QLatin1String(devId));
}

QDateTime QueueWorld::at(int hour, int minute, int second)
{
    return QDateTime(QDate(2026, 1, 10), QTime(hour, minute, second));
}

DownloadTaskInfo QueueWorld::task(const QString& key, int channel)
{
    DownloadTaskInfo task;
    task.taskId = key;
    task.channelId = QStringLiteral("dev|%1").arg(channel);
    task.channelName = QStringLiteral("Gate %1").arg(channel);
    task.devLabel = QStringLiteral("Recorder");
    task.channelNo = channel;
    task.beginTime = at(8);
    task.endTime = at(9);
    task.durationMs = vemo_data::spanMs(task.beginTime, task.endTime);
    task.downloadMode = vemo_data::DownloadByTimeRange;
    task.savePath = vemo_filesCenter::downloadFileName(task);
    return task;
}

QString QueueWorld::writeFile(const QString& path, int bytes) const
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray(bytes, 'x')) != bytes)
        qFatal("%s can't be written", qPrintable(path));
    return path;
}

QString QueueWorld::writeRecording(const QString& path, const QDateTime& begin, const QDateTime& end) const
{
    QByteArray tags = tag("com.vemo.start", utc(begin));
    if (end.isValid())
        tags += tag("com.vemo.end", utc(end));
    const qint64 lengthMs = end.isValid() ? begin.msecsTo(end) : 1000;
    const QByteArray track = box("tkhd", numbers(84, {{12, 1}})) + box("mdia", box("mdhd", numbers(24, {{12, 1000}})));
    const QByteArray movie = box("mvhd", numbers(100, {{12, 1000}, {16, static_cast<quint32>(lengthMs)}})) +
                             box("trak", track) + box("udta", box("meta", QByteArray(4, '\0') + box("ilst", tags)));
    QFile file(path);
    const QByteArray bytes = box("ftyp", "isom") + box("mdat", QByteArray(500, 'm')) + box("moov", movie);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s can't be written", qPrintable(path));
    return path;
}

QHash<QString, DownloadTaskInfo> QueueWorld::stored()
{
    QHash<QString, DownloadTaskInfo> tasks;
    for (const DownloadTaskInfo& task : vemo_data::DownloadTaskData::instance().getAllDownloadTasks())
        tasks.insert(task.taskId, task);
    return tasks;
}

void QueueWorld::store(const QList<DownloadTaskInfo>& tasks)
{
    vemo_data::DownloadTaskData::instance().addDownloadTasks(tasks);
    settle();
}

void QueueWorld::settle()
{
    // What is announced may lead to more writes.
    for (int round = 0; round < 4; ++round) {
        vemo_data::DownloadTaskData::instance().flush();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}
