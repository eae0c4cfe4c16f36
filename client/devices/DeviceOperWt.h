#pragma once

#include <TableOperWt.h>

namespace vemo_client {

/// The buttons of a row of the DevicesTable; its key is the device's id. Lives only while its row is in view.
class DeviceOperWt final : public vemo_base::TableOperWt
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DeviceOperWt)

public:
    DeviceOperWt(const QString& devId, bool isEnabled, QWidget* parent = nullptr);

signals:
    void signalReconnect(const QString& devId);
    void signalEdit(const QString& devId);
    void signalEnable(const QString& devId, bool enabled);
    void signalRemove(const QString& devId);
};

} // namespace vemo_client
