#include "SettingsSections.h"

#include "AutoStart.h"
#include "FactRow.h"
#include "SettingsGroup.h"
#include "SettingsPage.h"
#include "SettingsSection.h"
#include "ShortcutsWt.h"

#include "users/UsersSettingsWt.h"

#include <FolderCheck.h>
#include <SysPaths.h>
#include <SystemConfig.h>
#include <Theme.h>

#include <QCoreApplication>
#include <QDate>
#include <QDesktopServices>
#include <QDir>
#include <QLocale>
#include <QUrl>

namespace vemo_client {

namespace {

using vemo_worker::SysPaths;
using vemo_worker::SystemConfig;
using Choices = SettingsGroup::Choices;
using Scope = SettingField::Scope;

constexpr qint64 gigabyte = 1'000'000'000;
constexpr qint64 lowBytes = 10 * gigabyte;
constexpr double bytesPerMegabyte = 1e6;
constexpr double fastestMegabytes = 10'000;

class Words final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::SettingsSections)
};

template <typename Value>
SettingField::Binding bind(Value (SystemConfig::*get)() const, void (SystemConfig::*set)(Value))
{
    return {[get] { return QVariant::fromValue((SystemConfig::instance().*get)()); },
            [set](const QVariant& value) { (SystemConfig::instance().*set)(value.value<Value>()); }};
}

SettingField::Binding bind(QString (SystemConfig::*get)() const, void (SystemConfig::*set)(const QString&))
{
    return {[get] { return QVariant((SystemConfig::instance().*get)()); },
            [set](const QVariant& value) { (SystemConfig::instance().*set)(value.toString()); }};
}

SettingField::Binding bindTelling(SystemConfig::Telling kind)
{
    return {[kind] { return QVariant(SystemConfig::instance().isTold(kind)); },
            [kind](const QVariant& value) { SystemConfig::instance().setTold(kind, value.toBool()); }};
}

SettingsSection* makeGeneral(const QStringList& languages, QWidget* parent)
{
    auto* section =
        new SettingsSection(QStringLiteral("general"), Words::tr("General"), QStringLiteral("settings"), parent);
    SettingsGroup* program = section->addGroup(Words::tr("Program"));
    Choices languageChoices{{Words::tr("As the desktop"), QStringLiteral("system")}};
    for (const QString& name : languages) {
        const QString own = QLocale(name).nativeLanguageName();
        languageChoices.append({name == QLatin1String("en") ? QStringLiteral("English") : own, name});
    }
    program->addChoice(Words::tr("Language"), languageChoices, Words::tr("Holds from the next start of the client on."),
                       bind(&SystemConfig::language, &SystemConfig::setLanguage));
    program->addToggle(
        Words::tr("When you log in to this computer"), Words::tr("Start the client"), QString(),
        {[] { return QVariant(AutoStart::isOn()); }, [](const QVariant& value) { AutoStart::set(value.toBool()); }});
    SettingsGroup* logs = section->addGroup(Words::tr("Logs"), Words::tr("What is kept of what happened to files"));
    logs->addChoice(Words::tr("Keep log entries"),
                    {{Words::tr("30 days"), 30},
                     {Words::tr("90 days"), 90},
                     {Words::tr("1 year"), 365},
                     {Words::tr("3 years"), 1095},
                     {Words::tr("As long as there is room"), 0}},
                    Words::tr("Never more than 1,000,000 entries; the oldest go first."),
                    bind(&SystemConfig::logDays, &SystemConfig::setLogDays));
    return section;
}

Choices dateFormats()
{
    Choices choices;
    for (const char* format : {"yyyy-MM-dd", "dd.MM.yyyy", "dd-MM-yyyy", "MM-dd-yyyy", "yyyy.MM.dd"}) {
        const QString name = QLatin1String(format);
        choices.append({Words::tr("%1 (%2)").arg(QDate::currentDate().toString(name), name), name});
    }
    return choices;
}

/// Downloads and backups lie below the video folder until folders of their own are chosen; they stay where they are.
void moveVideoFolder(const QString& folder)
{
    SystemConfig& config = SystemConfig::instance();
    const QString downloads = config.getDownloadPath();
    const QString backups = config.getRecordingBackupPath();
    config.setVideoFilePath(folder);
    config.setDownloadPath(downloads);
    config.setRecordingBackupPath(backups);
}

