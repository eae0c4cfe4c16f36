#include "LocalSnapImagesMgrPage.h"

namespace vemo_filesCenter {

LocalSnapImagesMgrPage::LocalSnapImagesMgrPage(QWidget* parent)
    : EmptyPage(tr("Local Snapshot"), QStringLiteral(":/filesCenter_images/images/local_snapshot_n.png"),
                tr("Local snapshots are not shown yet"), parent)
{}

} // namespace vemo_filesCenter
