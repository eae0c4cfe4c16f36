#include "RecordingFile.h"

#include "scan/Mp4Facts.h"
#include "scan/RegularFile.h"

#include <FinishedFiles.h>

#include <QFile>
#include <QFileInfo>

namespace VCOMMON {

namespace {

constexpr qint64 clockErrorMs = 24LL * 3600 * 1000; ///< a header that is further in the future is wrong

QDateTime local(qint64 utcMs)
{
    return QDateTime::fromMSecsSinceEpoch(utcMs);
}

} // namespace

void RecordingFile::take(QIODevice& device)
{
    const Mp4Facts facts = Mp4Facts::read(device);
    if (bytes == 0)
        problem = tr("The file is empty.");
    else if (!facts.isMp4)
        problem = tr("This is no MP4 file.");
    else if (facts.isCut && facts.fragments > 0)
        problem = tr("The file was not finished; what there is of it can be played.");
    else if (facts.isCut)
        problem = tr("The file is cut off: %1 of at least %2 bytes are there.").arg(bytes).arg(facts.neededBytes);
    else if (!facts.hasMovie)
        problem = tr("The index of the file is missing: it was not finished, or its end is damaged.");
    else if (facts.durationMs <= 0)
        problem = tr("The file holds no pictures.");

    channelName = facts.channelName;
    recorderName = facts.recorderName;
    if (facts.beginUtcMs >= 0) {
        source = Source::Tags;
        begin = local(facts.beginUtcMs);
        if (facts.endUtcMs > facts.beginUtcMs && facts.fragments == 0 && problem.isEmpty())
            end = local(facts.endUtcMs);
        likelyBegin = begin;
        likelyEnd = end.isValid() ? end : begin.addMSecs(facts.durationMs);
    } else if (facts.createdUtcMs >= 0 && facts.createdUtcMs <= QDateTime::currentMSecsSinceEpoch() + clockErrorMs) {
        source = Source::Header;
        likelyBegin = local(facts.createdUtcMs);
        likelyEnd = likelyBegin.addMSecs(facts.durationMs);
    } else {
        source = Source::WriteTime;
        likelyEnd = local(writtenUtcMs);
        likelyBegin = likelyEnd.addMSecs(-facts.durationMs);
    }
}

/// The name tells whose recording it is where the file does not, and its span where that would be a guess.
void RecordingFile::takeName(const QString& fileName)
{
    const std::optional<vemo_data::DownloadTaskInfo> named = vemo_data::FinishedFiles::fromName(fileName);
    if (!named) {
        if (channelName.isEmpty())
            channelName = QFileInfo(fileName).completeBaseName();
        return;
    }
    channelNo = named->channelNo;
    if (channelName.isEmpty())
        channelName = named->channelName;
    if (recorderName.isEmpty())
        recorderName = named->devLabel;
    if (source == Source::WriteTime || source == Source::Unknown) {
        source = Source::Name;
        likelyBegin = named->beginTime;
        likelyEnd = named->endTime;
    }
}

RecordingFile RecordingFile::read(const QString& path)
{
    RecordingFile found;
    QFile file(path);
    const QFileInfo info(path);
    found.bytes = info.size();
    found.writtenUtcMs = info.lastModified().toMSecsSinceEpoch();
    if (openRegularFile(file)) {
        found.bytes = file.size();
        found.take(file);
    } else {
        found.problem = info.isFile() ? tr("The file can't be read.") : tr("The file is not there.");
        found.likelyBegin = found.likelyEnd = info.lastModified();
        found.source = info.isFile() ? Source::WriteTime : Source::Unknown;
    }
    found.takeName(info.fileName());
    return found;
}

} // namespace VCOMMON
