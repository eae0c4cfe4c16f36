#include "WindowRun.h"

#include "DesktopTheme.h"
#include "MainWindow.h"
#include "QueueTray.h"
#include "SingleWindow.h"

#include "cli/Interrupt.h"
#include "cli/Terminal.h"
#include "devices/RecorderLogins.h"

#include <Database.h>
#include <DataSignals.h>
#include <DeviceLogins.h>
#include <DevsMgrData.h>
#include <DownloadTaskData.h>
#include <FilesCenterInit.h>
#include <FormsMgr.h>
#include <LocalIndexRescan.h>
#include <SysPaths.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <SystemMsg.h>
#include <Theme.h>
#include <UiSettings.h>
#include <vaws_download.h>
#include <VMessageBox.h>
#include <vms_sdk.h>

#include <QApplication>
#include <QCoreApplication>
#include <QDateTime>
#include <QIcon>
#include <QLoggingCategory>
#include <QTimer>

#include <utility>

namespace vemo_client {

namespace {

Q_LOGGING_CATEGORY(lcStart, "vemo.start")

/// Files that were added or removed meanwhile are looked for when the window has come to rest.
constexpr int rescanAfterMs = 3000;

QString now()
{
    return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
}

class WindowText final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::WindowRun)
};

vemo_base::Theme::Choice choiceOf(const QString& name)
{
    if (name == QLatin1String("dark"))
        return vemo_base::Theme::Choice::Dark;
    if (name == QLatin1String("light"))
        return vemo_base::Theme::Choice::Light;
    return vemo_base::Theme::Choice::System;
}

} // namespace

int runWindow(int& argc, char** argv, const CliCommand& command)
{
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/vemo_base/icons/mark.svg")));

    SingleWindow single(vemo_worker::SysPaths::dataDir());
    const SingleWindow::Outcome outcome = single.take();
    if (outcome == SingleWindow::Outcome::Raised) {
        Terminal::out(
            WindowText::tr("A window is open on the data folder %1 already; it was asked to come to the front.")
                .arg(vemo_worker::SysPaths::dataDir()));
        return 0;
    }

    vemo_base::Theme& theme = vemo_base::Theme::instance();
    const DesktopTheme desktop;
    const QString chosen = command.theme.isEmpty()
                               ? vemo_worker::UiSettings::instance().value(MainWindow::themeSetting()).toString()
                               : command.theme;
    theme.setChoice(choiceOf(chosen));
    theme.apply();
    if (outcome == SingleWindow::Outcome::Held) {
        vemo_base::VMessageBox box(
            vemo_base::VMessageBox::Kind::Warning, WindowText::tr("The data folder is in use"),
            WindowText::tr("Another vemo_client works on it and shows no window. Wait until it is done, or end it."));
        box.exec();
        return 1;
    }

    vemo_data::DevsMgrData::instance().load();
    if (vemo_data::Database::instance().takeBegunAnew())
        vemo_data::DownloadTaskData::instance().adoptFinishedFiles(
            vemo_worker::SystemConfig::instance().getDownloadPath());
    vemo_filesCenter::FilesCenterInit& filesCenter = vemo_filesCenter::FilesCenterInit::instance();
    filesCenter.moduleInit();
    vemo_base::FormsMgr& forms = vemo_base::FormsMgr::instance();
    forms.registerForm(vemo_base::FilesCenterFormType, [&filesCenter] { return filesCenter.createFilesCenterForm(); });

    int code = 0;
    {
        RecorderLogins logins;
        MainWindow window(&logins);
        QueueTray tray(window.queue());
        QObject::connect(&tray, &QueueTray::signalRaise, &window, &MainWindow::comeToFront);
        QObject::connect(&vemo_data::DataSignals::instance(), &vemo_data::DataSignals::signalStoreNotice, &window,
                         &MainWindow::tellStore);
        vemo_worker::SystemAssistant::instance().setPresenter([&window](const QString& title, const QString& text) {
            vemo_base::VMessageBox::tell(vemo_base::VMessageBox::Kind::Warning, title, text, &window);
        });
        QObject::connect(&forms, &vemo_base::FormsMgr::signalFormCreated, &window, &MainWindow::placeForm);
        QObject::connect(&single, &SingleWindow::signalRaise, &window, &MainWindow::comeToFront);
        // A stored task that is started before its recorder is known to the SDK would fail at once.
        QObject::connect(&vemo_worker::DeviceLogins::instance(), &vemo_worker::DeviceLogins::signalStarted, &window,
                         [&forms, &window] {
                             if (forms.createForm(vemo_base::FilesCenterFormType) != nullptr)
                                 window.showFirstPage();
                         });
        bool isHandedOut = false;
        QObject::connect(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalDownloadQueueChanged,
                         &window, [&isHandedOut] {
                             if (!std::exchange(isHandedOut, true))
                                 qCDebug(lcStart).noquote() << now() << "the stored downloads are handed out";
                         });
        // Asked to terminate, it ends as if the person had closed it.
        Interrupt interrupt;
        QObject::connect(&interrupt, &Interrupt::signalInterrupted, &window, &QWidget::close);
        logins.start();
        window.showFirstPage();
        window.show();
        QTimer::singleShot(rescanAfterMs, &window, [] {
            const vemo_worker::SystemConfig& config = vemo_worker::SystemConfig::instance();
            VCOMMON::LocalIndexRescan::instance().startIfOlder(
                {config.getLocalRecordingPath(), config.getLocalSnapshotPath()}, rescanAfterMs);
        });
        QTimer::singleShot(0, &window, [] { qCDebug(lcStart).noquote() << now() << "the window is shown"; });
        code = QApplication::exec();
        // The window is gone from the screen; what runs is kept and goes on at the next start.
        emit vemo_contact::SystemMsg::instance().signalPrepareQuitSystem();
        vemo_data::DownloadTaskData::instance().flush();
        vemo_worker::SystemAssistant::instance().setPresenter({});
    }
    vms_sdk::uninit_sdk();
    vaws_download_shutdown();
    return code;
}

} // namespace vemo_client
