#pragma once

#include "EmptyPage.h"

namespace vemo_filesCenter {

/// Page of the snapshots on this computer. For now it says that it is empty.
class LocalSnapImagesMgrPage final : public EmptyPage
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalSnapImagesMgrPage)

public:
    explicit LocalSnapImagesMgrPage(QWidget* parent = nullptr);
};

} // namespace vemo_filesCenter
