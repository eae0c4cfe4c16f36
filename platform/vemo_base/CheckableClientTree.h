#pragma once

#include "ClientTreeWt.h"

namespace vemo_base {

/// A channel picker: the channels of the tree that is shown can be checked. GUI thread.
class VEMO_BASE_EXPORT CheckableClientTree : public ClientTreeWt
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CheckableClientTree)

public:
    explicit CheckableClientTree(ClientTree::Refusal refusal, QWidget* parent = nullptr);

    /// Channel ids in the order of the tree shown.
    QStringList checkedChannels() const;

signals:
    void signalCheckedChanged();
};

} // namespace vemo_base
