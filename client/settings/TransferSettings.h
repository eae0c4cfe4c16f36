#pragma once

#include <QObject>

namespace vemo_client {

/// Hands what the settings say of transfers to those who obey it, now and at every change: the rate to the device
/// SDK, largest file and clock track to the download SDK. Whoever runs downloads holds one. GUI thread.
class TransferSettings final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TransferSettings)

public:
    explicit TransferSettings(QObject* parent = nullptr);

private:
    void apply();

    qint64 m_bytesPerSecond = 0; ///< as it was handed over
};

} // namespace vemo_client
