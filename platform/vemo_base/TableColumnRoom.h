#pragma once

#include <QVector>

class QHeaderView;

namespace vemo_base {

/// How wide the columns of a table are: a width in pixels, or 0 for a share of what is left. Where the table is too
/// narrow, the ones between the first and the last, which hold boxes and buttons, give up to nearly half of their room;
/// a table still narrower scrolls.
class TableColumnRoom final
{
public:
    TableColumnRoom() = default;
    explicit TableColumnRoom(const QVector<int>& widths);

    void fit(QHeaderView* header, int width) const;

private:
    bool isFlexible(int column) const;

    QVector<int> m_widths;
};

} // namespace vemo_base
