#include "OutPath.h"

#include <DiskManager.h>
#include <ToolsCollection.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace vemo_client {

namespace {

/// So that the whole name, the span and a number behind it included, stays below the 255 bytes of the usual file
/// systems.
constexpr int longestPartBytes = 80;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::OutPath", text);
}

QString legalPart(QString text)
{
    VCOMMON::ToolsCollection::formatLegalFileName(text, QString());
    VCOMMON::ToolsCollection::cutToBytes(text, longestPartBytes);
    return text;
}

} // namespace

OutPath::OutPath(const QString& out, bool several)
    : m_out(out)
    , m_several(several)
{}

Outcome OutPath::prepare()
{
    const QFileInfo info(m_out);
    m_isFolder = m_several || info.isDir() || m_out.endsWith(QLatin1Char('/')) || m_out.endsWith(QDir::separator());
    const QString folder = m_isFolder ? m_out : info.absolutePath();
    if (m_several && info.exists() && !info.isDir())
        return {ExitCode::Usage, tr("%1 is a file; several channels need a folder.").arg(m_out)};
    if (info.exists() && !info.isFile() && !info.isDir())
        return {ExitCode::Disk, tr("%1 is neither a file nor a folder.").arg(m_out)};
    if (m_isFolder && !QDir().mkpath(folder))
        return {ExitCode::Disk, tr("The folder %1 can't be made.").arg(folder)};
    const QFileInfo folderInfo(folder);
    if (!folderInfo.isDir())
        return {ExitCode::Disk, tr("The folder %1 does not exist.").arg(folder)};
    if (!vemo_worker::DiskManager::instance().isPathAvailable(folder, true))
        return {ExitCode::Disk, tr("The folder %1 can't be written.").arg(folder)};
    return {};
}

QString OutPath::take(const QString& name)
{
    const QString wanted = m_isFolder ? QDir(m_out).filePath(name) : m_out;
    const QString suffix = QFileInfo(wanted).suffix();
    const QString stem = suffix.isEmpty() ? wanted : wanted.chopped(suffix.size() + 1);
    const QString ending = suffix.isEmpty() ? QString() : QString(QLatin1Char('.') % suffix);
    QString path = QDir::cleanPath(QFileInfo(wanted).absoluteFilePath());
    // A dangling link counts as taken: writing would go wherever it points.
    for (int number = 2; m_taken.contains(path) || QFileInfo::exists(path) || QFileInfo(path).isSymLink(); ++number)
        path = QDir::cleanPath(QFileInfo(stem % QStringLiteral(" (%1)").arg(number) % ending).absoluteFilePath());
    m_taken.insert(path);
    return path;
}

QString OutPath::fileName(const QString& channelName, const QString& devLabel, int channelNo, const QDateTime& begin,
                          const QDateTime& end, const QString& location)
{
    const QString stamp = QStringLiteral("yyyyMMddhhmmss");
    QString place = location;
    place.replace(QLatin1Char('/'), QLatin1Char(' '));
    return legalPart(channelName) % QLatin1Char('@') % legalPart(devLabel) % QLatin1Char('_') %
           QString::number(channelNo) % QLatin1Char('@') % begin.toString(stamp) % QLatin1Char('~') %
           end.toString(stamp) % QLatin1Char('@') % place % QLatin1String(".mp4");
}

} // namespace vemo_client
