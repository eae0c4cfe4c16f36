#pragma once

#include "AuthForm.h"

namespace vemo_client {

/// The last step of a first start: whether to look for recorders now. GUI thread.
class RecordersPage final : public AuthForm
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecordersPage)

public:
    explicit RecordersPage(QWidget* parent = nullptr);

signals:
    void signalLater();
};

} // namespace vemo_client
