#pragma once

#include <QStyledItemDelegate>

namespace vemo_client {

/// Draws one kept notice: icon, title, time at the trailing end, below them the text on as many lines as it needs, and
/// the words that act. Rows are as wide as the view. GUI thread.
class NoticeDelegate final : public QStyledItemDelegate
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NoticeDelegate)

public:
    explicit NoticeDelegate(QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// The action whose words lie under the position; -1: none.
    int actionAt(const QStyleOptionViewItem& option, const QModelIndex& index, const QPoint& position) const;

private:
    struct Layout;

    static Layout layOut(const QStyleOptionViewItem& option, const QModelIndex& index);
};

} // namespace vemo_client