SettingsSection* makeStorage(QWidget* parent)
{
    auto* section =
        new SettingsSection(QStringLiteral("storage"), Words::tr("Storage"), QStringLiteral("disk"), parent);
    SettingsGroup* folders = section->addGroup(Words::tr("Folders"), Words::tr("Where files are written"));
    SettingField* downloads = folders->addFolder(Words::tr("Download path"), lowBytes,
                                                 Words::tr("Downloads that run already end where they were begun."),
                                                 bind(&SystemConfig::getDownloadPath, &SystemConfig::setDownloadPath));
    SettingField* backups =
        folders->addFolder(Words::tr("Recordings backup path"), lowBytes,
                           Words::tr("A backup stops when less than 1 GB is free. A notice appears below 10 GB."),
                           bind(&SystemConfig::getRecordingBackupPath, &SystemConfig::setRecordingBackupPath));
    folders->addFolder(Words::tr("Local recording and snapshot path"), lowBytes,
                       Words::tr("Recordings of live video and snapshots lie in folders of their own below it."),
                       {[] { return QVariant(SystemConfig::instance().getVideoFilePath(true)); },
                        [](const QVariant& value) { moveVideoFolder(value.toString()); }});

    QObject::connect(folders, &SettingsGroup::signalEdited, backups, [downloads, backups] {
        const bool isNested =
            vemo_worker::FolderCheck::isNested(downloads->value().toString(), backups->value().toString());
        backups->setRemark(isNested
                               ? Words::tr("Downloads and backups lie one in the other. Choose folders of their own, "
                                           "so that neither fills the other's.")
                               : QString());
    });

    SettingsGroup* files = section->addGroup(Words::tr("Files"), Words::tr("Names and kinds"));
    files->addChoice(Words::tr("Date format"), dateFormats(), Words::tr("Used in tables, file names and logs."),
                     bind(&SystemConfig::getDateFormat, &SystemConfig::setDateFormat));
    files->addSegments(Words::tr("Snapshot format"),
                       {{QStringLiteral("JPG"), QStringLiteral("JPG")}, {QStringLiteral("BMP"), QStringLiteral("BMP")}},
                       QString(), bind(&SystemConfig::snapshotFormat, &SystemConfig::setSnapshotFormat));
    Choices sizes{{Words::tr("No limit"), qint64(0)}};
    for (const int gigabytes : {1, 2, 4, 8, 16})
        sizes.append({Words::tr("%1 GB").arg(gigabytes), gigabytes * gigabyte});
    files->addChoice(Words::tr("Largest file"), sizes, QString(),
                     bind(&SystemConfig::largestFileBytes, &SystemConfig::setLargestFileBytes),
                     Words::tr("then the download goes on in a new file"));

    SettingsGroup* behaviour = section->addGroup(Words::tr("Behaviour"));
    behaviour->addToggle(Words::tr("When the client starts"), Words::tr("Go on with downloads that were waiting"),
                         QString(), bind(&SystemConfig::goOnWithDownloads, &SystemConfig::setGoOnWithDownloads));
    behaviour->addToggle(Words::tr("When a copy is deleted"),
                         Words::tr("Move files to the recycle bin where the drive has one"), QString(),
                         bind(&SystemConfig::useRecycleBin, &SystemConfig::setUseRecycleBin));
    return section;
}

SettingsSection* makeDownloads(QWidget* parent)
{
    auto* section = new SettingsSection(QStringLiteral("downloads"), Words::tr("Downloads"),
                                        QStringLiteral("download-mgr"), parent);
    SettingsGroup* transfer = section->addGroup(Words::tr("Network"));
    transfer->addNumber(Words::tr("Highest rate"), fastestMegabytes, Words::tr("MB/s"), Words::tr("No limit"),
                        Words::tr("For all downloads and backups together. Holds at once, for those that run as well."),
                        {[] { return QVariant(double(SystemConfig::instance().bandwidthLimit()) / bytesPerMegabyte); },
                         [](const QVariant& value) {
                             SystemConfig::instance().setBandwidthLimit(qRound64(value.toDouble() * bytesPerMegabyte));
                         }});
    SettingsGroup* files = section->addGroup(Words::tr("Readable time"));
    files->addToggle(Words::tr("Wall clock"), Words::tr("Add a text track with the recording's time to every file"),
                     Words::tr("Ordinary players show it as subtitles. The picture itself is not changed."),
                     bind(&SystemConfig::clockTrack, &SystemConfig::setClockTrack));
    return section;
}

SettingsSection* makeBackup(SettingsPage* page)
{
    auto* section = new SettingsSection(QStringLiteral("backup"), Words::tr("Recordings Backup"),
                                        QStringLiteral("recordings-backup"), page);
    SettingsGroup* plan = section->addGroup(Words::tr("Plan"), Words::tr("What is backed up, and when"));
    auto* times = new FactRow(Words::tr("Times of day"),
                              Words::tr("Days, channels and times of day are chosen on the page Recordings Backup of "
                                        "the Files Center."),
                              plan);
    times->setButton(QStringLiteral("files"), Words::tr("Open Files Center"));
    QObject::connect(times, &FactRow::signalClicked, page, &SettingsPage::signalFilesCenterAsked);
    plan->addWidget(times);
    auto* folder = new FactRow(Words::tr("Folder"), Words::tr("The folder of backups is chosen under Storage."), plan);
    folder->setButton(QStringLiteral("disk"), Words::tr("Open Storage"));
    QObject::connect(folder, &FactRow::signalClicked, page, [page] { page->showSection(QStringLiteral("storage")); });
    plan->addWidget(folder);
    return section;
}

