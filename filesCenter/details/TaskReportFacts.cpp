#include "TaskReportFacts.h"

#include <vaws_download.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vemo_filesCenter {

namespace {

constexpr int mostGaps = 10000;
constexpr int longestText = 1024;
constexpr int widestPicture = 32768;

QDateTime timeOf(const QJsonValue& value)
{
    const QDateTime time = QDateTime::fromString(value.toString(), Qt::ISODateWithMs);
    return time.isValid() ? time.toLocalTime() : QDateTime();
}

QString textOf(const QJsonValue& value)
{
    return value.toString().left(longestText);
}

qint64 countOf(const QJsonValue& value)
{
    constexpr double largest = 9007199254740992.0; // 2^53
    return static_cast<qint64>(qBound(0.0, value.toDouble(), largest));
}

} // namespace

TaskReportFacts TaskReportFacts::parse(const QByteArray& report)
{
    TaskReportFacts facts;
    const QJsonDocument document = QJsonDocument::fromJson(report);
    if (!document.isObject())
        return facts;
    const QJsonObject object = document.object();
    const auto value = [&object](const char* name) { return object.value(QLatin1String(name)); };
    facts.isKnown = true;
    facts.error = textOf(value("error"));
    facts.begin = timeOf(value("begin"));
    facts.end = timeOf(value("end"));
    facts.askedBegin = timeOf(value("asked_begin"));
    facts.askedEnd = timeOf(value("asked_end"));
    facts.bytes = countOf(value("bytes"));
    facts.lostFrames = countOf(value("lost"));
    facts.video = textOf(value("video"));
    facts.audio = textOf(value("audio"));
    facts.pictureSize =
        QSize(qBound(0, value("width").toInt(), widestPicture), qBound(0, value("height").toInt(), widestPicture));
    facts.verified = value("verified").toBool();
    facts.isLeftOpen = value("event").toInt() == VAWS_EVENT_WRITE_ERROR && facts.bytes > 0 &&
                       !value("files").toArray().contains(value("path"));
    const QJsonArray gaps = value("gaps").toArray();
    for (const QJsonValue& entry : gaps) {
        const QJsonObject gap = entry.toObject();
        const ReportedGap read{timeOf(gap.value(QLatin1String("begin"))), timeOf(gap.value(QLatin1String("end"))),
                               textOf(gap.value(QLatin1String("cause")))};
        if (read.begin.isValid() && read.end > read.begin && facts.gaps.size() < mostGaps)
            facts.gaps.append(read);
    }
    return facts;
}

} // namespace vemo_filesCenter
