// The Files Center without its window, driven by a test: queue and backups work in one process, as behind the window,
// and lines on the standard input do what a person does. usage: module_driver --data FOLDER [--backup]
//
// Commands: "add CHANNEL BEGIN END" (ISO 8601), "pause", "resume", "cancel", "redownload", "clear" and "open" with a
// task's id, "backup start", "backup stop", "list", "quit". The end of the input quits as well. Each answer and each
// event is one JSON object a line: {"ready": ms} when the stored tasks are in their tables, {"queue": [running,
// waiting, paused, retrying]}, {"claims": ...} what the download SDK claims of the tasks at work, five times a second.
#include "cli/Interrupt.h"
#include "cli/WindowLock.h"
#include "settings/TransferSettings.h"

#include <BackupAccess.h>
#include <BackupTaskData.h>
#include <BaseForm.h>
#include <BaseTools.h>
#include <Database.h>
#include <DataSignals.h>
#include <DeviceLogins.h>
#include <DevsMgrData.h>
#include <DownloadTaskData.h>
#include <FilesCenterInit.h>
#include <ModuleAccess.h>
#include <ProgramLog.h>
#include <SysPaths.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <SystemMsg.h>
#include <vaws_download.h>
#include <VMessageBox.h>
#include <vms_sdk.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QSocketNotifier>
#include <QTextStream>
#include <QTimer>
#include <QToolTip>

#include <memory>
#include <unistd.h>

namespace {

using vemo_contact::BackupAccess;
using vemo_contact::SystemMsg;
using vemo_data::BackupTaskData;
using vemo_data::DownloadTaskData;
using vemo_data::DownloadTaskInfo;

constexpr int claimMs = 200;
constexpr int mostReportBytes = 65536;
constexpr int answerYes = 1;

void tell(const QJsonObject& object)
{
    static QTextStream out(stdout);
    out << QJsonDocument(object).toJson(QJsonDocument::Compact) << '\n';
    out.flush();
}

/// GUI thread, lives as long as the event loop runs; what it drives are the process's own singletons.
class Driver final : public QObject
{
public:
    explicit Driver(bool withBackup)
        : m_withBackup(withBackup)
    {
        m_sinceStart.start();
        hear();
        connect(&m_input, &QSocketNotifier::activated, this, [this] { readCommands(); });
        connect(&m_claimTimer, &QTimer::timeout, this, [this] { tellClaims(); });
    }

    void begin()
    {
        DownloadTaskData& store = DownloadTaskData::instance();
        if (!store.flush()) {
            QCoreApplication::exit(1);
            return;
        }
        if (vemo_data::Database::instance().takeBegunAnew())
            store.adoptFinishedFiles(vemo_worker::SystemConfig::instance().getDownloadPath());
        vemo_worker::SystemConfig::instance().getVideoFilePath(true);
        for (const DownloadTaskInfo& task : store.getOpenDownloadTasks())
            m_open.insert(task.taskId);
        vemo_data::DevsMgrData::instance().load();
        vemo_worker::DeviceLogins& logins = vemo_worker::DeviceLogins::instance();
        connect(&logins, &vemo_worker::DeviceLogins::signalStarted, this, [this] { loggedIn(); });
        logins.start();
    }

