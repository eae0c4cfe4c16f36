#pragma once

#include <CheckableClientTree.h>

#include <QPair>

namespace vemo_filesCenter {

/// The picker of the channels that are to be backed up: those of recorders that offer replay. GUI thread.
class RecordingsBackUpTree final : public vemo_base::CheckableClientTree
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecordingsBackUpTree)

public:
    explicit RecordingsBackUpTree(QWidget* parent = nullptr);

    /// Device id and channel number of each, in the order of the tree shown, none twice.
    QList<QPair<QString, int>> getCheckedChannels() const;
};

} // namespace vemo_filesCenter
