#include "TimeText.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace vemo_client {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::TimeText", text);
}

/// The first of two equal wall clock times, where clocks were set back.
QDateTime firstOfTwo(const QDateTime& time)
{
    constexpr int halfHour = 1800;
    for (int shift = 4 * halfHour; shift > 0; shift -= halfHour) {
        const QDateTime earlier = QDateTime::fromMSecsSinceEpoch(time.toMSecsSinceEpoch() - shift * 1000LL);
        if (earlier.date() == time.date() && earlier.time() == time.time())
            return earlier;
    }
    return time;
}

} // namespace

TimeText::Parsed TimeText::parse(const QString& text)
{
    static const QRegularExpression form(QStringLiteral(
        "^(\\d{4}-\\d{2}-\\d{2})[T ](\\d{2}:\\d{2})(:\\d{2})?(?:[.,](\\d{1,9}))?(Z|[+-]\\d{2}:?\\d{2})?\\z"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch() || (!match.captured(4).isEmpty() && match.captured(3).isEmpty()))
        return {{}, tr("\"%1\" is not a time; write it as 2026-01-10T08:00:00.").arg(text.left(64))};

    const QDate date = QDate::fromString(match.captured(1), Qt::ISODate);
    const QString clock = match.captured(2) % (match.captured(3).isEmpty() ? QStringLiteral(":00") : match.captured(3));
    QTime time = QTime::fromString(clock, QStringLiteral("HH:mm:ss"));
    if (!date.isValid() || !time.isValid())
        return {{}, tr("There is no such time as \"%1\".").arg(text)};
    time = time.addMSecs(match.captured(4).leftJustified(3, QLatin1Char('0')).leftRef(3).toInt());

    QString zone = match.captured(5);
    if (zone.isEmpty()) {
        const QDateTime local(date, time, Qt::LocalTime);
        if (!local.isValid())
            return {{}, tr("\"%1\" does not exist on this computer's clock: summer time begins then.").arg(text)};
        return {firstOfTwo(local), {}};
    }
    int offset = 0;
    if (zone != QLatin1String("Z")) {
        zone.remove(QLatin1Char(':'));
        const int hours = zone.midRef(1, 2).toInt();
        const int minutes = zone.midRef(3, 2).toInt();
        constexpr int widestOffset = 14;
        if (hours > widestOffset || minutes > 59)
            return {{}, tr("\"%1\" has an offset that no place on earth has.").arg(text)};
        offset = (hours * 60 + minutes) * 60 * (zone.at(0) == QLatin1Char('-') ? -1 : 1);
    }
    return {QDateTime(date, time, Qt::OffsetFromUTC, offset).toLocalTime(), {}};
}

QString TimeText::iso(const QDateTime& time)
{
    const QDateTime local = time.toLocalTime();
    return local.toOffsetFromUtc(local.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

QString TimeText::plain(const QDateTime& time)
{
    return time.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

} // namespace vemo_client
