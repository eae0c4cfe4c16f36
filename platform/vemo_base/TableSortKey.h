#pragma once

#include "vemo_base_global.h"

#include <QVariant>
#include <QVector>

class QTableWidget;

namespace vemo_base {

/// Orders the rows of a table by one value each. Numbers and date-times go by value, before all texts; texts by the
/// language's rules with numbers inside them by value ("Channel 2" before "Channel 10"); empty values come last in
/// either order. Rows with equal values keep their order.
class VEMO_BASE_EXPORT TableSortKey final
{
public:
    /// The items' values of `role` in a column; of those without one what they display.
    static QVector<QVariant> keysOf(const QTableWidget* table, int column, int role);
    /// Row numbers in the order that `keys` (one a row) give.
    static QVector<int> orderOf(const QVector<QVariant>& keys, Qt::SortOrder order);
};

} // namespace vemo_base
