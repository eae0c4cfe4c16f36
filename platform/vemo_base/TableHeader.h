#pragma once

#include <QHeaderView>

namespace vemo_base {

class TableWidget;

/// The header of a TableWidget: texts centred, the "All" box with its word in column 0, an arrow beside the text of the
/// column that the table is sorted by. Asks the table for what it shows. GUI thread.
class TableHeader final : public QHeaderView
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TableHeader)

public:
    explicit TableHeader(TableWidget* table);

    void setHasCheckBox(bool has) { m_hasCheckBox = has; }
    bool hasCheckBox() const { return m_hasCheckBox; }
    /// False: a widget stands in the place of the box; its word is painted all the same.
    void setPaintsCheckBox(bool paints) { m_paintsCheckBox = paints; }
    Qt::CheckState checkState() const;

    QSize sizeHint() const override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintCheckBox(QPainter* painter, const QRect& rect, const QString& text) const;

    TableWidget* m_table;
    bool m_hasCheckBox = false;
    bool m_paintsCheckBox = true;
};

} // namespace vemo_base
