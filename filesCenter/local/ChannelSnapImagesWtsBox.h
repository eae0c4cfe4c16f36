#pragma once

#include "LocalSnapImageCardsBox.h"

#include <VWidget.h>

#include <QList>

class QVBoxLayout;

namespace vemo_filesCenter {

class ChannelSnapImagesWt;

/// The groups of snapshots, one a channel name, in the names' natural order, one below the other on a dark ground in
/// both themes. Groups are used again when others are to be shown. GUI thread, in the page's scroll area.
class ChannelSnapImagesWtsBox final : public VCOMMON::VWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ChannelSnapImagesWtsBox)

public:
    using Snapshot = LocalSnapImageCardsBox::Snapshot;

    explicit ChannelSnapImagesWtsBox(QWidget* parent = nullptr);

    void setSnapshots(const QList<Snapshot>& snapshots);
    /// Shows the groups whose names contain the keyword, whatever the case; all of them for an empty one.
    void filter(const QString& keyword);
    void setAllChecked(bool isChecked); ///< of the groups shown

    /// Of the groups shown, from the top down.
    QList<Snapshot> checkedSnapshots() const;
    void removeSnapshots(const QStringList& filePaths);

    int groupCount() const { return m_groups.size(); }
    int shownGroupCount() const;
    int snapshotCount() const;

signals:
    void signalContentChanged();

private:
    void addGroup(const QString& name, const QList<Snapshot>& snapshots);
    void removeGroup(ChannelSnapImagesWt* group);
    void goOn(const ChannelSnapImagesWt* from, int direction, int column);
    bool isShown(const ChannelSnapImagesWt* group) const;

    QList<ChannelSnapImagesWt*> m_groups;
    QVBoxLayout* m_layout; ///< the groups and, last, a stretch
};

} // namespace vemo_filesCenter
