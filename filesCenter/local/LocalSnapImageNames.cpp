#include "LocalSnapImageNames.h"

#include <BaseTools.h>
#include <DictDef.h>
#include <FilesCenterLogs.h>
#include <LocalSnapImageIndexes.h>
#include <pictures/Thumbnails.h>
#include <SaveAsName.h>
#include <SystemAssistant.h>

#include <QDir>

namespace vemo_filesCenter {

using vemo_base::BaseTools;

namespace {

constexpr int mostFilesNamed = 5;

} // namespace

QString LocalSnapImageNames::channelName(const VCOMMON::LocalSnapImageIndexInfo& info)
{
    const QString name = BaseTools::instance().getChannelName(info.devId, info.channelNo);
    return name.isEmpty() ? info.channelName : name;
}

QString LocalSnapImageNames::captureTime(const VCOMMON::LocalSnapImageIndexInfo& info)
{
    return BaseTools::instance().strDatetime(info.captureTime, false, false);
}

QString LocalSnapImageNames::fileName(const VCOMMON::LocalSnapImageIndexInfo& info)
{
    return vemo_base::SaveAsName::snapshot(channelName(info), info.captureTime, info.filePath);
}

void LocalSnapImageNames::logDeletion(const VCOMMON::LocalSnapImageIndexInfo& info)
{
    vemo_worker::FilesCenterLogs::instance().deleteLocalCaptureLog(info.devName, info.channelNo, channelName(info),
                                                                   tr("Capture time:%1").arg(captureTime(info)));
}

void LocalSnapImageNames::removeFiles(const QStringList& paths)
{
    VCOMMON::LocalSnapImageIndexes& indexes = VCOMMON::LocalSnapImageIndexes::instance();
    vemo_worker::SystemAssistant::instance().removeFiles(paths, &indexes, [](const QStringList& left) {
        if (left.isEmpty())
            return;
        VCOMMON::LocalSnapImageIndexes::instance().restoreLocalSnapImageIndexes(left);
        QStringList told{tr("Failed to delete snap images")};
        for (const QString& path : left.mid(0, mostFilesNamed))
            told.append(QDir::toNativeSeparators(path));
        if (left.size() > mostFilesNamed)
            told.append(tr("and %n more", nullptr, left.size() - mostFilesNamed));
        vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titleAlert(),
                                                              told.join(QLatin1Char('\n')));
    });
    vemo_base::Thumbnails::instance().forget(paths);
}

} // namespace vemo_filesCenter
