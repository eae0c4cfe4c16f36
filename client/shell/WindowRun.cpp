#include "WindowRun.h"

#include "DesktopTheme.h"
#include "MainWindow.h"
#include "SingleWindow.h"

#include "cli/Interrupt.h"

#include <DevsMgrData.h>
#include <FilesCenterInit.h>
#include <FormsMgr.h>
#include <SysPaths.h>
#include <SystemAssistant.h>
#include <SystemMsg.h>
#include <Theme.h>
#include <UiSettings.h>
#include <vaws_download.h>
#include <VMessageBox.h>
#include <vms_sdk.h>

#include <QApplication>
#include <QIcon>

namespace vemo_client {

namespace {

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
    if (!single.take())
        return 0;

    vemo_base::Theme& theme = vemo_base::Theme::instance();
    const DesktopTheme desktop;
    const QString chosen = command.theme.isEmpty()
                               ? vemo_worker::UiSettings::instance().value(MainWindow::themeSetting()).toString()
                               : command.theme;
    theme.setChoice(choiceOf(chosen));
    theme.apply();

    vemo_data::DevsMgrData::instance().load();
    vemo_filesCenter::FilesCenterInit& filesCenter = vemo_filesCenter::FilesCenterInit::instance();
    filesCenter.moduleInit();
    vemo_base::FormsMgr& forms = vemo_base::FormsMgr::instance();
    forms.registerForm(vemo_base::FilesCenterFormType, [&filesCenter] { return filesCenter.createFilesCenterForm(); });

    int code = 0;
    {
        MainWindow window;
        vemo_worker::SystemAssistant::instance().setPresenter([&window](const QString& title, const QString& text) {
            vemo_base::VMessageBox::tell(vemo_base::VMessageBox::Kind::Warning, title, text, &window);
        });
        QObject::connect(&forms, &vemo_base::FormsMgr::signalFormCreated, &window, &MainWindow::placeForm);
        QObject::connect(&single, &SingleWindow::signalRaise, &window, &MainWindow::comeToFront);
        forms.createForm(vemo_base::FilesCenterFormType);
        // Asked to terminate, it ends as if the person had closed it.
        Interrupt interrupt;
        QObject::connect(&interrupt, &Interrupt::signalInterrupted, &window, &QWidget::close);
        window.show();
        code = QApplication::exec();
        emit vemo_contact::SystemMsg::instance().signalPrepareQuitSystem();
        vemo_worker::SystemAssistant::instance().setPresenter({});
    }
    vms_sdk::uninit_sdk();
    vaws_download_shutdown();
    return code;
}

} // namespace vemo_client
