#pragma once

#include "ClientTree.h"

namespace vemo_base {

/// The channels below their devices, in the order in which the devices were added. GUI thread.
class VEMO_BASE_EXPORT VideoPointTree final : public ClientTree
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(VideoPointTree)

public:
    explicit VideoPointTree(Refusal refusal, QWidget* parent = nullptr);

protected:
    void fill(const QList<Device>& devices) override;
};

} // namespace vemo_base
