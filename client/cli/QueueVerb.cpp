#include "QueueVerb.h"

#include "QueueEdit.h"
#include "QueueListing.h"
#include "Terminal.h"
#include "VerbStore.h"

#include <BaseTools.h>
#include <Database.h>
#include <DownloadTaskData.h>
#include <FilesCenterInit.h>
#include <ModuleAccess.h>
#include <SystemConfig.h>
#include <TaskFactsData.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

#include <algorithm>

namespace vemo_client {

namespace {

using Action = QueueOptions::Action;
using vemo_data::DownloadTaskData;
using vemo_data::DownloadTaskInfo;

/// The module gathers requests for a fifth of a second before it stores them.
constexpr int storedAfterMs = 300;
constexpr int locationDevice = 0;

} // namespace

QueueVerb::QueueVerb(const CliCommand& command, QObject* parent)
    : QObject(parent)
    , m_command(command)
    , m_recorder(command)
{
    connect(&m_recorder, &StoredRecorder::signalKept, this, &QueueVerb::request);
    connect(&m_recorder, &StoredRecorder::signalFailed, this,
            [this](const Outcome& outcome) { leave(outcome.code, outcome.sentence); });
}

void QueueVerb::run()
{
    if (!VerbStore::open(&m_exit))
        return;
    if (vemo_data::Database::instance().takeBegunAnew())
        DownloadTaskData::instance().adoptFinishedFiles(vemo_worker::SystemConfig::instance().getDownloadPath());
    switch (m_command.queue.action) {
    case Action::List:
        list();
        break;
    case Action::Add:
        add();
        break;
    default:
        edit();
        break;
    }
}

void QueueVerb::interrupt()
{
    leave(ExitCode::Interrupted, tr("Interrupted."));
}

void QueueVerb::print(const QList<DownloadTaskInfo>& tasks)
{
    const QHash<QString, vemo_data::TaskFacts> facts = vemo_data::TaskFactsData::instance().getAllNow();
    const QString folder = vemo_worker::SystemConfig::instance().getDownloadPath();
    if (!m_command.json && !tasks.isEmpty())
        Terminal::out(QueueListing::header());
    for (const DownloadTaskInfo& task : tasks) {
        const vemo_data::TaskFacts known = facts.value(task.taskId);
        Terminal::out(m_command.json ? QString::fromUtf8(QueueListing::json(task, known, folder))
                                     : QueueListing::row(task, known));
    }
}

void QueueVerb::list()
{
    print(DownloadTaskData::instance().getAllDownloadTasks());
    leave(ExitCode::Done);
}

void QueueVerb::edit()
{
    DownloadTaskData& store = DownloadTaskData::instance();
    const QueueEdit::Plan plan = QueueEdit::plan(m_command.queue, store.getAllDownloadTasks());
    if (!plan.changed.isEmpty())
        store.updateDownloadTasks(plan.changed, false);
    if (!plan.removed.isEmpty())
        store.deleteDownloadTasks(plan.removed);
    if (!store.flush()) {
        leave(ExitCode::Disk, tr("The database could not be written."));
        return;
    }
    print(plan.changed);
    if (m_command.json) {
        for (const DownloadTaskInfo& task : plan.removed)
            Terminal::out(QString::fromUtf8(
                QJsonDocument(QJsonObject{{QStringLiteral("id"), task.taskId}, {QStringLiteral("removed"), true}})
                    .toJson(QJsonDocument::Compact)));
    } else if (!plan.removed.isEmpty()) {
        Terminal::out(tr("%1 tasks were removed.").arg(plan.removed.size()));
    }
    leave(plan.refusals.isEmpty() ? ExitCode::Done : ExitCode::Failed, plan.refusals.join(QLatin1Char(' ')));
}

void QueueVerb::add()
{
    // From here on the requests of other modules are served.
    vemo_filesCenter::FilesCenterInit::instance().moduleInit();
    const QList<DownloadTaskInfo> tasks = DownloadTaskData::instance().getAllDownloadTasks();
    for (const DownloadTaskInfo& task : tasks)
        m_before.insert(task.taskId);
    m_recorder.keep();
}

void QueueVerb::request()
{
    vemo_contact::ModuleAccess& access = vemo_contact::ModuleAccess::instance();
    for (const int channelNo : m_command.channels) {
        const QString channelId = vemo_base::BaseTools::instance().formatChannelId(m_recorder.devId(), channelNo);
        if (m_command.queue.fileName.isEmpty())
            emit access.signalDownloadRecordingByTimeRange(nullptr, channelId, locationDevice, m_command.begin,
                                                           m_command.end);
        else
            emit access.signalDownloadRecordingByFile(nullptr, channelId, locationDevice, m_command.queue.fileName,
                                                      m_command.begin, m_command.end);
    }
    QTimer::singleShot(storedAfterMs, this, &QueueVerb::tellAdded);
}

void QueueVerb::tellAdded()
{
    DownloadTaskData& store = DownloadTaskData::instance();
    QList<DownloadTaskInfo> added = store.getAllDownloadTasks();
    const auto wasThere = [this](const DownloadTaskInfo& task) { return m_before.contains(task.taskId); };
    added.erase(std::remove_if(added.begin(), added.end(), wasThere), added.end());
    print(added);
    if (added.size() == m_command.channels.size())
        leave(ExitCode::Done);
    else if (!store.flush())
        leave(ExitCode::Disk, tr("The database could not be written."));
    else
        leave(ExitCode::Done, tr("%1 of %2 requests are in the queue already.")
                                  .arg(m_command.channels.size() - added.size())
                                  .arg(m_command.channels.size()));
}

} // namespace vemo_client
