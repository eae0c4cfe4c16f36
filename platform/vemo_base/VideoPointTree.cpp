#include "VideoPointTree.h"

namespace vemo_base {

VideoPointTree::VideoPointTree(Refusal refusal, QWidget* parent)
    : ClientTree(std::move(refusal), parent)
{
    refresh();
}

void VideoPointTree::fill(const QList<Device>& devices)
{
    for (const Device& device : devices) {
        QTreeWidgetItem* item = makeDevice(device);
        for (const Channel& channel : device.channels)
            item->addChild(makeChannel(channel, device));
        addTopLevelItem(item);
        item->setExpanded(device.refusal.isEmpty());
    }
}

} // namespace vemo_base
