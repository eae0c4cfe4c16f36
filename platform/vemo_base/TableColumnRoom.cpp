#include "TableColumnRoom.h"

#include <QHeaderView>

namespace vemo_base {

namespace {

constexpr int leastShared = 120;
constexpr int mostGivenPercent = 45;

} // namespace

TableColumnRoom::TableColumnRoom(const QVector<int>& widths)
    : m_widths(widths)
{}

void TableColumnRoom::fit(QHeaderView* header, int width) const
{
    int needed = 0;
    int flexible = 0;
    for (int column = 0; column < m_widths.size(); ++column) {
        if (header->isSectionHidden(column))
            continue;
        const int room = m_widths.at(column);
        const QHeaderView::ResizeMode mode = room > 0 ? QHeaderView::Fixed : QHeaderView::Stretch;
        if (header->sectionResizeMode(column) != mode)
            header->setSectionResizeMode(column, mode);
        needed += room > 0 ? room : leastShared;
        flexible += isFlexible(column) ? room : 0;
    }
    const int missing = qBound(0, needed - width, flexible * mostGivenPercent / 100);
    for (int column = 0; column < m_widths.size(); ++column) {
        const int room = m_widths.at(column);
        if (room > 0 && !header->isSectionHidden(column))
            header->resizeSection(column, isFlexible(column) ? room - room * missing / flexible : room);
    }
}

bool TableColumnRoom::isFlexible(int column) const
{
    return column > 0 && column < m_widths.size() - 1 && m_widths.at(column) > 0;
}

} // namespace vemo_base