    void quit()
    {
        if (m_isOver)
            return;
        m_isOver = true;
        emit SystemMsg::instance().signalPrepareQuitSystem();
        DownloadTaskData::instance().flush();
        QCoreApplication::exit(0);
    }

private:
    void hear()
    {
        connect(&SystemMsg::instance(), &SystemMsg::signalDownloadQueueChanged, this,
                [this](int running, int waiting, int paused, int retrying) {
                    if (!m_isReady)
                        tell({{QStringLiteral("ready"), m_sinceStart.elapsed()}});
                    m_isReady = true;
                    tell({{QStringLiteral("queue"), QJsonArray{running, waiting, paused, retrying}}});
                });
        const vemo_data::DataSignals& store = vemo_data::DataSignals::instance();
        const auto stored = [this](const QList<DownloadTaskInfo>& tasks) {
            for (const DownloadTaskInfo& task : tasks) {
                if (task.state < vemo_data::TaskSucceeded)
                    m_open.insert(task.taskId);
                else
                    m_open.remove(task.taskId);
            }
        };
        connect(&store, &vemo_data::DataSignals::signalAddDownloadTasksToLocalDB, this, stored);
        connect(&store, &vemo_data::DataSignals::signalUpdateDownloadTasksInLocalDB, this, stored);
        connect(&store, &vemo_data::DataSignals::signalDeleteDownloadTasksFromLocalDB, this,
                [this](const QMap<int, QSet<QString>>& taskIdsByState) {
                    for (const QSet<QString>& taskIds : taskIdsByState)
                        m_open -= taskIds;
                });
        connect(&store, &vemo_data::DataSignals::signalStoreNotice, this, [](const QString& text) {
            tell({{QStringLiteral("notice"), text}});
        });
        const BackupAccess& backups = BackupAccess::instance();
        connect(&backups, &BackupAccess::signalTaskOver, this,
                [](const QString& taskId, int outcome, const QString& message) {
                    tell({{QStringLiteral("backup"), taskId},
                          {QStringLiteral("outcome"), outcome},
                          {QStringLiteral("message"), message}});
                });
        connect(&backups, &BackupAccess::signalRunOver, this, [] {
            tell({{QStringLiteral("backup"), QStringLiteral("over")}});
        });
        vemo_worker::SystemAssistant::instance().setPresenter([](const QString&, const QString& text) {
            tell({{QStringLiteral("alert"), text}});
        });
        vemo_base::VMessageBox::setAnswerer([](const QString&) { return answerYes; });
    }

    void loggedIn()
    {
        if (m_form)
            return;
        vemo_filesCenter::FilesCenterInit& module = vemo_filesCenter::FilesCenterInit::instance();
        module.moduleInit();
        m_form.reset(module.createFilesCenterForm());
        m_claimTimer.start(claimMs);
        if (m_withBackup)
            startBackups();
    }

    void startBackups()
    {
        m_backups.clear();
        for (const vemo_data::BackupTaskInfo& task :
             BackupTaskData::instance().getAllOpenBackupTasks(QDate::currentDate()))
            m_backups.append(task.taskId);
        emit BackupAccess::instance().signalRun(m_backups, 1);
    }

    void tellClaims()
    {
        QJsonArray claims;
        for (const QString& taskId : QStringList(m_open.values()) + m_backups) {
            QByteArray text(mostReportBytes, '\0');
            const int length = vaws_download_get_report(qPrintable(taskId), text.data(), size_t(text.size()));
            if (length > 0 && length < mostReportBytes)
                claims.append(QJsonDocument::fromJson(text.left(length)).object());
        }
        if (!claims.isEmpty())
            tell({{QStringLiteral("claims"), claims}});
    }

    void readCommands()
    {
        char bytes[4096];
        const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
        if (count <= 0) {
            m_input.setEnabled(false);
            quit();
            return;
        }
        m_pending.append(bytes, int(count));
        for (int end = m_pending.indexOf('\n'); end >= 0 && !m_isOver; end = m_pending.indexOf('\n')) {
            const QStringList words = QString::fromUtf8(m_pending.left(end)).split(QLatin1Char(' '));
            m_pending.remove(0, end + 1);
            carryOut(words);
        }
    }

    void carryOut(const QStringList& words)
    {
        static const QHash<QString, QPair<const char*, const char*>> deeds{
            {QStringLiteral("pause"), {"vemo_filesCenter::DownloadingTable", "slotStopDownloading"}},
            {QStringLiteral("resume"), {"vemo_filesCenter::DownloadingTable", "slotStartDownloading"}},
            {QStringLiteral("cancel"), {"vemo_filesCenter::DownloadingTable", "slotCleanDownloadTask"}},
            {QStringLiteral("redownload"), {"vemo_filesCenter::FailedTable", "slotRedownloadTask"}},
            {QStringLiteral("open"), {"vemo_filesCenter::SuccessTable", "slotOpenDownloadFile"}},
            {QStringLiteral("clear"), {"vemo_filesCenter::SuccessTable", "slotCleanDownloadTask"}}};
        const QString verb = words.first();
        if (verb == QLatin1String("quit"))
            quit();
        else if (verb == QLatin1String("list"))
            list();
        else if (verb == QLatin1String("backup") && words.value(1) == QLatin1String("start"))
            startBackups();
        else if (verb == QLatin1String("backup"))
            emit BackupAccess::instance().signalStopRun();
        else if (verb == QLatin1String("add"))
            add(words.value(1).toInt(), words.value(2), words.value(3));
        else if (!deeds.contains(verb) || !press(deeds.value(verb), words.value(1)))
            qFatal("no such command: %s", qPrintable(words.join(QLatin1Char(' '))));
        else if (verb == QLatin1String("open"))
            tell({{QStringLiteral("tip"), QToolTip::text()}, {QStringLiteral("task"), words.value(1)}});
    }

