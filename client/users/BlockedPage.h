#pragma once

#include "AuthForm.h"

namespace vemo_client {

/// The accounts are there and can't be opened: why, and the way out, which is not in the window, since whoever sits
/// there need not be the owner. GUI thread.
class BlockedPage final : public AuthForm
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BlockedPage)

public:
    BlockedPage(const QString& problem, QWidget* parent = nullptr);
};

} // namespace vemo_client
