#include "ModulePages.h"

#include "Language.h"
#include "ShellWt.h"

#include "devices/AddressWatch.h"
#include "devices/DevicesPage.h"
#include "live/LivePage.h"
#include "logs/LogsPage.h"
#include "playback/PlaybackPage.h"
#include "settings/SettingsPage.h"

#include <SystemWorker.h>

#include <QCoreApplication>
#include <QPointer>

namespace vemo_client {

namespace {

class PagesText final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::ModulePages)
};

ModulePage devices(ShellWt* shell, RecorderLogins* logins)
{
    new AddressWatch(logins, shell);
    return {ModulePages::devicesKey(), PagesText::tr("Devices"), QStringLiteral("devices"), vemo_worker::PowerDevices,
            [shell, logins](QWidget* parent) -> QWidget* {
                auto* page = new DevicesPage(logins, parent);
                QObject::connect(shell, &ShellWt::signalRecordersWanted, page, &DevicesPage::findOnNetwork);
                QObject::connect(shell, &ShellWt::signalRecorderAsked, page, &DevicesPage::showRecorder);
                return page;
            }};
}

ModulePage playback(ShellWt* shell, RecorderLogins* logins)
{
    return {ModulePages::playbackKey(), PagesText::tr("Playback"), QStringLiteral("playback"),
            vemo_worker::PowerPlayback, [shell, logins](QWidget* parent) -> QWidget* {
                auto* page = new PlaybackPage(logins, parent);
                QObject::connect(page, &PlaybackPage::signalQueued, shell, &ShellWt::tellQueued);
                QObject::connect(shell, &ShellWt::signalRecorderAsked, page, &PlaybackPage::showRecorder);
                QObject::connect(shell, &ShellWt::signalAboutToClose, page, &PlaybackPage::remember);
                return page;
            }};
}

ModulePage live(ShellWt* shell, RecorderLogins* logins)
{
    return {QStringLiteral("live"), PagesText::tr("Live"), QStringLiteral("live"), vemo_worker::PowerLive,
            [shell, logins](QWidget* parent) -> QWidget* {
                auto* page = new LivePage(logins, parent);
                shell->addQuitConcern(
                    [page = QPointer<LivePage>(page)] { return page ? page->quitConcern() : QString(); });
                QObject::connect(shell, &ShellWt::signalAboutToClose, page, &LivePage::remember);
                return page;
            }};
}

ModulePage filesCenter()
{
    return {ModulePages::filesCenterKey(), PagesText::tr("Files Center"), QStringLiteral("files"), 0, {}};
}

ModulePage logs()
{
    return {QStringLiteral("logs"), PagesText::tr("Logs"), QStringLiteral("logs"), vemo_worker::PowerLogs,
            [](QWidget* parent) -> QWidget* { return new LogsPage(parent); }};
}

ModulePage settings(ShellWt* shell)
{
    const QString key = QStringLiteral("settings");
    return {key, PagesText::tr("Settings"), QStringLiteral("settings"), 0, [shell, key](QWidget* parent) -> QWidget* {
                auto* page = new SettingsPage(Language::names(), parent);
                shell->setLeaveCheck(key, [page] { return page->mayLeave(); });
                QObject::connect(page, &SettingsPage::signalFilesCenterAsked, shell,
                                 [shell] { shell->showModule(ModulePages::filesCenterKey()); });
                return page;
            }};
}

} // namespace

QVector<ModulePage> ModulePages::of(ShellWt* shell, RecorderLogins* logins)
{
    return {devices(shell, logins), playback(shell, logins), live(shell, logins), filesCenter(), logs(),
            settings(shell)};
}

QString ModulePages::devicesKey()
{
    return QStringLiteral("devices");
}

QString ModulePages::playbackKey()
{
    return QStringLiteral("playback");
}

QString ModulePages::filesCenterKey()
{
    return QStringLiteral("files_center");
}

} // namespace vemo_client
