#pragma once

#include "EmptyPage.h"

namespace vemo_filesCenter {

/// Browser of the client's files. For now it says that it is empty.
class LocalFilesMgrPage final : public EmptyPage
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalFilesMgrPage)

public:
    explicit LocalFilesMgrPage(QWidget* parent = nullptr);
};

} // namespace vemo_filesCenter
