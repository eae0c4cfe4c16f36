#include "TaskDetailsText.h"

#include "TaskReportFacts.h"

#include <axis/SpanWords.h>
#include <BaseTools.h>
#include <DownloadTaskInfo.h>
#include <TaskFactsData.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QStringList>

namespace vemo_filesCenter {

using vemo_base::SpanWords;
using vemo_data::DownloadTaskInfo;
using vemo_data::TaskFacts;

namespace {

constexpr int mostGapLines = 50;
constexpr qint64 incompleteFromMs = 1500; ///< frames don't lie on the asked instants
constexpr double mega = 1e6;
constexpr double megabyte = 1048576;

QString clock(const QDateTime& time)
{
    return time.toString(QStringLiteral("hh:mm:ss"));
}

QString span(const QDateTime& begin, const QDateTime& end)
{
    const vemo_base::BaseTools& tools = vemo_base::BaseTools::instance();
    return TaskDetailsText::tr("%1 to %2 (%3)")
        .arg(tools.strDatetime(begin, true, false),
             begin.date() == end.date() ? clock(end) : tools.strDatetime(end, true, false),
             SpanWords::length(begin.msecsTo(end)));
}

QString codecText(const QString& name)
{
    static const QHash<QString, QString> names{
        {QStringLiteral("h264"), QStringLiteral("H.264")},
        {QStringLiteral("hevc"), QStringLiteral("H.265")},
        {QStringLiteral("h265"), QStringLiteral("H.265")},
    };
    return names.value(name.toLower(), name.toUpper());
}

QString media(const TaskReportFacts& report)
{
    QStringList parts;
    if (!report.video.isEmpty())
        parts
            << codecText(report.video) +
                   (report.pictureSize.isEmpty()
                        ? QString()
                        : QStringLiteral(" %1 x %2").arg(report.pictureSize.width()).arg(report.pictureSize.height()));
    if (!report.audio.isEmpty())
        parts << codecText(report.audio);
    return parts.join(QStringLiteral(", "));
}

DetailLine received(const TaskReportFacts& report)
{
    const bool late = report.askedBegin.isValid() && report.askedBegin.msecsTo(report.begin) > incompleteFromMs;
    const bool early = report.askedEnd.isValid() && report.end.msecsTo(report.askedEnd) > incompleteFromMs;
    QString text = span(report.begin, report.end);
    if (late)
        text += TaskDetailsText::tr("; begins %1 later than asked")
                    .arg(SpanWords::length(report.askedBegin.msecsTo(report.begin)));
    if (early)
        text += TaskDetailsText::tr("; ends %1 earlier than asked")
                    .arg(SpanWords::length(report.end.msecsTo(report.askedEnd)));
    return {TaskDetailsText::tr("Received"), text, late || early ? DetailLine::Kind::Warning : DetailLine::Kind::Plain};
}

void addGaps(QVector<DetailLine>& lines, const TaskReportFacts& report)
{
    if (report.gaps.isEmpty()) {
        lines.append({TaskDetailsText::tr("Gaps"), TaskDetailsText::tr("none"), DetailLine::Kind::Good});
        return;
    }
    const vemo_base::BaseTools& tools = vemo_base::BaseTools::instance();
    QString label = TaskDetailsText::tr("Gaps");
    for (const ReportedGap& gap : report.gaps.mid(0, mostGapLines)) {
        const bool dated = gap.begin.date() != report.gaps.first().begin.date();
        const QString cause = gap.cause == QLatin1String("lost in transfer") ? TaskDetailsText::tr("lost in transfer")
                              : gap.cause == QLatin1String("not recorded")   ? TaskDetailsText::tr("not recorded")
                                                                             : gap.cause;
        lines.append({label,
                      TaskDetailsText::tr("%1 to %2, %3, %4")
                          .arg(dated ? tools.strDatetime(gap.begin, true, false) : clock(gap.begin), clock(gap.end),
                               SpanWords::length(gap.begin.msecsTo(gap.end)), cause),
                      DetailLine::Kind::Warning});
        label.clear();
    }
    if (report.gaps.size() > mostGapLines)
        lines.append(
            {{}, TaskDetailsText::tr("and %1 more").arg(report.gaps.size() - mostGapLines), DetailLine::Kind::Warning});
}

void addReport(QVector<DetailLine>& lines, const TaskReportFacts& report)
{
    if (report.begin.isValid() && report.end > report.begin)
        lines.append(received(report));
    addGaps(lines, report);
    lines.append(report.lostFrames == 0
                     ? DetailLine{TaskDetailsText::tr("Losses"), TaskDetailsText::tr("none"), DetailLine::Kind::Good}
                     : DetailLine{TaskDetailsText::tr("Losses"),
                                  TaskDetailsText::tr("%L1 frames did not arrive whole").arg(report.lostFrames),
                                  DetailLine::Kind::Warning});
    if (const QString text = media(report); !text.isEmpty())
        lines.append({TaskDetailsText::tr("Media"), text});
}

} // namespace

QString TaskDetailsText::size(qint64 bytes)
{
    return TaskDetailsText::tr("%1 MB (%L2 bytes)").arg(static_cast<double>(bytes) / megabyte, 0, 'f', 2).arg(bytes);
}

QString TaskDetailsText::nextStep(int state)
{
    switch (state) {
    case vemo_data::TaskLoginFailed:
        return TaskDetailsText::tr(
            "The recorder refused the login. It is not tried again by itself: correct user and password of the "
            "recorder, then redownload.");
    case vemo_data::TaskConnectFailed:
        return TaskDetailsText::tr(
            "The recorder could not be reached, or had no connection left. It is tried again by itself; check "
            "network and power of the recorder if that goes on.");
    case vemo_data::TaskAbnormal:
        return TaskDetailsText::tr(
            "The download broke off. What arrived is kept as a file of its own; the rest is fetched again by "
            "itself.");
    case vemo_data::TaskInvalidFile:
        return TaskDetailsText::tr(
            "The recording can't be read, or the file can't be written. It is not tried again by itself: check "
            "the download folder and its disk, then redownload.");
    case vemo_data::TaskGetUrlFailed:
        return TaskDetailsText::tr(
            "The recorder gave no address for the recording, which it may have overwritten. It is tried again by "
            "itself; search the recordings of that day to see what is left.");
    default:
        return {};
    }
}

QVector<DetailLine> TaskDetailsText::lines(const DownloadTaskInfo& task, const TaskFacts& facts)
{
    const TaskReportFacts report = TaskReportFacts::parse(facts.report);
    QVector<DetailLine> lines;
    const QString reason = facts.reason.isEmpty() ? report.error : facts.reason;
    const QString next = nextStep(task.state);
    if (!next.isEmpty()) {
        if (!reason.isEmpty())
            lines.append({TaskDetailsText::tr("Reason"), reason, DetailLine::Kind::Error});
        lines.append({reason.isEmpty() ? TaskDetailsText::tr("Reason") : TaskDetailsText::tr("What next"), next,
                      reason.isEmpty() ? DetailLine::Kind::Error : DetailLine::Kind::Plain});
    }
    lines.append({TaskDetailsText::tr("Channel"),
                  task.devLabel.isEmpty() ? task.channelName
                                          : TaskDetailsText::tr("%1 of %2").arg(task.channelName, task.devLabel)});
    lines.append({TaskDetailsText::tr("Asked"), span(task.beginTime, task.endTime)});
    if (report.isKnown)
        addReport(lines, report);
    const qint64 bytes = report.bytes > 0 ? report.bytes : task.downloadedSize;
    if (bytes > 0)
        lines.append({TaskDetailsText::tr("Size"), size(bytes)});
    if (bytes > 0 && facts.seconds > 0)
        lines.append({TaskDetailsText::tr("Rate"),
                      TaskDetailsText::tr("%1 MB/s, %2 in all")
                          .arg(static_cast<double>(bytes) / mega / facts.seconds, 0, 'f', 1)
                          .arg(facts.seconds < 1 ? TaskDetailsText::tr("less than 1 s")
                                                 : SpanWords::length(qRound64(facts.seconds * 1000)))});
    if (!task.savePath.isEmpty())
        lines.append({TaskDetailsText::tr("File"), QDir::toNativeSeparators(task.savePath), DetailLine::Kind::Path});
    if (task.state == vemo_data::TaskSucceeded)
        lines.append(
            {TaskDetailsText::tr("SHA-256"),
             facts.sha256.isEmpty() ? TaskDetailsText::tr("not summed yet") : QString::fromLatin1(facts.sha256.toHex()),
             DetailLine::Kind::Path});
    return lines;
}

QString TaskDetailsText::plainText(const QVector<DetailLine>& lines)
{
    constexpr int mostLines = 16;
    QStringList text;
    for (const DetailLine& line : lines) {
        if (line.label == TaskDetailsText::tr("SHA-256"))
            continue;
        if (text.size() == mostLines) {
            text << QStringLiteral("...");
            break;
        }
        text << (line.label.isEmpty() ? line.text : line.label + QStringLiteral(": ") + line.text);
    }
    return text.join(QLatin1Char('\n'));
}

} // namespace vemo_filesCenter
