#include "DeviceOperWt.h"

#include <QToolButton>

namespace vemo_client {

// The key is copied: a receiver may make the table let go of this widget.

DeviceOperWt::DeviceOperWt(const QString& devId, bool isEnabled, QWidget* parent)
    : TableOperWt(parent)
{
    setKey(devId);
    QToolButton* reconnect =
        addOperButton(QStringLiteral("reconnectBt"), QStringLiteral("sync"),
                      isEnabled ? tr("Log in again") : tr("Log in again (the recorder is disabled)"));
    reconnect->setEnabled(isEnabled);
    connect(reconnect, &QToolButton::clicked, this, [this] {
        const QString key = getKey();
        emit signalReconnect(key);
    });
    QToolButton* enable =
        addOperButton(QStringLiteral("enableBt"), isEnabled ? QStringLiteral("pause") : QStringLiteral("start"),
                      isEnabled ? tr("Disable") : tr("Enable"));
    connect(enable, &QToolButton::clicked, this, [this, isEnabled] {
        const QString key = getKey();
        emit signalEnable(key, !isEnabled);
    });
    QToolButton* edit = addOperButton(QStringLiteral("editBt"), QStringLiteral("settings"), tr("Change"));
    connect(edit, &QToolButton::clicked, this, [this] {
        const QString key = getKey();
        emit signalEdit(key);
    });
    QToolButton* remove = addOperButton(QStringLiteral("removeBt"), QStringLiteral("clean"), tr("Remove"));
    connect(remove, &QToolButton::clicked, this, [this] {
        const QString key = getKey();
        emit signalRemove(key);
    });
}

} // namespace vemo_client
