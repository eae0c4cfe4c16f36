#include "BaseTools.h"

#include "NaturalOrder.h"
#include "TableWidget.h"

#include <DevsMgrData.h>
#include <SystemConfig.h>

#include <QDateTime>
#include <QLocale>

#include <algorithm>

namespace vemo_base {

namespace {

const QChar separator(QLatin1Char('|'));

/// When clocks go back, the same clock time comes once more an hour before or after.
bool isInDoubledHour(const QDateTime& time)
{
    constexpr qint64 hour = 3600;
    return time.addSecs(hour).time() == time.time() || time.addSecs(-hour).time() == time.time();
}

} // namespace

BaseTools& BaseTools::instance()
{
    static BaseTools tools;
    return tools;
}

QPair<QString, int> BaseTools::formatChannelId(const QString& channelId) const
{
    const int at = channelId.lastIndexOf(separator);
    bool isNumber = false;
    const int channelNo = channelId.mid(at + 1).toInt(&isNumber);
    if (at <= 0 || !isNumber || channelNo < 0)
        return {QString(), 0};
    return {channelId.left(at), channelNo};
}

QString BaseTools::formatChannelId(const QString& devId, int channelNo) const
{
    return devId + separator + QString::number(channelNo);
}

QString BaseTools::getChannelName(const QString& channelId) const
{
    const QPair<QString, int> parts = formatChannelId(channelId);
    return getChannelName(parts.first, parts.second);
}

QString BaseTools::getChannelName(const QString& devId, int channelNo) const
{
    const vemo_data::DevsMgrData& devs = vemo_data::DevsMgrData::instance();
    if (!devs.contains(devId))
        return {};
    const QList<vms_sdk::ChannelInfo> channels = devs.channels(devId);
    for (const vms_sdk::ChannelInfo& channel : channels) {
        if (channel.channelNo == channelNo && !channel.name.isEmpty())
            return channel.name;
    }
    return tr("Channel %1").arg(channelNo);
}

vms_sdk::DevInfo BaseTools::getDevInfo(const QString& devId) const
{
    return vemo_data::DevsMgrData::instance().getDevInfoById(devId);
}

bool BaseTools::isVideoExist(const QString& channelId) const
{
    const QPair<QString, int> parts = formatChannelId(channelId);
    const vemo_data::DevsMgrData& devs = vemo_data::DevsMgrData::instance();
    if (parts.first.isEmpty() || !devs.contains(parts.first))
        return false;
    const QList<vms_sdk::ChannelInfo> channels = devs.channels(parts.first);
    return channels.isEmpty() || std::any_of(channels.cbegin(), channels.cend(), [&parts](const auto& channel) {
               return channel.channelNo == parts.second;
           });
}

QString BaseTools::strReocordingLocation(int location) const
{
    switch (location) {
    case 0:
        return tr("Device");
    case 1:
        return tr("Platform Storage");
    case 2:
        return tr("Edge Card");
    case 3:
        return tr("Cloud");
    case 4:
        return tr("This Computer");
    default:
        return tr("Unknown");
    }
}

bool BaseTools::isSameChannel(const QString& channelId, const QString& otherChannelId) const
{
    const QPair<QString, int> parts = formatChannelId(channelId);
    return !parts.first.isEmpty() && parts == formatChannelId(otherChannelId);
}

QString BaseTools::strDate(const QDate& date, bool withWeekday) const
{
    if (!date.isValid())
        return {};
    const QString text = date.toString(vemo_worker::SystemConfig::instance().getDateFormat());
    return withWeekday ? QLocale().dayName(date.dayOfWeek(), QLocale::ShortFormat) + QLatin1Char(' ') + text : text;
}

QString BaseTools::strDatetime(const QDateTime& time, bool plain, bool withMs) const
{
    if (!time.isValid())
        return {};
    const QString clock = time.toString(withMs ? QStringLiteral("hh:mm:ss.zzz") : QStringLiteral("hh:mm:ss"));
    const QString text = strDate(time.date(), false) + QLatin1Char(' ') + clock;
    return plain || !isInDoubledHour(time)
               ? text
               : text + QLatin1Char(' ') + time.toOffsetFromUtc(time.offsetFromUtc()).toString(QStringLiteral("t"));
}

QString BaseTools::strTimeRange(const QDateTime& begin, const QDateTime& end) const
{
    if (!begin.isValid() || !end.isValid())
        return {};
    const QString last =
        begin.date() == end.date() ? end.toString(QStringLiteral("hh:mm:ss")) : strDatetime(end, true, false);
    return strDatetime(begin, true, false) + QLatin1Char('~') + last;
}

QString BaseTools::get2DatetimeIntervalTime(const QDateTime& begin, const QDateTime& end) const
{
    const qint64 seconds = begin.isValid() && end.isValid() ? qMax<qint64>(0, begin.secsTo(end)) : 0;
    constexpr qint64 minute = 60;
    constexpr qint64 hour = 60 * minute;
    const auto twoDigits = [](qint64 number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
    return twoDigits(seconds / hour) + QLatin1Char(':') + twoDigits(seconds % hour / minute) + QLatin1Char(':') +
           twoDigits(seconds % minute);
}

bool BaseTools::strLessThan(const QString& one, const QString& other) const
{
    return NaturalOrder::lessThan(one, other);
}

QWidget* BaseTools::getRootParentWt(QWidget* widget) const
{
    return widget ? widget->window() : nullptr;
}

void BaseTools::updateTableOrderNum(QTableWidget* table, int firstNumber) const
{
    if (auto* painted = qobject_cast<TableWidget*>(table)) {
        painted->setFirstOrderNumber(firstNumber);
        return;
    }
    for (int row = 0; table && row < table->rowCount(); ++row) {
        if (QTableWidgetItem* item = table->item(row, 0))
            item->setText(QString::number(firstNumber + row));
    }
}

} // namespace vemo_base
