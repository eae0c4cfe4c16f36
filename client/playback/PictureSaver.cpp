#include "PictureSaver.h"

#include <BaseTools.h>
#include <DevsMgrData.h>
#include <LocalSnapImageIndexes.h>
#include <Notices.h>
#include <SnapImageWriter.h>
#include <SystemConfig.h>

#include <QFileInfo>
#include <QThreadPool>

namespace vemo_client {

namespace {

using VCOMMON::SnapImageFacts;
using VCOMMON::SnapImageWriter;
using vemo_base::Notice;

constexpr qint64 nsAMs = 1'000'000;

} // namespace

void PictureSaver::save(const ChannelRef& channel, const QImage& picture, qint64 utcNs)
{
    if (picture.isNull())
        return;
    const vemo_worker::SystemConfig& config = vemo_worker::SystemConfig::instance();
    const auto format =
        config.snapshotFormat() == QLatin1String("BMP") ? SnapImageWriter::Format::Bmp : SnapImageWriter::Format::Jpeg;
    SnapImageFacts facts;
    facts.captureTime = QDateTime::fromMSecsSinceEpoch(utcNs / nsAMs);
    facts.channelName = vemo_base::BaseTools::instance().getChannelName(channel.devId, channel.channelNo);
    facts.channelNo = channel.channelNo;
    facts.devName = vemo_data::DevsMgrData::instance().getDevInfoById(channel.devId).name;
    facts.devId = channel.devId;
    const QString path = config.getLocalSnapshotPath() + QLatin1Char('/') +
                         SnapImageWriter::fileName(facts.channelName, facts.captureTime, format);
    QThreadPool::globalInstance()->start([path, picture, facts, format] {
        const SnapImageWriter::Result result = SnapImageWriter::write(path, picture, facts, format);
        const qint64 bytes = result.ok() ? QFileInfo(result.path).size() : 0;
        QMetaObject::invokeMethod(
            &vemo_base::Notices::instance(),
            [result, facts, bytes] {
                Notice notice;
                notice.kind = result.ok() ? Notice::Kind::Success : Notice::Kind::Error;
                notice.title = result.ok() ? PictureSaver::tr("Snapshot saved")
                                           : PictureSaver::tr("The snapshot could not be saved");
                notice.text = result.ok() ? QFileInfo(result.path).fileName() : result.error;
                vemo_base::Notices::instance().add(notice);
                if (!result.ok())
                    return;
                VCOMMON::LocalSnapImageIndexInfo info;
                info.devId = facts.devId;
                info.channelNo = facts.channelNo;
                info.channelName = facts.channelName;
                info.devName = facts.devName;
                info.captureTime = facts.captureTime;
                info.filePath = result.path;
                info.bytes = bytes;
                VCOMMON::LocalSnapImageIndexes::instance().addLocalSnapImageIndex(info);
            },
            Qt::QueuedConnection);
    });
}

} // namespace vemo_client