    static void add(int channelNo, const QString& begin, const QString& end)
    {
        const QString devId = vemo_data::DevsMgrData::instance().devIds().value(0);
        emit vemo_contact::ModuleAccess::instance().signalDownloadRecordingByTimeRange(
            nullptr, vemo_base::BaseTools::instance().formatChannelId(devId, channelNo), vemo_data::LocationDevice,
            QDateTime::fromString(begin, Qt::ISODate).toLocalTime(),
            QDateTime::fromString(end, Qt::ISODate).toLocalTime());
    }

    /// What the button of a row does; false when the page has none.
    bool press(const QPair<const char*, const char*>& deed, const QString& taskId) const
    {
        for (QWidget* page : m_form->findChildren<QWidget*>()) {
            if (qstrcmp(page->metaObject()->className(), deed.first) == 0)
                return QMetaObject::invokeMethod(page, deed.second, Q_ARG(QString, taskId));
        }
        return false;
    }

    static void list()
    {
        QJsonArray tasks;
        for (const DownloadTaskInfo& task : DownloadTaskData::instance().getAllDownloadTasks()) {
            const int status = vaws_download_get_status(task.taskId.toUtf8().constData());
            tasks.append(QJsonArray{task.taskId, task.state, status == VAWS_STATUS_PAUSED});
        }
        tell({{QStringLiteral("tasks"), tasks}});
    }

    const bool m_withBackup;
    bool m_isReady = false;
    bool m_isOver = false;
    QElapsedTimer m_sinceStart;
    QSocketNotifier m_input{STDIN_FILENO, QSocketNotifier::Read};
    QTimer m_claimTimer;
    QByteArray m_pending;
    QSet<QString> m_open;  ///< the stored downloads that wait, run or are paused
    QStringList m_backups; ///< those that were started
    std::unique_ptr<vemo_base::BaseForm> m_form;
};

int drive(bool withBackup)
{
    vemo_client::WindowLock lock;
    if (const vemo_client::Outcome taken = lock.take(); taken.code != vemo_client::ExitCode::Done) {
        QTextStream(stderr) << taken.sentence << '\n';
        return 1;
    }
    vemo_worker::ProgramLog::instance().start(vemo_worker::SysPaths::logDir(),
                                              vemo_worker::ProgramLog::Level::Information);
    int code = 0;
    {
        const vemo_client::TransferSettings transfer;
        Driver driver(withBackup);
        vemo_client::Interrupt interrupt;
        QObject::connect(&interrupt, &vemo_client::Interrupt::signalInterrupted, &driver, [&driver] { driver.quit(); });
        QMetaObject::invokeMethod(
            &driver, [&driver] { driver.begin(); }, Qt::QueuedConnection);
        code = QCoreApplication::exec();
    }
    vms_sdk::uninit_sdk();
    vaws_download_shutdown();
    vemo_worker::ProgramLog::instance().stop();
    return code;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCoreApplication::setApplicationName(QStringLiteral("vemo"));
    const QStringList arguments = QCoreApplication::arguments();
    const int data = arguments.indexOf(QStringLiteral("--data"));
    if (data < 0 || data + 1 >= arguments.size()) {
        QTextStream(stderr) << "usage: module_driver --data FOLDER [--backup]\n";
        return 2;
    }
    vemo_worker::SysPaths::setRoot(arguments.at(data + 1));
    return drive(arguments.contains(QStringLiteral("--backup")));
}
