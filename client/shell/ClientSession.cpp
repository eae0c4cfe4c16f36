#include "ClientSession.h"

#include "Language.h"
#include "MainWindow.h"
#include "ModulePages.h"
#include "QueueTray.h"
#include "ShellWt.h"
#include "TopBar.h"

#include "devices/RecorderLogins.h"
#include "settings/TransferSettings.h"
#include "users/AuthWt.h"
#include "users/UserAccounts.h"

#include <Database.h>
#include <DeviceLogins.h>
#include <DevsMgrData.h>
#include <DownloadTaskData.h>
#include <FilesCenterInit.h>
#include <FormsMgr.h>
#include <LocalIndexRescan.h>
#include <SystemConfig.h>
#include <SystemMsg.h>

#include <QDateTime>
#include <QLoggingCategory>
#include <QTimer>

namespace vemo_client {

namespace {

Q_LOGGING_CATEGORY(lcStart, "vemo.start")

/// Files that were added or removed meanwhile are looked for when the window has come to rest.
constexpr int rescanAfterMs = 3000;

QString now()
{
    return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
}

} // namespace

ClientSession::ClientSession(QObject* parent)
    : QObject(parent)
    , m_language(std::make_unique<Language>(vemo_worker::SystemConfig::instance().language()))
{}

ClientSession::~ClientSession() = default;

void ClientSession::start(MainWindow* window)
{
    UserAccounts& accounts = UserAccounts::instance();
    accounts.open();
    if (accounts.isLoggedIn())
        begin(window, false);
    else
        showLogin(window);
    QTimer::singleShot(0, window, [] { qCDebug(lcStart).noquote() << now() << "the window is shown"; });
}

void ClientSession::showLogin(MainWindow* window)
{
    vemo_worker::SystemConfig& config = vemo_worker::SystemConfig::instance();
    auto* login = new AuthWt(Language::names(), config.language(), window);
    window->setBody(login);
    // Queued, since the window deletes it for what comes next.
    connect(
        login, &AuthWt::signalLoggedIn, this, [this, window, login] { begin(window, login->wantsRecorders()); },
        Qt::QueuedConnection);
    connect(
        login, &AuthWt::signalLanguageChosen, this,
        [this, window, &config](const QString& name) {
            config.setLanguage(name);
            m_language.reset();
            m_language = std::make_unique<Language>(name);
            showLogin(window);
        },
        Qt::QueuedConnection);
}

void ClientSession::begin(MainWindow* window, bool wantsRecorders)
{
    vemo_data::DevsMgrData::instance().load();
    if (vemo_data::Database::instance().takeBegunAnew())
        vemo_data::DownloadTaskData::instance().adoptFinishedFiles(
            vemo_worker::SystemConfig::instance().getDownloadPath());
    if (!vemo_worker::SystemConfig::instance().goOnWithDownloads())
        vemo_data::DownloadTaskData::instance().pauseWaiting();
    m_transfer = std::make_unique<TransferSettings>();
    vemo_filesCenter::FilesCenterInit& filesCenter = vemo_filesCenter::FilesCenterInit::instance();
    filesCenter.moduleInit();
    vemo_base::FormsMgr& forms = vemo_base::FormsMgr::instance();
    forms.registerForm(vemo_base::FilesCenterFormType, [&filesCenter] { return filesCenter.createFilesCenterForm(); });

    m_logins = std::make_unique<RecorderLogins>();
    auto* shell = new ShellWt(m_logins.get(), window);
    m_shell = shell;
    window->setBody(shell);
    m_tray = std::make_unique<QueueTray>(shell->queue());
    connect(m_tray.get(), &QueueTray::signalRaise, window, &MainWindow::comeToFront);
    connect(&forms, &vemo_base::FormsMgr::signalFormCreated, shell, &ShellWt::placeForm);
    connect(shell->topBar(), &TopBar::signalLogOut, this, [this, window] { m_isLoggedOut = window->close(); });
    // A stored task that is started before its recorder is known to the SDK would fail at once.
    connect(&vemo_worker::DeviceLogins::instance(), &vemo_worker::DeviceLogins::signalStarted, shell, [&forms, shell] {
        if (forms.createForm(vemo_base::FilesCenterFormType) != nullptr)
            shell->showFirstPage();
    });
    tellWhenHandedOut();
    m_logins->start();
    if (wantsRecorders)
        QTimer::singleShot(0, shell, &ShellWt::findRecorders); // once the window shows what is behind the search
    else
        shell->showFirstPage();
    QTimer::singleShot(rescanAfterMs, shell, [] {
        const vemo_worker::SystemConfig& config = vemo_worker::SystemConfig::instance();
        VCOMMON::LocalIndexRescan::instance().startIfOlder(
            {config.getLocalRecordingPath(), config.getLocalSnapshotPath()}, rescanAfterMs);
    });
}

void ClientSession::tellWhenHandedOut()
{
    connect(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalDownloadQueueChanged, this, [this] {
        if (!m_isHandedOut)
            qCDebug(lcStart).noquote() << now() << "the stored downloads are handed out";
        m_isHandedOut = true;
    });
}

void ClientSession::end()
{
    emit vemo_contact::SystemMsg::instance().signalPrepareQuitSystem();
    vemo_data::DownloadTaskData::instance().flush();
    m_tray.reset();
    delete m_shell;
    m_logins.reset();
    if (m_isLoggedOut)
        UserAccounts::instance().logOut();
}

} // namespace vemo_client
