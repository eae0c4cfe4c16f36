#include "ToolsCollection.h"

#include "FileCopier.h"
#include "FileManager.h"
#include "PausePoint.h"

#include <QFileInfo>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <array>

namespace VCOMMON {

namespace {

bool isLegal(const QString& name, int index)
{
    const QChar c = name.at(index);
    if (c == QChar(0x200c) || c == QChar(0x200d)) // (non-)joiners: several scripts can't be written without
        return true;
    if (c.isHighSurrogate())
        return index + 1 < name.size() && name.at(index + 1).isLowSurrogate();
    if (c.isLowSurrogate())
        return index > 0 && name.at(index - 1).isHighSurrogate();
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format: // the bidirectional controls are among these
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return !QStringLiteral("/\\:*?\"<>|").contains(c);
    }
}

bool isDotOrSpace(QChar c)
{
    return c == QLatin1Char('.') || c.isSpace();
}

void trim(QString& name)
{
    while (!name.isEmpty() && isDotOrSpace(name.back()))
        name.chop(1);
    const auto firstKept = std::find_if_not(name.cbegin(), name.cend(), isDotOrSpace);
    name.remove(0, static_cast<int>(firstKept - name.cbegin()));
}

/// CON, PRN, AUX, NUL, COM1 to COM9 and LPT1 to LPT9, with any suffix.
bool isReserved(const QString& name)
{
    const QString base = name.section(QLatin1Char('.'), 0, 0).trimmed().toUpper();
    static const std::array<QLatin1String, 6> devices{QLatin1String("CON"),    QLatin1String("PRN"),
                                                      QLatin1String("AUX"),    QLatin1String("NUL"),
                                                      QLatin1String("CONIN$"), QLatin1String("CONOUT$")};
    if (std::find(devices.cbegin(), devices.cend(), base) != devices.cend())
        return true;
    if (base.size() != 4 || !(base.startsWith(QLatin1String("COM")) || base.startsWith(QLatin1String("LPT"))))
        return false;
    const QChar digit = base.back();
    return digit.digitValue() >= 1 || QStringLiteral("\u00b9\u00b2\u00b3").contains(digit);
}

} // namespace

QString ToolsCollection::formatLegalFileName(QString& name, const QString& substitute)
{
    QString legal;
    legal.reserve(name.size());
    for (int i = 0; i < name.size(); ++i) {
        if (isLegal(name, i))
            legal.append(name.at(i));
        else
            legal.append(substitute);
    }
    trim(legal);
    if (isReserved(legal))
        legal.prepend(QLatin1Char('_'));
    cutToBytes(legal, maxFileNameBytes);
    trim(legal);
    name = legal;
    return legal;
}

void ToolsCollection::cutToBytes(QString& text, int limitBytes)
{
    if (text.toUtf8().size() <= limitBytes)
        return;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int end = 0;
    int bytes = 0;
    for (int next = finder.toNextBoundary(); next > 0; next = finder.toNextBoundary()) {
        bytes += text.midRef(end, next - end).toUtf8().size();
        if (bytes > limitBytes)
            break;
        end = next;
    }
    text.truncate(end);
}

QString ToolsCollection::freeFileName(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink())
        return path;
    const QString suffix = info.suffix().isEmpty() ? QString() : QString(QLatin1Char('.') + info.suffix());
    const QString folder = path.chopped(info.fileName().size());
    for (int i = 2;; ++i) {
        const QString ending = QStringLiteral(" (%1)").arg(i) + suffix;
        QString stem = info.fileName().chopped(suffix.size());
        cutToBytes(stem, maxFileNameBytes - ending.toUtf8().size());
        const QString candidate = folder + stem + ending;
        const QFileInfo other(candidate);
        if (!other.exists() && !other.isSymLink())
            return candidate;
    }
}

bool ToolsCollection::copyFile(const QString& source, const QString& destination)
{
    PausePoint pausePoint;
    return FileCopier(pausePoint, {}).copy(source, destination).end == CopyResult::End::Copied;
}

void ToolsCollection::openFolder(const QString& path)
{
    FileManager::show(path, FileManager::Target::Folder);
}

void ToolsCollection::openFolderAndSelectFile(const QString& path)
{
    FileManager::show(path, FileManager::Target::FileInFolder);
}

} // namespace VCOMMON
