#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QSize>
#include <QString>
#include <QVector>

namespace vemo_filesCenter {

struct ReportedGap
{
    QDateTime begin; ///< local
    QDateTime end;
    QString cause; ///< "not recorded", "lost in transfer"
};

/// What the download library reported of a task at its end, read from the JSON of vaws_download_get_report. A plain
/// value; a field that the report lacks, or that makes no sense, stays empty.
struct TaskReportFacts
{
    bool isKnown = false;
    QString error;
    QDateTime begin; ///< of the footage in the file; local, as the rest
    QDateTime end;
    QDateTime askedBegin;
    QDateTime askedEnd;
    qint64 bytes = 0;
    qint64 lostFrames = 0;
    QVector<ReportedGap> gaps;
    QString video; ///< as "h264"; empty: none
    QString audio;
    QSize pictureSize;
    bool verified = false;   ///< the finished file was read back
    bool isLeftOpen = false; ///< a write failed, and the file could not be finished

    static TaskReportFacts parse(const QByteArray& report);
};

} // namespace vemo_filesCenter
