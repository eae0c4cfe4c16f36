#pragma once

#include "EmptyPage.h"

namespace vemo_filesCenter {

/// Page of the recordings on this computer. For now it says that it is empty.
class LocalRecordingsMgrPage final : public EmptyPage
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalRecordingsMgrPage)

public:
    explicit LocalRecordingsMgrPage(QWidget* parent = nullptr);
};

} // namespace vemo_filesCenter
