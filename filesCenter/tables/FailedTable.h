#pragma once

#include "EmptyPage.h"

namespace vemo_filesCenter {

/// Page of the failed downloads. For now it says that it is empty.
class FailedTable final : public EmptyPage
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FailedTable)

public:
    explicit FailedTable(QWidget* parent = nullptr);
};

} // namespace vemo_filesCenter
