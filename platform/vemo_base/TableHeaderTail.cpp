#include "TableHeaderTail.h"

#include "StylePainter.h"
#include "TableMetrics.h"

#include <QPainter>

namespace vemo_base {

TableHeaderTail::TableHeaderTail(QWidget* table)
    : QWidget(table)
    , m_table(table)
{
    setFixedHeight(TableMetrics::headerHeight);
}

void TableHeaderTail::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const ThemeMode mode = StylePainter::modeOf(palette());
    painter.fillRect(rect(), themeColor(mode, Token::Raised));
    StylePainter::hairline(&painter, rect(), Qt::BottomEdge, mode);
    const QRect panel = m_table->rect().translated(-mapTo(m_table, QPoint()));
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    StylePainter::panelCorner(&painter, panel, mirrored ? Qt::TopLeftCorner : Qt::TopRightCorner, palette());
}

} // namespace vemo_base
