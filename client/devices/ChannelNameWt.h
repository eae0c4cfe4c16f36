#pragma once

#include "ChannelRef.h"

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace vemo_client {

/// The name of a channel as a field: what a person types goes before the device's own name, which stands in the empty
/// field and comes back by the button. Lives while its row is in view. GUI thread.
class ChannelNameWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ChannelNameWt)

public:
    ChannelNameWt(const ChannelRef& channel, const QString& name, const QString& deviceName, QWidget* parent = nullptr);

private:
    void keep();

    ChannelRef m_channel;
    QString m_deviceName;
    QLineEdit* m_name;
    QToolButton* m_reset;
};

} // namespace vemo_client
