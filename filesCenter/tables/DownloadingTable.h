#pragma once

#include "EmptyPage.h"

namespace vemo_filesCenter {

/// Page of the downloads that wait or run. For now it says that it is empty.
class DownloadingTable final : public EmptyPage
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadingTable)

public:
    explicit DownloadingTable(QWidget* parent = nullptr);
};

} // namespace vemo_filesCenter
