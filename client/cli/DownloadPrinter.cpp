#include "DownloadPrinter.h"

#include "Terminal.h"
#include "TimeText.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace vemo_client {

namespace {

constexpr double megabyte = 1e6;
constexpr int barWidth = 28;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::DownloadPrinter", text);
}

double rounded(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

QByteArray line(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QString stateOf(const ChannelDownload& download)
{
    switch (download.outcome().code) {
    case ExitCode::Done:
        return QStringLiteral("done");
    case ExitCode::Incomplete:
        return QStringLiteral("incomplete");
    case ExitCode::Interrupted:
        return QStringLiteral("interrupted");
    default:
        return QStringLiteral("failed");
    }
}

QJsonValue timeOrNull(const QDateTime& time)
{
    return time.isValid() ? QJsonValue(TimeText::iso(time)) : QJsonValue();
}

double averageRate(const ChannelDownload& download)
{
    return download.seconds() > 0 ? double(download.report().bytes) / megabyte / download.seconds() : 0;
}

} // namespace

DownloadPrinter::DownloadPrinter(bool json)
    : m_json(json)
    , m_bar(!json && Terminal::isErrorTerminal())
{}

QString DownloadPrinter::duration(int seconds)
{
    const QString rest = QStringLiteral("%1:%2")
                             .arg(seconds / 60 % 60, seconds < 3600 ? 1 : 2, 10, QLatin1Char('0'))
                             .arg(seconds % 60, 2, 10, QLatin1Char('0'));
    return seconds < 3600 ? rest : QString::number(seconds / 3600) + QLatin1Char(':') + rest;
}

void DownloadPrinter::progress(const QList<ChannelDownload*>& downloads)
{
    if (m_bar) {
        bar(downloads);
        return;
    }
    if (!m_json)
        return;
    for (const ChannelDownload* download : downloads) {
        if (download->isFinished() || !download->isStarted())
            continue;
        const ChannelDownload::Progress& progress = download->progress();
        QJsonObject object{{QStringLiteral("state"), QStringLiteral("running")},
                           {QStringLiteral("channel"), download->channelNo()},
                           {QStringLiteral("percent"), rounded(progress.fraction * 100, 1)},
                           {QStringLiteral("bytes"), progress.bytes},
                           {QStringLiteral("rate_mb_s"), rounded(progress.bytesPerSecond / megabyte, 1)}};
        object.insert(QStringLiteral("seconds_left"),
                      progress.secondsLeft < 0 ? QJsonValue() : QJsonValue(progress.secondsLeft));
        Terminal::out(QString::fromUtf8(line(object)));
    }
}

void DownloadPrinter::bar(const QList<ChannelDownload*>& downloads)
{
    double fraction = 0;
    double rate = 0;
    int left = -1;
    int running = 0;
    for (const ChannelDownload* download : downloads) {
        fraction += download->isFinished() ? 1 : download->progress().fraction;
        if (download->isFinished())
            continue;
        ++running;
        rate += download->progress().bytesPerSecond;
        left = qMax(left, download->progress().secondsLeft);
    }
    fraction /= qMax(1, downloads.size());
    const int filled = int(fraction * barWidth);
    QString text = QLatin1Char('[') % QString(filled, QLatin1Char('#')) % QString(barWidth - filled, QLatin1Char('-')) %
                   QLatin1String("] ") % QStringLiteral("%1%").arg(int(fraction * 100), 3) %
                   QStringLiteral("  %1 MB/s").arg(rate / megabyte, 0, 'f', 1);
    if (left >= 0)
        text += QLatin1String("  ") % tr("%1 left").arg(duration(left));
    if (downloads.size() > 1)
        text += QLatin1String("  ") % tr("%1 of %2 running").arg(running).arg(downloads.size());
    Terminal::errorStatus(text);
    m_barShown = true;
}

void DownloadPrinter::clear()
{
    if (m_barShown)
        Terminal::errorStatus(QString());
    m_barShown = false;
}

QByteArray DownloadPrinter::resultJson(const ChannelDownload& download)
{
    const DownloadReport& report = download.report();
    QJsonArray gaps;
    for (const DownloadReport::Gap& gap : report.gaps)
        gaps.append(QJsonObject{{QStringLiteral("begin"), timeOrNull(gap.begin)},
                                {QStringLiteral("end"), timeOrNull(gap.end)},
                                {QStringLiteral("cause"), gap.cause}});
    QJsonObject object{{QStringLiteral("state"), stateOf(download)},
                       {QStringLiteral("exit"), static_cast<int>(download.outcome().code)},
                       {QStringLiteral("channel"), download.channelNo()},
                       {QStringLiteral("path"), report.frames > 0 ? QJsonValue(report.path) : QJsonValue()},
                       {QStringLiteral("bytes"), report.bytes},
                       {QStringLiteral("begin"), timeOrNull(report.begin)},
                       {QStringLiteral("end"), timeOrNull(report.end)},
                       {QStringLiteral("gaps"), gaps},
                       {QStringLiteral("seconds"), rounded(download.seconds(), 3)},
                       {QStringLiteral("rate_mb_s"), rounded(averageRate(download), 1)},
                       {QStringLiteral("video"), report.video},
                       {QStringLiteral("audio"), report.audio},
                       {QStringLiteral("frames"), report.frames},
                       {QStringLiteral("lost"), report.lost},
                       {QStringLiteral("verified"), report.verified},
                       {QStringLiteral("compared"), download.isCompared()}};
    if (!report.files.isEmpty())
        object.insert(QStringLiteral("files"), QJsonArray::fromStringList(report.files));
    if (!download.outcome().sentence.isEmpty())
        object.insert(QStringLiteral("error"), download.outcome().sentence);
    return line(object);
}

void DownloadPrinter::result(const ChannelDownload& download)
{
    clear();
    if (!download.outcome().sentence.isEmpty())
        Terminal::error(download.outcome().sentence);
    if (m_json) {
        Terminal::out(QString::fromUtf8(resultJson(download)));
        return;
    }
    const DownloadReport& report = download.report();
    if (report.frames == 0)
        return;
    Terminal::out(QDir::toNativeSeparators(report.path));
    QStringList codecs{report.video, report.audio};
    codecs.removeAll(QString());
    Terminal::out(QStringLiteral("  ") % tr("%1 to %2, %3 MB in %4 s (%5 MB/s), %6")
                                             .arg(TimeText::plain(report.begin), TimeText::plain(report.end))
                                             .arg(double(report.bytes) / megabyte, 0, 'f', 1)
                                             .arg(download.seconds(), 0, 'f', 2)
                                             .arg(averageRate(download), 0, 'f', 1)
                                             .arg(codecs.join(QLatin1String(" + "))));
    if (download.outcome().code == ExitCode::Done && !download.isCompared())
        Terminal::out(QStringLiteral("  ") % tr("the recorder gave no list of recordings to compare this with"));
    for (const DownloadReport::Gap& gap : report.gaps)
        Terminal::out(QStringLiteral("  ") %
                      tr("gap %1 to %2: %3").arg(TimeText::plain(gap.begin), TimeText::plain(gap.end), gap.cause));
}

} // namespace vemo_client
