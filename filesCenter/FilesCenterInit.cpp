#include "FilesCenterInit.h"

#include "backup/BackupExportRun.h"
#include "backup/BackupPlanRun.h"
#include "download/DownloadAccess.h"
#include "FilesCenterForm.h"

namespace vemo_filesCenter {

FilesCenterInit::FilesCenterInit(QObject* parent)
    : QObject(parent)
{
    DownloadAccess::instance();
    new BackupPlanRun(this);
    new BackupExportRun(this);
}

FilesCenterInit::~FilesCenterInit() = default;

FilesCenterInit& FilesCenterInit::instance()
{
    static FilesCenterInit init(nullptr);
    return init;
}

void FilesCenterInit::moduleInit() {}

void FilesCenterInit::recoveryToInitialState() {}

vemo_base::BaseForm* FilesCenterInit::createFilesCenterForm()
{
    return new FilesCenterForm(nullptr);
}

} // namespace vemo_filesCenter
