#include "LocalRecordingsQuery.h"

#include "DownloadFileName.h"

#include <DevsMgrData.h>
#include <IndexesInfoResult.h>
#include <LocalRecordingIndexes.h>

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

namespace vemo_filesCenter {

bool findLocalRecordings(const QString& devId, int channelNo, const QDateTime& begin, const QDateTime& end,
                         QList<VCOMMON::LocalRecordingIndexInfo>* records, QObject* parent)
{
    const QString requestId = QUuid::createUuid().toString();
    auto* result = new VCOMMON::IndexesInfoResult(requestId, parent);
    QEventLoop loop;
    bool answered = false;
    QObject::connect(result, &VCOMMON::IndexesInfoResult::signalIndexesInfoResult, &loop,
                     [&](const QList<VCOMMON::LocalRecordingIndexInfo>& found) {
                         *records = found;
                         answered = true;
                         loop.quit();
                     });

    VCOMMON::ChannelInfo channel;
    channel.devId = devId;
    channel.channelNo = channelNo;
    channel.devLabel = vemo_data::DevsMgrData::instance().getDevInfoById(devId).name;
    emit VCOMMON::LocalRecordingIndexes::instance().signalGetChannelsLocalRecordingIndexesInfo(requestId, {channel},
                                                                                               begin, end, 0);
    if (!answered)
        loop.exec();
    result->deleteLater();
    return answered;
}

QByteArray cuttingList(const QDateTime& begin, const QDateTime& end,
                       const QList<VCOMMON::LocalRecordingIndexInfo>& records)
{
    QJsonObject list{
        {QStringLiteral("begin_time"), compactTime(begin)},
        {QStringLiteral("end_time"), compactTime(end)},
        {QStringLiteral("play_time"), compactTime(begin)},
    };
    QJsonArray files;
    for (const VCOMMON::LocalRecordingIndexInfo& record : records) {
        files.append(QJsonObject{
            {QStringLiteral("file_path"), record.filePath},
            {QStringLiteral("begin_time"), compactTime(record.beginTime)},
            {QStringLiteral("end_time"), compactTime(record.endTime)},
        });
    }
    if (!files.isEmpty())
        list.insert(QStringLiteral("records"), files);
    return QJsonDocument(list).toJson(QJsonDocument::Compact);
}

} // namespace vemo_filesCenter
