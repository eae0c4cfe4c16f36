#pragma once

#include "ChannelRef.h"

#include <QHash>
#include <QTreeWidget>
#include <QVector>

namespace vemo_client {

class RecorderLogins;

/// The recorders with their state, below the groups that they are in, and below each its channels. Follows the stores
/// and the logins by itself. GUI thread.
///
/// For playback channels are checked: those are searched and downloaded. A click on a channel's name, or Enter, takes
/// this channel alone; its box, or Space, adds it or takes it out. For live view there are no boxes. In both a channel
/// can be dragged, as ChannelMime. Channels that can't be used are shown and say why: those of a disabled recorder, and
/// for playback those of a source that has no recordings.
class RecorderTree final : public QTreeWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecorderTree)

public:
    enum class Use : int { Unknown = 0, Playback, Live };

    explicit RecorderTree(RecorderLogins* logins, QWidget* parent = nullptr, Use use = Use::Playback);

    /// In the order of the tree.
    QVector<ChannelRef> checkedChannels() const;
    /// Also channels that only come later, when their recorder has told them.
    void setCheckedChannels(const QVector<ChannelRef>& channels);
    /// Marks the channels that are being played.
    void setActiveChannels(const QVector<ChannelRef>& channels);
    void setFilter(const QString& text);
    void showRecorder(const QString& devId);
    /// The recorder of the current row; empty without one.
    QString currentDevId() const;

    /// More than that are not searched at once.
    static constexpr int mostChannels = 16;

signals:
    void signalCheckedChanged();
    /// The person wants the recordings of what is checked.
    void signalSearchWanted();
    /// A double click on a channel, or Enter.
    void signalChannelActivated(const vemo_client::ChannelRef& channel);
    void signalEdit(const QString& devId);
    void signalRemove(const QString& devId);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QList<QTreeWidgetItem*> items) const override;

private:
    QVector<QTreeWidgetItem*> recorderItems() const;
    QTreeWidgetItem* groupItem(const QString& group);
    QTreeWidgetItem* placedItem(const QString& devId, const QString& group);
    void refresh(const QString& devId);
    void refreshChannels(QTreeWidgetItem* recorder, const QString& devId);
    QString whyUnusable(const QString& devId) const;
    void removeRecorder(const QString& devId);
    void removeIfEmpty(QTreeWidgetItem* group);
    void takeCheck(QTreeWidgetItem* item);
    void checkOnly(QTreeWidgetItem* channel);
    bool isBox(const QTreeWidgetItem* item, const QPoint& position) const;
    void applyFilter();
    /// True when something of it is shown.
    bool applyFilterTo(QTreeWidgetItem* recorder, bool groupHit);

    RecorderLogins* m_logins;
    Use m_use;
    QHash<QString, QTreeWidgetItem*> m_recorders;
    QHash<QString, QTreeWidgetItem*> m_groups;
    QVector<ChannelRef> m_wanted; ///< to be checked when they come
    QVector<ChannelRef> m_active;
    QString m_filter;
    bool m_changing = false;
};

} // namespace vemo_client
