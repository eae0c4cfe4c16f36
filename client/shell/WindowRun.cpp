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
#include <SysPaths.h>
#include <SystemAssistant.h>
#include <Theme.h>
#include <UiSettings.h>
#include <vaws_download.h>
#include <VMessageBox.h>
#include <vms_sdk.h>

#include <QApplication>
#include <QCoreApplication>
#include <QIcon>

namespace vemo_client {

namespace {

class WindowText final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::WindowRun)
};

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
        settings.setValue(themeSetting(), vemo_base::Theme::nameOf(theme.choice()));
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
    return code;
}

} // namespace vemo_client
