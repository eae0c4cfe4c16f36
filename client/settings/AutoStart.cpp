#include "AutoStart.h"

#include <DataFolder.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>

namespace vemo_client {

namespace {

QStringList command()
{
    QStringList words{QDir::toNativeSeparators(QCoreApplication::applicationFilePath())};
    const QString root = vemo_data::DataFolder::root();
    if (!root.isEmpty())
        words << QStringLiteral("--data") << QDir::toNativeSeparators(root);
    return words;
}

#if defined(Q_OS_WIN)

const char runKey[] = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run";
const char valueName[] = "Vemo";

QString commandLine()
{
    QStringList quoted;
    const QStringList words = command();
    for (const QString& word : words)
        quoted.append(QLatin1Char('"') + word + QLatin1Char('"'));
    return quoted.join(QLatin1Char(' '));
}

#else

QString entryPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart/vemo.desktop");
}

#endif

} // namespace

QString AutoStart::execLine(const QStringList& arguments)
{
    QStringList quoted;
    for (QString argument : arguments) {
        for (const char* sign : {"\\", "\"", "`", "$"})
            argument.replace(QLatin1String(sign), QLatin1Char('\\') + QLatin1String(sign));
        // A percent sign begins a field code; the backslashes are those of the file's own strings.
        argument.replace(QLatin1Char('%'), QLatin1String("%%"));
        argument.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
        quoted.append(QLatin1Char('"') + argument + QLatin1Char('"'));
    }
    return quoted.join(QLatin1Char(' '));
}

bool AutoStart::isOn()
{
#if defined(Q_OS_WIN)
    const QSettings run(QLatin1String(runKey), QSettings::NativeFormat);
    return run.contains(QLatin1String(valueName));
#else
    return QFileInfo::exists(entryPath());
#endif
}

bool AutoStart::set(bool on)
{
#if defined(Q_OS_WIN)
    QSettings run(QLatin1String(runKey), QSettings::NativeFormat);
    if (on)
        run.setValue(QLatin1String(valueName), commandLine());
    else
        run.remove(QLatin1String(valueName));
    run.sync();
    return run.status() == QSettings::NoError;
#else
    if (!on)
        return !QFileInfo::exists(entryPath()) || QFile::remove(entryPath());
    QDir().mkpath(QFileInfo(entryPath()).path());
    QSaveFile file(entryPath());
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const QString entry = QStringLiteral("[Desktop Entry]\nType=Application\nName=Vemo\nIcon=vemo\nTerminal=false\n"
                                         "Exec=%1\n")
                              .arg(execLine(command()));
    return file.write(entry.toUtf8()) > 0 && file.commit();
#endif
}

} // namespace vemo_client
