#pragma once

#include <QStyledItemDelegate>

namespace vemo_client {

/// Draws the rows of the RecorderTree: a group, a recorder with the icon and the word of its state at the trailing
/// edge, a channel with its check box, when it has one, and a mark when it is being played. Names elide, words don't.
class RecorderTreeDelegate final : public QStyledItemDelegate
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecorderTreeDelegate)

public:
    enum Role : int {
        DevIdRole = Qt::UserRole + 1,
        ChannelNoRole,
        StateIconRole,
        StateColorRole, ///< a Token
        StateWordRole,
        ActiveRole, ///< the channel is being played
    };

    explicit RecorderTreeDelegate(QObject* parent = nullptr);

    /// The check box of a channel's row.
    static QRect boxRect(const QRect& row, Qt::LayoutDirection direction);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    void paintGroup(QPainter* painter, const QStyleOptionViewItem& option) const;
    void paintRecorder(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintChannel(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
};

} // namespace vemo_client
