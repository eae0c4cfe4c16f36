#include "DevRecordingsBackupPage.h"

namespace vemo_filesCenter {

DevRecordingsBackupPage::DevRecordingsBackupPage(QWidget* parent)
    : EmptyPage(tr("Recordings Backup"), QStringLiteral(":/filesCenter_images/images/recordings_backup_n.png"),
                tr("Backups are not shown yet"), parent)
{}

} // namespace vemo_filesCenter
