#include "TableRowMarks.h"

#include <algorithm>
#include <numeric>

namespace vemo_base {

void TableRowMarks::reset(int rows)
{
    m_rows.fill(Row(), rows);
    m_checkedShown = 0;
    m_hidden = 0;
    m_isSorted = false;
}

void TableRowMarks::insert(int first, int count)
{
    m_rows.insert(first, count, Row());
    if (!m_isSorted)
        return;
    const int above = first > 0 ? m_rows.at(first - 1).rank : -1;
    for (Row& row : m_rows) {
        if (row.rank > above)
            row.rank += count;
    }
    for (int i = 0; i < count; ++i)
        m_rows[first + i].rank = above + 1 + i;
}

void TableRowMarks::remove(int first, int count)
{
    for (int i = 0; i < count; ++i)
        this->count(m_rows.at(first + i), -1);
    m_rows.remove(first, count);
}

void TableRowMarks::permute(const QVector<int>& order)
{
    QVector<Row> rows;
    rows.reserve(order.size());
    for (const int row : order)
        rows.append(m_rows.at(row));
    m_rows = rows;
}

void TableRowMarks::setChecked(int row, bool checked)
{
    Row& mark = m_rows[row];
    count(mark, -1);
    mark.checked = checked;
    count(mark, 1);
}

void TableRowMarks::setHidden(int row, bool hidden)
{
    Row& mark = m_rows[row];
    count(mark, -1);
    mark.hidden = hidden;
    count(mark, 1);
}

void TableRowMarks::beginSorted()
{
    m_isSorted = true;
    for (int i = 0; i < m_rows.size(); ++i)
        m_rows[i].rank = i;
}

QVector<int> TableRowMarks::endSorted()
{
    m_isSorted = false;
    QVector<int> order(m_rows.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(),
              [this](int one, int other) { return m_rows.at(one).rank < m_rows.at(other).rank; });
    return order;
}

void TableRowMarks::count(const Row& row, int sign)
{
    if (row.hidden)
        m_hidden += sign;
    else if (row.checked)
        m_checkedShown += sign;
}

} // namespace vemo_base
