#pragma once

#include "ChannelRef.h"

#include <QTreeWidget>
#include <QVector>

namespace vemo_client {

class RecorderLogins;

/// The recorders with their state and, below each, its channels. Channels are checked: those are searched and
/// downloaded. A click on a channel's name, or Enter, takes this channel alone; its box, or Space, adds it or takes it
/// out. Follows the stores and the logins by itself. GUI thread.
class RecorderTree final : public QTreeWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecorderTree)

public:
    explicit RecorderTree(RecorderLogins* logins, QWidget* parent = nullptr);

    /// In the order of the tree.
    QVector<ChannelRef> checkedChannels() const;
    /// Also channels that only come later, when their recorder has told them.
    void setCheckedChannels(const QVector<ChannelRef>& channels);
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
    void signalEdit(const QString& devId);
    void signalRemove(const QString& devId);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    QTreeWidgetItem* recorderItem(const QString& devId) const;
    void refresh(const QString& devId);
    void refreshChannels(QTreeWidgetItem* recorder, const QString& devId);
    void removeRecorder(const QString& devId);
    void takeCheck(QTreeWidgetItem* item);
    void checkOnly(QTreeWidgetItem* channel);
    bool isBox(const QTreeWidgetItem* item, const QPoint& position) const;
    void applyFilter();

    RecorderLogins* m_logins;
    QVector<ChannelRef> m_wanted; ///< to be checked when they come
    QString m_filter;
    bool m_changing = false;
};

} // namespace vemo_client
