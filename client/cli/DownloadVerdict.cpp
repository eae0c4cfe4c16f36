#include "DownloadVerdict.h"

#include "TimeText.h"

#include <vaws_download.h>

#include <QCoreApplication>
#include <QDir>

namespace vemo_client {

namespace {

/// Two pictures of a slow camera; what is lost beyond that is told.
constexpr qint64 toleranceMs = 1000;
constexpr qint64 oneGiB = 1024LL * 1024 * 1024;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::DownloadVerdict", text);
}

QString sentence(const DownloadFacts& facts, const QString& text)
{
    const QString whole = facts.place.text % QLatin1String(": ") % text;
    return whole.endsWith(QLatin1Char('.')) ? whole : QString(whole % QLatin1Char('.'));
}

QString reasonOr(const QString& reason, const QString& otherwise)
{
    return reason.isEmpty() ? otherwise : reason;
}

QString pathText(const DownloadFacts& facts)
{
    return QDir::toNativeSeparators(facts.report.path);
}

Outcome refusedAtStart(const DownloadFacts& facts)
{
    if (facts.freeBytes >= 0 && facts.freeBytes < oneGiB)
        return {ExitCode::Disk,
                sentence(facts, tr("less than 1 GiB is free on the disk of the file, so the download was not begun."))};
    return {ExitCode::Failed, sentence(facts, reasonOr(facts.report.error, tr("the download could not be begun.")))};
}

Outcome finished(const DownloadFacts& facts)
{
    if (!facts.listed)
        return {};
    QList<Span> lost;
    for (const DownloadReport::Gap& gap : facts.report.gaps) {
        if (gap.cause == QLatin1String("lost in transfer"))
            lost.append({gap.begin, gap.end});
    }
    const QList<Span> missing =
        missingFootage(*facts.listed, facts.asked, {facts.report.begin, facts.report.end}, lost, toleranceMs);
    if (missing.isEmpty())
        return {};
    const QString first =
        tr("%1 to %2").arg(TimeText::plain(missing.constFirst().begin), TimeText::plain(missing.constFirst().end));
    const QString more = missing.size() > 1 ? tr(" and %1 more").arg(missing.size() - 1) : QString();
    return {ExitCode::Incomplete,
            sentence(facts, tr("the recorder has footage of %1%2 that did not arrive; what arrived is in %3.")
                                .arg(first, more, pathText(facts)))};
}

Outcome brokenOff(const DownloadFacts& facts)
{
    const DownloadReport& report = facts.report;
    if (report.frames > 0)
        return {ExitCode::Incomplete,
                sentence(facts, tr("the stream broke off at %1; what arrived until then is in %2.")
                                    .arg(TimeText::plain(report.end), pathText(facts)))};
    if (facts.streamError)
        return Failures::of(facts.streamError, facts.place);
    return {ExitCode::Failed,
            sentence(facts, reasonOr(report.error, tr("the stream broke off before the first picture.")))};
}

Outcome noData(const DownloadFacts& facts)
{
    if (facts.streamError && facts.streamError.kind != vms_sdk::ErrorKind::NotFound)
        return Failures::of(facts.streamError, facts.place);
    if (facts.listed)
        return {ExitCode::Failed,
                sentence(facts, tr("the recorder lists recordings for the span, but sent no picture of them."))};
    return {ExitCode::NoRecording,
            sentence(facts, tr("the recorder sent nothing for %1 to %2.")
                                .arg(TimeText::plain(facts.asked.begin), TimeText::plain(facts.asked.end)))};
}

} // namespace

Outcome judgeDownload(const DownloadFacts& facts)
{
    const DownloadReport& report = facts.report;
    if (facts.refused)
        return refusedAtStart(facts);
    if (report.event == VAWS_EVENT_FINISHED)
        return finished(facts);
    if (report.event == VAWS_EVENT_WRITE_ERROR)
        return {ExitCode::Disk,
                sentence(facts, reasonOr(report.error, tr("%1 can't be written.").arg(pathText(facts))))};
    if (report.event == VAWS_EVENT_DISK_LOW)
        return {ExitCode::Disk, sentence(facts, reasonOr(report.error, tr("the disk is full.")))};
    if (facts.listed && facts.listed->isEmpty() && report.frames == 0)
        return {ExitCode::NoRecording,
                sentence(facts, tr("no recording from %1 to %2.")
                                    .arg(TimeText::plain(facts.asked.begin), TimeText::plain(facts.asked.end)))};
    switch (report.event) {
    case VAWS_EVENT_BROKEN:
        return brokenOff(facts);
    case VAWS_EVENT_NO_DATA:
        return noData(facts);
    case VAWS_EVENT_LOGIN_FAILED:
        return {ExitCode::LoginRefused,
                sentence(facts, reasonOr(facts.streamError.message, tr("the recorder refused the login.")))};
    case VAWS_EVENT_LIMIT_REACHED:
        return {ExitCode::LimitReached,
                sentence(facts, reasonOr(facts.streamError.message,
                                         tr("the recorder serves no further stream at the moment.")))};
    case VAWS_EVENT_CONNECT_FAILED:
        if (facts.streamError)
            return Failures::of(facts.streamError, facts.place);
        return {ExitCode::Unreachable, sentence(facts, tr("the stream could not be opened."))};
    default:
        break;
    }
    return {ExitCode::Failed, sentence(facts, reasonOr(report.error, tr("the download failed.")))};
}

} // namespace vemo_client
