#include "OnvifTime.h"

#include <QDateTime>
#include <QRegularExpression>

namespace vms_sdk::onvif {

std::optional<qint64> parseDateTime(const QString& text)
{
    // Not Qt::ISODate: devices send fractions of any length, and QDateTime reads a missing zone as local time.
    static const QRegularExpression pattern(
        QStringLiteral("^(\\d{4})-(\\d\\d)-(\\d\\d)T(\\d\\d):(\\d\\d):(\\d\\d)(?:\\.(\\d{1,18}))?"
                       "(Z|[+-]\\d\\d:\\d\\d)?$"));
    if (text.size() > 64)
        return std::nullopt;
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    const QDate date(match.capturedRef(1).toInt(), match.capturedRef(2).toInt(), match.capturedRef(3).toInt());
    const int hour = match.capturedRef(4).toInt();
    const int minute = match.capturedRef(5).toInt();
    const int second = match.capturedRef(6).toInt();
    // 24:00:00 is midnight of the next day, second 60 a leap second; both are legal.
    if (!date.isValid() || hour > 24 || minute > 59 || second > 60)
        return std::nullopt;
    const int millisecond = match.captured(7).leftJustified(3, QLatin1Char('0')).left(3).toInt();
    qint64 offsetMinutes = 0;
    const QString zone = match.captured(8);
    if (zone.size() == 6) {
        offsetMinutes = zone.midRef(1, 2).toInt() * 60 + zone.midRef(4, 2).toInt();
        if (zone.at(0) == QLatin1Char('-'))
            offsetMinutes = -offsetMinutes;
    }
    const qint64 midnight = QDateTime(date, QTime(0, 0), Qt::UTC).toMSecsSinceEpoch();
    return midnight + ((qint64(hour) * 60 + minute - offsetMinutes) * 60 + second) * 1000 + millisecond;
}

QString formatDateTime(qint64 utcMs)
{
    return QDateTime::fromMSecsSinceEpoch(utcMs, Qt::UTC).toString(Qt::ISODateWithMs);
}

} // namespace vms_sdk::onvif
