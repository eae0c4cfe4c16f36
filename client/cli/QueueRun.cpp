#include "QueueRun.h"

#include "QueueListing.h"
#include "Terminal.h"

#include <BaseForm.h>
#include <Database.h>
#include <DataSignals.h>
#include <DeviceLogins.h>
#include <DevsMgrData.h>
#include <DownloadTaskData.h>
#include <FilesCenterInit.h>
#include <FormsMgr.h>
#include <SystemConfig.h>
#include <SystemMsg.h>
#include <TaskFactsData.h>

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace vemo_client {

namespace {

using vemo_data::DownloadTaskData;
using vemo_data::DownloadTaskInfo;

constexpr int progressMs = 1000;
/// Nothing to do for so long is over; a task on its way from one table to the next is in neither for a moment.
constexpr int overAfterMs = 300;
constexpr int mostSummingMs = 600'000;
constexpr double kbitPerMegabyte = 8000.0;

} // namespace

QueueRun::QueueRun(const CliCommand& command, QObject* parent)
    : QObject(parent)
    , m_command(command)
{
    const vemo_contact::SystemMsg& system = vemo_contact::SystemMsg::instance();
    connect(&system, &vemo_contact::SystemMsg::signalDownloadQueueChanged, this, &QueueRun::queueChanged);
    connect(&system, &vemo_contact::SystemMsg::signalDownloadBitRate, this,
            [this](qint64 kbitPerSecond) { m_kbitPerSecond = kbitPerSecond; });
    const vemo_data::DataSignals& store = vemo_data::DataSignals::instance();
    connect(&store, &vemo_data::DataSignals::signalUpdateDownloadTasksInLocalDB, this, &QueueRun::tasksChanged);
    connect(&store, &vemo_data::DataSignals::signalAddDownloadTasksToLocalDB, this, &QueueRun::tasksChanged);
    connect(&store, &vemo_data::DataSignals::signalStoreNotice, this,
            [](const QString& text) { Terminal::error(text); });
    connect(&m_progressTimer, &QTimer::timeout, this, &QueueRun::showProgress);
    m_overTimer.setSingleShot(true);
    connect(&m_overTimer, &QTimer::timeout, this, &QueueRun::finish);
}

QueueRun::~QueueRun() = default;

void QueueRun::run()
{
    DownloadTaskData& store = DownloadTaskData::instance();
    if (!store.flush()) {
        leave(ExitCode::Disk); // the store has told why
        return;
    }
    if (vemo_data::Database::instance().takeBegunAnew())
        store.adoptFinishedFiles(vemo_worker::SystemConfig::instance().getDownloadPath());
    const QString folder = vemo_worker::SystemConfig::instance().getVideoFilePath(true);
    if (!QFileInfo(folder).isDir()) {
        leave(ExitCode::Disk, tr("The folder for videos, %1, does not exist.").arg(folder));
        return;
    }
    const QList<DownloadTaskInfo> tasks = store.getAllDownloadTasks();
    for (const DownloadTaskInfo& task : tasks)
        m_stateBefore.insert(task.taskId, task.state);
    vemo_data::DevsMgrData::instance().load();
    // A task that is started before its recorder is known to the SDK would fail at once.
    vemo_worker::DeviceLogins& logins = vemo_worker::DeviceLogins::instance();
    connect(&logins, &vemo_worker::DeviceLogins::signalStarted, this, &QueueRun::startQueue);
    logins.start();
}

void QueueRun::startQueue()
{
    if (m_form || m_exit.isOver())
        return;
    vemo_filesCenter::FilesCenterInit& module = vemo_filesCenter::FilesCenterInit::instance();
    module.moduleInit();
    vemo_base::FormsMgr& forms = vemo_base::FormsMgr::instance();
    connect(&forms, &vemo_base::FormsMgr::signalFormCreated, this,
            [this](vemo_base::BaseForm* form) { m_form.reset(form); });
    forms.registerForm(vemo_base::FilesCenterFormType, [&module] { return module.createFilesCenterForm(); });
    forms.createForm(vemo_base::FilesCenterFormType);
    m_progressTimer.start(progressMs);
}

void QueueRun::queueChanged(int running, int waiting, int paused, int retrying)
{
    m_figures = {running, waiting, paused, retrying};
    m_told = true;
    if (!isOver())
        m_overTimer.stop();
    else if (!m_overTimer.isActive())
        m_overTimer.start(overAfterMs);
}

bool QueueRun::isOver() const
{
    return m_told && m_figures.running == 0 && m_figures.waiting == 0 &&
           (m_figures.retrying == 0 || !m_command.queue.waitForRetries);
}

void QueueRun::tasksChanged(const QList<DownloadTaskInfo>& tasks)
{
    if (m_exit.isOver())
        return;
    const QString folder = vemo_worker::SystemConfig::instance().getDownloadPath();
    for (const DownloadTaskInfo& task : tasks) {
        if (task.state < vemo_data::TaskSucceeded) {
            m_stateTold.remove(task.taskId);
            continue;
        }
        // A record may be announced more than once on its way.
        if (m_stateTold.value(task.taskId, -1) == task.state)
            continue;
        m_stateTold.insert(task.taskId, task.state);
        if (m_told && task.state == vemo_data::TaskSucceeded && QFileInfo::exists(task.savePath))
            m_summed.insert(task.taskId, task.savePath);
        // Behind the writes of this turn, which keep the facts of the task.
        vemo_data::TaskFactsData::instance().get(
            task.taskId, this, [this, task, folder](const vemo_data::TaskFacts& facts) {
                if (m_exit.isOver())
                    return;
                if (m_progressShown)
                    Terminal::errorStatus(QString());
                m_progressShown = false;
                Terminal::out(m_command.json ? QString::fromUtf8(QueueListing::json(task, facts, folder))
                                             : QueueListing::row(task, facts));
            });
    }
}

void QueueRun::showProgress()
{
    const double rate = double(m_kbitPerSecond) / kbitPerMegabyte;
    if (m_command.json) {
        const QJsonObject object{{QStringLiteral("running"), m_figures.running},
                                 {QStringLiteral("waiting"), m_figures.waiting},
                                 {QStringLiteral("paused"), m_figures.paused},
                                 {QStringLiteral("retrying"), m_figures.retrying},
                                 {QStringLiteral("rate_mb_s"), qRound(rate * 10) / 10.0}};
        Terminal::out(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    } else if (Terminal::isErrorTerminal()) {
        QString text = tr("%1 running, %2 waiting").arg(m_figures.running).arg(m_figures.waiting);
        if (m_figures.retrying > 0)
            text += tr(", %1 to be tried again").arg(m_figures.retrying);
        Terminal::errorStatus(text % QStringLiteral("  %1 MB/s").arg(rate, 0, 'f', 1));
        m_progressShown = true;
    }
}

void QueueRun::finish()
{
    if (!isOver())
        return;
    if (!m_sinceOver.isValid())
        m_sinceOver.start();
    if (!m_sinceOver.hasExpired(mostSummingMs) && isSumming()) {
        m_overTimer.start(overAfterMs);
        return;
    }
    if (m_progressShown)
        Terminal::errorStatus(QString());
    leave(verdict());
}

bool QueueRun::isSumming() const
{
    const QHash<QString, vemo_data::TaskFacts> facts = vemo_data::TaskFactsData::instance().getAllNow();
    for (auto file = m_summed.constBegin(); file != m_summed.constEnd(); ++file) {
        if (facts.value(file.key()).sha256.isEmpty() && QFileInfo::exists(file.value()))
            return true;
    }
    return false;
}

/// Of what this run worked on: a task that had failed before and was left alone says nothing about it.
ExitCode QueueRun::verdict()
{
    const QList<DownloadTaskInfo> tasks = DownloadTaskData::instance().getAllDownloadTasks();
    const QHash<QString, vemo_data::TaskFacts> facts = vemo_data::TaskFactsData::instance().getAllNow();
    int open = 0;
    for (const DownloadTaskInfo& task : tasks) {
        if (m_stateBefore.contains(task.taskId) && m_stateBefore.value(task.taskId) == task.state)
            continue;
        if (task.state != vemo_data::TaskSucceeded || QueueListing::isIncomplete(facts.value(task.taskId)))
            ++open;
    }
    if (open == 0)
        return ExitCode::Done;
    Terminal::error(tr("%1 tasks failed or are incomplete; see vemo_client queue list.").arg(open));
    return ExitCode::Incomplete;
}

void QueueRun::interrupt()
{
    if (m_progressShown)
        Terminal::errorStatus(QString());
    leave(ExitCode::Interrupted, tr("Interrupted; what had arrived is kept, and the rest waits in the queue."));
}

void QueueRun::leave(ExitCode code, const QString& sentence)
{
    if (!m_exit.leave(code, sentence))
        return;
    m_progressTimer.stop();
    // As at the end of the window, for the module's other work.
    emit vemo_contact::SystemMsg::instance().signalPrepareQuitSystem();
    DownloadTaskData::instance().flush();
}

} // namespace vemo_client