SettingsSection* makeAppearance(QWidget* parent)
{
    using vemo_base::Theme;
    auto* section =
        new SettingsSection(QStringLiteral("appearance"), Words::tr("Appearance"), QStringLiteral("theme"), parent);
    SettingsGroup* look = section->addGroup(Words::tr("Look"), Words::tr("Yours alone"));
    look->addSegments(Words::tr("Theme"),
                      {{Words::tr("As the desktop"), int(Theme::Choice::System)},
                       {Words::tr("Dark"), int(Theme::Choice::Dark)},
                       {Words::tr("Light"), int(Theme::Choice::Light)}},
                      QString(),
                      {[] { return QVariant(int(Theme::instance().choice())); },
                       [](const QVariant& value) { Theme::instance().setChoice(Theme::Choice(value.toInt())); }},
                      Scope::Person);
    return section;
}

SettingsSection* makeUsers(QWidget* parent)
{
    auto* section = new SettingsSection(QStringLiteral("users"), Words::tr("Users"), QStringLiteral("user"), parent);
    section->addPage(new UsersSettingsWt(section));
    return section;
}

SettingsSection* makeShortcuts(QWidget* parent)
{
    auto* section =
        new SettingsSection(QStringLiteral("shortcuts"), Words::tr("Shortcuts"), QStringLiteral("keyboard"), parent);
    const auto add = [section](const QString& title, ShortcutsWt::Place place) {
        SettingsGroup* group = section->addGroup(title);
        group->addWidget(new ShortcutsWt(place, group));
    };
    add(Words::tr("Window"), ShortcutsWt::Place::Window);
    add(Words::tr("Tables"), ShortcutsWt::Place::Tables);
    add(Words::tr("Pictures"), ShortcutsWt::Place::Cards);
    add(Words::tr("Player"), ShortcutsWt::Place::Player);
    return section;
}

SettingsSection* makeNotifications(QWidget* parent)
{
    using Telling = SystemConfig::Telling;
    auto* section = new SettingsSection(QStringLiteral("notifications"), Words::tr("Notifications"),
                                        QStringLiteral("bell"), parent);
    SettingsGroup* window =
        section->addGroup(Words::tr("In the window"), Words::tr("The bell keeps every notice, shown or not"));
    window->addToggle(Words::tr("Good news"), Words::tr("Show a notice when something is done"), QString(),
                      bindTelling(Telling::GoodNews));
    window->addToggle(Words::tr("Warnings"), Words::tr("Show a notice when something needs care"),
                      Words::tr("Errors are always shown."), bindTelling(Telling::Warnings));
    SettingsGroup* desktop = section->addGroup(Words::tr("On the desktop"));
    desktop->addToggle(Words::tr("Downloads"),
                       Words::tr("Tell when the queue is done and the window is not being looked at"), QString(),
                       bindTelling(Telling::Desktop));
    return section;
}

void addFolderFact(SettingsGroup* group, const QString& label, const QString& folder)
{
    auto* row = new FactRow(label, QDir::toNativeSeparators(folder), group);
    row->setButton(QStringLiteral("open-folder"), Words::tr("Open"));
    QObject::connect(row, &FactRow::signalClicked, group,
                     [folder] { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); });
    group->addWidget(row);
}

SettingsSection* makeAbout(QWidget* parent)
{
    auto* section = new SettingsSection(QStringLiteral("about"), Words::tr("About"), QStringLiteral("info"), parent);
    SettingsGroup* program = section->addGroup(Words::tr("Program"));
    program->addWidget(new FactRow(QStringLiteral("Vemo"),
                                   Words::tr("Version %1").arg(QCoreApplication::applicationVersion()), program));
    program->addWidget(new FactRow(QStringLiteral("Qt"), QLatin1String(qVersion()), program));
    SettingsGroup* places = section->addGroup(Words::tr("Places"), Words::tr("Where the client keeps what it knows"));
    addFolderFact(places, Words::tr("Data"), SysPaths::dataDir());
    addFolderFact(places, Words::tr("Settings"), SysPaths::configDir());
    addFolderFact(places, Words::tr("Program log"), SysPaths::logDir());
    SettingsGroup* libraries =
        section->addGroup(Words::tr("Libraries"), Words::tr("The client stands on the work of others"));
    const struct
    {
        const char* name;
        const char* licence;
    } used[] = {{"Qt 5", "LGPL 3"},
                {"FFmpeg (libavformat, libavcodec, libswscale)", "LGPL 2.1, GPL 2"},
                {"mpv (libmpv)", "GPL 2"},
                {"SQLite", "public domain"},
                {"OpenSSL", "Apache 2.0"},
                {"libsodium", "ISC"},
                {"QtKeychain", "BSD 3-Clause"},
                {"KD SOAP", "MIT"},
                {"libexif", "LGPL 2.1"}};
    for (const auto& library : used)
        libraries->addWidget(new FactRow(QLatin1String(library.name), QLatin1String(library.licence), libraries));
    return section;
}

} // namespace

QVector<SettingsSection*> SettingsSections::make(const QStringList& languages, SettingsPage* page)
{
    return {makeGeneral(languages, page),
            makeStorage(page),
            makeDownloads(page),
            makeBackup(page),
            makeAppearance(page),
            makeUsers(page),
            makeShortcuts(page),
            makeNotifications(page),
            makeAbout(page)};
}

} // namespace vemo_client
