#pragma once

#include "EmptyPage.h"

namespace vemo_filesCenter {

/// Page of the planned backups. For now it says that it is empty.
class DevRecordingsBackupPage final : public EmptyPage
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DevRecordingsBackupPage)

public:
    explicit DevRecordingsBackupPage(QWidget* parent = nullptr);
};

} // namespace vemo_filesCenter
