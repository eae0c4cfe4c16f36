#include "LocalViewTree.h"

#include <QCollator>

#include <algorithm>

namespace vemo_base {

LocalViewTree::LocalViewTree(Refusal refusal, QWidget* parent)
    : ClientTree(std::move(refusal), parent)
{
    setRootIsDecorated(false);
    refresh();
}

void LocalViewTree::fill(const QList<Device>& devices)
{
    QList<QTreeWidgetItem*> items;
    for (const Device& device : devices) {
        for (const Channel& channel : device.channels) {
            QTreeWidgetItem* item = makeChannel(channel, device);
            item->setToolTip(0, tr("%1, %2").arg(channel.name, device.name));
            items.append(item);
        }
    }
    QCollator byName;
    byName.setNumericMode(true);
    std::stable_sort(items.begin(), items.end(), [&byName](const QTreeWidgetItem* a, const QTreeWidgetItem* b) {
        return byName.compare(a->text(0), b->text(0)) < 0;
    });
    addTopLevelItems(items);
}

} // namespace vemo_base
