#include "LocalFilesMgrPage.h"

namespace vemo_filesCenter {

LocalFilesMgrPage::LocalFilesMgrPage(QWidget* parent)
    : EmptyPage(tr("Local Files"), QStringLiteral(":/filesCenter_images/images/local_files_n.png"),
                tr("Local files are not shown yet"), parent)
{}

} // namespace vemo_filesCenter
