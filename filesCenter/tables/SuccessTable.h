#pragma once

#include "EmptyPage.h"

namespace vemo_filesCenter {

/// Page of the finished downloads. For now it says that it is empty.
class SuccessTable final : public EmptyPage
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SuccessTable)

public:
    explicit SuccessTable(QWidget* parent = nullptr);
};

} // namespace vemo_filesCenter
