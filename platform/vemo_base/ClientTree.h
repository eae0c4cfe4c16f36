#pragma once

#include "vemo_base_global.h"

#include <QSet>
#include <QStringList>
#include <QTreeWidget>

#include <functional>

namespace vms_sdk {
struct DevInfo;
}

namespace vemo_base {

/// A tree of the client's channels with a check box each, made from the device store and following it. Channels of
/// devices that `refusal` has a word for are shown, disabled, with that word. What is checked is kept by channel id
/// while rows come and go. GUI thread.
class VEMO_BASE_EXPORT ClientTree : public QTreeWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ClientTree)

public:
    /// Why the device's channels can't be checked, in two words; empty: they can.
    using Refusal = std::function<QString(const vms_sdk::DevInfo& device)>;

    ClientTree(Refusal refusal, QWidget* parent);

    /// Channel ids in the order of the tree; those that a filter hides too.
    QStringList getCheckedChannels() const;
    void setCheckedChannels(const QStringList& channelIds);
    void setFilter(const QString& text);
    /// Makes the rows anew from the store.
    void refresh();

signals:
    void signalCheckedChanged();

protected:
    struct Channel
    {
        QString id;
        QString name;
    };
    struct Device
    {
        QString name;
        QString refusal;
        QList<Channel> channels;
    };

    virtual void fill(const QList<Device>& devices) = 0;
    QTreeWidgetItem* makeChannel(const Channel& channel, const Device& device) const;
    QTreeWidgetItem* makeDevice(const Device& device) const;

private:
    QList<Device> devices() const;
    void applyFilter(QTreeWidgetItem* item, bool parentHit);
    QList<QTreeWidgetItem*> channelItems() const;

    Refusal m_refusal;
    QString m_filter;
    bool m_isFilling = false;
};

} // namespace vemo_base
