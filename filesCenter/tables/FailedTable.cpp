#include "FailedTable.h"

namespace vemo_filesCenter {

FailedTable::FailedTable(QWidget* parent)
    : EmptyPage(tr("Download Failure"), QStringLiteral(":/filesCenter_images/images/download_mgr_n.png"),
                tr("Failed downloads are not shown yet"), parent)
{}

} // namespace vemo_filesCenter
