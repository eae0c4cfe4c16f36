#include "BackupVerb.h"

#include "BackupListing.h"
#include "BackupStop.h"
#include "Terminal.h"
#include "VerbStore.h"

#include <BackupTaskData.h>
#include <BaseTools.h>

#include <QJsonDocument>
#include <QUuid>

#include <algorithm>

namespace vemo_client {

namespace {

using Action = BackupOptions::Action;
using vemo_data::BackupTaskData;
using vemo_data::BackupTaskInfo;

constexpr int stopMs = 60'000;

bool isSamePlan(const BackupTaskInfo& one, const BackupTaskInfo& other)
{
    const auto isSame = [](const vemo_data::BackupTimeSegment& a, const vemo_data::BackupTimeSegment& b) {
        return a.start == b.start && a.end == b.end;
    };
    return one.date == other.date && one.channelId == other.channelId &&
           std::equal(one.timeSegments.begin(), one.timeSegments.end(), other.timeSegments.begin(),
                      other.timeSegments.end(), isSame);
}

} // namespace

BackupVerb::BackupVerb(const CliCommand& command, QObject* parent)
    : QObject(parent)
    , m_command(command)
    , m_recorder(command)
{
    connect(&m_recorder, &StoredRecorder::signalKept, this, &BackupVerb::add);
    connect(&m_recorder, &StoredRecorder::signalFailed, this,
            [this](const Outcome& outcome) { leave(outcome.code, outcome.sentence); });
}

void BackupVerb::run()
{
    if (m_command.backup.action == Action::Stop) {
        stop();
        return;
    }
    if (!VerbStore::open(&m_exit))
        return;
    if (m_command.backup.action == Action::Add)
        m_recorder.keep();
    else
        list();
}

void BackupVerb::interrupt()
{
    leave(ExitCode::Interrupted, tr("Interrupted."));
}

void BackupVerb::stop()
{
    if (BackupStop::request(stopMs))
        leave(ExitCode::Done);
    else
        leave(ExitCode::Failed, tr("No run of the backups is at work in this data folder."));
}

void BackupVerb::list()
{
    const BackupTaskData& store = BackupTaskData::instance();
    const QDate date = m_command.backup.date;
    const QList<BackupTaskInfo> tasks = date.isValid() ? store.getBackupTasks(date) : store.getAllBackupTasks();
    if (!m_command.json && !tasks.isEmpty())
        Terminal::out(BackupListing::header());
    for (const BackupTaskInfo& task : tasks) {
        if (!m_command.channels.isEmpty() && !m_command.channels.contains(task.channelNo))
            continue;
        Terminal::out(m_command.json
                          ? QString::fromUtf8(QJsonDocument(BackupListing::object(task)).toJson(QJsonDocument::Compact))
                          : BackupListing::row(task));
    }
    leave(ExitCode::Done);
}

void BackupVerb::add()
{
    BackupTaskData& store = BackupTaskData::instance();
    const vemo_base::BaseTools& tools = vemo_base::BaseTools::instance();
    QList<BackupTaskInfo> added;
    int known = 0;
    for (int day = 0; day < m_command.backup.days; ++day) {
        const QDate date = m_command.backup.date.addDays(day);
        const QList<BackupTaskInfo> planned = store.getBackupTasks(date);
        for (const int channelNo : m_command.channels) {
            BackupTaskInfo task;
            task.taskId = QUuid::createUuid().toString();
            task.date = date;
            task.channelId = tools.formatChannelId(m_recorder.devId(), channelNo);
            task.channelName = tools.getChannelName(task.channelId);
            task.deviceNo = m_recorder.devId();
            task.channelNo = channelNo;
            task.timeSegments = m_command.backup.segments;
            const bool isThere = std::any_of(planned.begin(), planned.end(),
                                             [&task](const BackupTaskInfo& other) { return isSamePlan(task, other); });
            if (isThere)
                ++known;
            else
                added.append(task);
        }
    }
    if (!added.isEmpty() && !store.addBackupTasks(added)) {
        leave(ExitCode::Failed,
              tr("No task was added: a day has at most %1.").arg(BackupTaskData::maxBackupTasksCntOneDay()));
        return;
    }
    if (!store.flush()) {
        leave(ExitCode::Disk, tr("The database could not be written."));
        return;
    }
    for (const BackupTaskInfo& task : qAsConst(added))
        Terminal::out(m_command.json
                          ? QString::fromUtf8(QJsonDocument(BackupListing::object(task)).toJson(QJsonDocument::Compact))
                          : BackupListing::row(task));
    leave(ExitCode::Done, known == 0 ? QString() : tr("%1 tasks are planned already.").arg(known));
}

void BackupVerb::leave(ExitCode code, const QString& sentence)
{
    m_exit.leave(code, sentence);
}

} // namespace vemo_client
