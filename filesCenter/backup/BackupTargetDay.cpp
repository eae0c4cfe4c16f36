#include "BackupTargetDay.h"

#include <BackupTaskData.h>
#include <BaseTools.h>
#include <DatePopup.h>
#include <DictDef.h>
#include <SystemAssistant.h>

#include <QUuid>

namespace vemo_filesCenter {

using vemo_data::BackupTaskData;
using vemo_data::BackupTaskInfo;

namespace {

void alert(const QString& text)
{
    vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titleAlert(), text);
}

} // namespace

void BackupTargetDay::pick(QWidget* button, const QDate& date, const std::function<void(const QDate& day)>& take)
{
    auto* popup = new vemo_base::DatePopup(date, tr("Days with backup tasks"), button);
    vemo_base::DayCalendar* calendar = popup->calendar();
    const auto mark = [calendar](int year, int month) {
        const QList<int> days = BackupTaskData::instance().getBackupCalendar(year, month);
        calendar->setMarkedDays(QSet<int>(days.cbegin(), days.cend()));
    };
    QObject::connect(calendar, &QCalendarWidget::currentPageChanged, popup, mark);
    QObject::connect(popup, &vemo_base::DatePopup::signalPicked, popup, [popup, take](const QDate& day) {
        popup->close();
        take(day);
    });
    mark(calendar->yearShown(), calendar->monthShown());
    popup->showBelow(button);
}

void BackupTargetDay::apply(const QList<BackupTaskInfo>& tasks, const QDate& day)
{
    const int limit = BackupTaskData::maxBackupTasksCntOneDay();
    const int existing = BackupTaskData::instance().getBackupTasks(day).size();
    const QString dayText = vemo_base::BaseTools::instance().strDate(day, false);
    if (tasks.isEmpty() || tasks.first().date == day) {
        alert(tr("The backup tasks are those of %1, please select another day").arg(dayText));
        return;
    }
    if (existing + tasks.size() > limit) {
        alert(tr("A maximum of %1 tasks can be added in one day, %2 have been added,%3 to be added, please select "
                 "another day")
                  .arg(limit)
                  .arg(existing)
                  .arg(tasks.size()));
        return;
    }
    QList<BackupTaskInfo> copies;
    for (const BackupTaskInfo& task : tasks) {
        BackupTaskInfo copy;
        copy.taskId = QUuid::createUuid().toString();
        copy.date = day;
        copy.channelId = task.channelId;
        copy.channelName = task.channelName;
        copy.deviceNo = task.deviceNo;
        copy.channelNo = task.channelNo;
        copy.timeSegments = task.timeSegments;
        copies.append(copy);
    }
    if (BackupTaskData::instance().addBackupTasks(copies))
        alert(tr("Apply backup tasks to %1 success").arg(dayText));
}

} // namespace vemo_filesCenter
