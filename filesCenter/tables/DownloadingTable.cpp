#include "DownloadingTable.h"

namespace vemo_filesCenter {

DownloadingTable::DownloadingTable(QWidget* parent)
    : EmptyPage(tr("Downloading"), QStringLiteral(":/filesCenter_images/images/download_mgr_n.png"),
                tr("Queued downloads are not shown yet"), parent)
{}

} // namespace vemo_filesCenter
