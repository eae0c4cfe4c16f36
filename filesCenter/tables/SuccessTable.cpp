#include "SuccessTable.h"

namespace vemo_filesCenter {

SuccessTable::SuccessTable(QWidget* parent)
    : EmptyPage(tr("Download Success"), QStringLiteral(":/filesCenter_images/images/download_mgr_n.png"),
                tr("Finished downloads are not shown yet"), parent)
{}

} // namespace vemo_filesCenter
