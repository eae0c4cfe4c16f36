#include "SnapImageFile.h"

#include "ImageFacts.h"
#include "RegularFile.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace VCOMMON {

SnapImageFile::Named SnapImageFile::fromName(const QString& fileName)
{
    static const QRegularExpression form(
        QStringLiteral("^(.*)[@(](\\d{4}-\\d\\d-\\d\\d \\d\\d_\\d\\d_\\d\\d)(?:_(\\d{3}))?\\)?(?: \\(\\d+\\))?$"));
    const QString stem = QFileInfo(fileName).completeBaseName();
    const QRegularExpressionMatch match = form.match(stem);
    const QDateTime time = QDateTime::fromString(match.captured(2), QStringLiteral("yyyy-MM-dd hh_mm_ss"));
    if (!match.hasMatch() || !time.isValid())
        return {stem, {}};
    return {match.captured(1), time.addMSecs(match.captured(3).toInt())};
}

SnapImageFile SnapImageFile::read(const QString& path)
{
    SnapImageFile found;
    QFile file(path);
    const QFileInfo info(path);
    found.bytes = info.size();
    found.writtenUtcMs = info.lastModified().toMSecsSinceEpoch();
    if (openRegularFile(file)) {
        const ImageFacts facts = ImageFacts::read(file);
        found.captureTime = facts.captureTime;
        found.channelName = facts.channelName;
        found.devName = facts.devName;
        if (file.size() == 0)
            found.problem = tr("The file is empty.");
        else if (facts.kind == ImageFacts::Kind::Unknown)
            found.problem = tr("This is no picture.");
        else if (!facts.isWhole)
            found.problem = tr("The end of the picture is missing.");
    } else {
        found.problem = tr("The file can't be read.");
    }
    const Named named = fromName(info.fileName());
    if (found.channelName.isEmpty())
        found.channelName = named.channelName;
    if (!found.captureTime.isValid())
        found.captureTime = named.time.isValid() ? named.time : info.lastModified();
    return found;
}

} // namespace VCOMMON
