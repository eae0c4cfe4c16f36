#pragma once

#include "vemo_base_global.h"

#include <VmsTypes.h>

#include <QCoreApplication>
#include <QPair>
#include <QString>

class QDate;
class QDateTime;
class QTableWidget;
class QWidget;

namespace vemo_base {

/// Texts and look-ups that every page needs. One object a process, without state of its own; GUI thread.
class VEMO_BASE_EXPORT BaseTools final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_base::BaseTools)

public:
    BaseTools(const BaseTools&) = delete;
    BaseTools& operator=(const BaseTools&) = delete;

    static BaseTools& instance();

    /// Splits a channel id, "devId|channelNo", into its parts; an empty device id and 0 when it is not one.
    QPair<QString, int> formatChannelId(const QString& channelId) const;
    QString formatChannelId(const QString& devId, int channelNo) const;

    /// The channel's current name: what the device calls it, else "Channel n"; empty when its device is not known.
    QString getChannelName(const QString& channelId) const;
    QString getChannelName(const QString& devId, int channelNo) const;
    /// An empty devId when the device is not known.
    vms_sdk::DevInfo getDevInfo(const QString& devId) const;
    /// The channel is still in the client. A device whose channels were never read is given the benefit of the doubt.
    bool isVideoExist(const QString& channelId) const;

    /// Display text of a recording location: 0 device, 1 platform storage, 2 edge card, 3 cloud, 4 this computer.
    QString strReocordingLocation(int location) const;

    /// Both ids name the same channel of the same device; false when either is no channel id.
    bool isSameChannel(const QString& channelId, const QString& otherChannelId) const;

    /// The date in the person's format, with the day of the week ahead of it when asked; empty for an invalid one.
    QString strDate(const QDate& date, bool withWeekday) const;
    /// Date in the person's format and clock time, "2026-01-10 08:00:00", with milliseconds when asked; empty for an
    /// invalid one. In an hour that the clocks run through twice the offset from UTC follows, unless `plain`.
    QString strDatetime(const QDateTime& time, bool plain, bool withMs) const;
    /// "2026-01-08 08:00:00~08:31:00"; the end's date only where it is another one.
    QString strTimeRange(const QDateTime& begin, const QDateTime& end) const;
    /// The time that passed from `begin` to `end` as "hh:mm:ss", hours beyond 24 included; "00:00:00" when none did.
    QString get2DatetimeIntervalTime(const QDateTime& begin, const QDateTime& end) const;

    /// The client's natural order of names: "Channel 2" before "Channel 10", see NaturalOrder.
    bool strLessThan(const QString& one, const QString& other) const;

    /// The window or page-wide widget that boxes over `widget` belong to.
    QWidget* getRootParentWt(QWidget* widget) const;
    /// Numbers the rows of the order-number column, column 0, from `firstNumber` on. A TableWidget paints its numbers,
    /// so there it costs nothing.
    void updateTableOrderNum(QTableWidget* table, int firstNumber) const;

private:
    BaseTools() = default;
};

} // namespace vemo_base
