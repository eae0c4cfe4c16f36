#pragma once

#include "ClientTree.h"

namespace vemo_base {

/// The channels of all devices as one list by name, for who knows the camera and not its recorder. GUI thread.
class VEMO_BASE_EXPORT LocalViewTree final : public ClientTree
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalViewTree)

public:
    explicit LocalViewTree(Refusal refusal, QWidget* parent = nullptr);

protected:
    void fill(const QList<Device>& devices) override;
};

} // namespace vemo_base
