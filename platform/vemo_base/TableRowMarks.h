#pragma once

#include <QVector>

namespace vemo_base {

/// What a table knows of each of its rows beside the items: checked, hidden and, while it is sorted, the place in the
/// natural order; and the sums of them, kept with every change. Plain values, no thread of its own.
class TableRowMarks final
{
public:
    void reset(int rows);
    void insert(int first, int count);
    void remove(int first, int count);
    /// Row i becomes what row order[i] was.
    void permute(const QVector<int>& order);

    void setChecked(int row, bool checked);
    void setHidden(int row, bool hidden);
    bool isChecked(int row) const { return m_rows.at(row).checked; }
    bool isHidden(int row) const { return m_rows.at(row).hidden; }
    int count() const { return m_rows.size(); }
    /// Checked rows that are shown.
    int checkedCount() const { return m_checkedShown; }
    int shownCount() const { return m_rows.size() - m_hidden; }

    /// Remembers the rows' order as the natural one; from here on insert() keeps it.
    void beginSorted();
    /// The rows in their natural order, and the end of remembering it.
    QVector<int> endSorted();
    bool isSorted() const { return m_isSorted; }

private:
    struct Row
    {
        int rank = 0;
        bool checked = false;
        bool hidden = false;
    };

    void count(const Row& row, int sign);

    QVector<Row> m_rows;
    int m_checkedShown = 0;
    int m_hidden = 0;
    bool m_isSorted = false;
};

} // namespace vemo_base
