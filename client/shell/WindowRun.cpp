#include "WindowRun.h"

#include "ClientSession.h"
#include "DesktopTheme.h"
#include "MainWindow.h"
#include "Relaunch.h"
#include "SingleWindow.h"

#include "cli/Interrupt.h"
#include "cli/Terminal.h"

#include <ClientSecretKey.h>
#include <DataSignals.h>
#include <ProgramLog.h>
#include <SysPaths.h>
#include <SystemAssistant.h>
#include <SystemWorker.h>
#include <Theme.h>
#include <UiSettings.h>
#include <vaws_download.h>
#include <VMessageBox.h>
#include <vms_sdk.h>

#include <QApplication>
#include <QCoreApplication>
#include <QIcon>
#include <QSysInfo>

namespace vemo_client {

namespace {

using vemo_worker::ProgramLog;

class WindowText final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::WindowRun)
};

void logRun(const QString& text)
{
    ProgramLog::instance().write(ProgramLog::Level::Information, "vemo.run", text);
}

QString themeSetting()
{
    return QStringLiteral("theme");
}

/// The theme of the last start, or the one that the command line asks for; what the person chooses is kept.
void takeTheme(const QString& asked)
{
    vemo_base::Theme& theme = vemo_base::Theme::instance();
    vemo_worker::UiSettings& settings = vemo_worker::UiSettings::instance();
    theme.setChoice(vemo_base::Theme::choiceNamed(asked.isEmpty() ? settings.value(themeSetting()).toString() : asked));
    theme.apply();
    QObject::connect(&theme, &vemo_base::Theme::signalChoiceChanged, &settings, [&theme, &settings] {
        settings.setPersonalValue(themeSetting(), vemo_base::Theme::nameOf(theme.choice()));
    });
    if (!asked.isEmpty())
        return;
    QObject::connect(&vemo_worker::SystemWorker::instance(), &vemo_worker::SystemWorker::signalCurUserChanged,
                     &settings, [&theme, &settings] {
                         theme.setChoice(
                             vemo_base::Theme::choiceNamed(settings.personalValue(themeSetting()).toString()));
                     });
}

} // namespace

int runWindow(int& argc, char** argv, const CliCommand& command)
{
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    ClientSession session;
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/vemo_base/icons/mark.svg")));

    SingleWindow single(vemo_worker::SysPaths::dataDir());
    const SingleWindow::Outcome outcome = single.take();
    if (outcome == SingleWindow::Outcome::Raised) {
        Terminal::out(
            WindowText::tr("A window is open on the data folder %1 already; it was asked to come to the front.")
                .arg(vemo_worker::SysPaths::dataDir()));
        return 0;
    }

    if (outcome != SingleWindow::Outcome::Held)
        ProgramLog::instance().start(vemo_worker::SysPaths::logDir(), ProgramLog::levelOf(command.logLevel));
    logRun(QStringLiteral("Vemo %1 starts on %2")
               .arg(QCoreApplication::applicationVersion(), QSysInfo::prettyProductName()));
    const DesktopTheme desktop;
    takeTheme(command.theme);
    if (outcome == SingleWindow::Outcome::Held) {
        vemo_base::VMessageBox box(
            vemo_base::VMessageBox::Kind::Warning, WindowText::tr("The data folder is in use"),
            WindowText::tr("Another vemo_client works on it and shows no window. Wait until it is done, or end it."));
        box.exec();
        return 1;
    }

    int code = 0;
    {
        MainWindow window;
        QObject::connect(&vemo_data::DataSignals::instance(), &vemo_data::DataSignals::signalStoreNotice, &window,
                         &MainWindow::tellStore);
        vemo_worker::SystemAssistant::instance().setPresenter([&window](const QString& title, const QString& text) {
            vemo_base::VMessageBox::tell(vemo_base::VMessageBox::Kind::Warning, title, text, &window);
        });
        QObject::connect(&single, &SingleWindow::signalRaise, &window, &MainWindow::comeToFront);
        // Asked to terminate, it ends as if the person had closed it.
        Interrupt interrupt;
        QObject::connect(&interrupt, &Interrupt::signalInterrupted, &window, &QWidget::close);
        session.start(&window);
        window.show();
        code = QApplication::exec();
        session.end();
        vemo_worker::SystemAssistant::instance().setPresenter({});
    }
    if (session.isLoggedOut()) {
        vemo_worker::ClientSecretKey::instance().giveBackPassword();
        Relaunch::ask(QCoreApplication::applicationFilePath(), QCoreApplication::arguments());
    }
    vms_sdk::uninit_sdk();
    vaws_download_shutdown();
    logRun(QStringLiteral("ends with %1").arg(code));
    ProgramLog::instance().stop();
    return code;
}

} // namespace vemo_client
