#include "LocalRecordingsMgrPage.h"

namespace vemo_filesCenter {

LocalRecordingsMgrPage::LocalRecordingsMgrPage(QWidget* parent)
    : EmptyPage(tr("Local Recording"), QStringLiteral(":/filesCenter_images/images/local_recording_n.png"),
                tr("Local recordings are not shown yet"), parent)
{}

} // namespace vemo_filesCenter
