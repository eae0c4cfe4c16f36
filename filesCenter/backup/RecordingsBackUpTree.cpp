#include "RecordingsBackUpTree.h"

#include <BaseTools.h>
#include <DevsMgrData.h>

namespace vemo_filesCenter {

RecordingsBackUpTree::RecordingsBackUpTree(QWidget* parent)
    : CheckableClientTree(
          [](const vms_sdk::DevInfo& device) {
              const vemo_data::DevRecord record = vemo_data::DevsMgrData::instance().devRecord(device.devId);
              if (!record.enabled)
                  return tr("disabled");
              if (record.kind == vemo_data::DevKind::RtspSource)
                  return tr("live view alone");
              return device.supportsBackup ? QString() : tr("no replay");
          },
          parent)
{}

QList<QPair<QString, int>> RecordingsBackUpTree::getCheckedChannels() const
{
    QStringList ids = checkedChannels();
    ids.removeDuplicates();
    QList<QPair<QString, int>> channels;
    for (const QString& id : qAsConst(ids)) {
        const QPair<QString, int> channel = vemo_base::BaseTools::instance().formatChannelId(id);
        if (vemo_data::DevsMgrData::instance().getDevInfoById(channel.first).supportsBackup)
            channels.append(channel);
    }
    return channels;
}

} // namespace vemo_filesCenter
