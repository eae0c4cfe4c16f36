#include "DownloadReport.h"

#include <vaws_download.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vemo_client {

namespace {

QDateTime timeOf(const QJsonValue& value)
{
    return QDateTime::fromString(value.toString(), Qt::ISODateWithMs).toLocalTime();
}

} // namespace

DownloadReport DownloadReport::ofTask(const QString& taskId)
{
    const QByteArray id = taskId.toUtf8();
    QByteArray json(8 * 1024, Qt::Uninitialized);
    int length = vaws_download_get_report(id.constData(), json.data(), static_cast<size_t>(json.size()));
    // The report may grow between two calls, while gaps come in.
    while (length >= json.size()) {
        json.resize(2 * length);
        length = vaws_download_get_report(id.constData(), json.data(), static_cast<size_t>(json.size()));
    }
    if (length < 0)
        return {};
    json.truncate(length);
    return fromJson(json);
}

DownloadReport DownloadReport::fromJson(const QByteArray& json)
{
    DownloadReport report;
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return report;
    const QJsonObject object = document.object();
    report.known = true;
    report.event = object[QLatin1String("event")].toInt();
    report.error = object[QLatin1String("error")].toString();
    report.path = object[QLatin1String("path")].toString();
    report.bytes = static_cast<qint64>(object[QLatin1String("bytes")].toDouble());
    report.begin = timeOf(object[QLatin1String("begin")]);
    report.end = timeOf(object[QLatin1String("end")]);
    report.frames = object[QLatin1String("frames")].toInt();
    report.lost = object[QLatin1String("lost")].toInt();
    report.video = object[QLatin1String("video")].toString();
    report.audio = object[QLatin1String("audio")].toString();
    report.verified = object[QLatin1String("verified")].toBool();
    const QJsonArray files = object[QLatin1String("files")].toArray();
    for (const QJsonValue& file : files)
        report.files.append(file.toString());
    const QJsonArray gaps = object[QLatin1String("gaps")].toArray();
    for (const QJsonValue& value : gaps) {
        const QJsonObject gap = value.toObject();
        report.gaps.append({timeOf(gap[QLatin1String("begin")]), timeOf(gap[QLatin1String("end")]),
                            gap[QLatin1String("cause")].toString()});
    }
    return report;
}

} // namespace vemo_client
