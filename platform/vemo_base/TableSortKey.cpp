#include "TableSortKey.h"

#include "NaturalOrder.h"

#include <QCollator>
#include <QDateTime>
#include <QTableWidget>

#include <algorithm>
#include <numeric>
#include <optional>
#include <vector>

namespace vemo_base {

namespace {

enum class Kind : int { Number = 0, Text, Empty };

struct Key
{
    Kind kind = Kind::Empty;
    double number = 0;
    std::optional<QCollatorSortKey> text;
};

Key keyOf(const QVariant& value, const QCollator& collator)
{
    Key key;
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        key.kind = Kind::Number;
        key.number = value.toDouble();
        return key;
    case QMetaType::QDateTime:
        if (const QDateTime time = value.toDateTime(); time.isValid()) {
            key.kind = Kind::Number;
            key.number = double(time.toMSecsSinceEpoch());
        }
        return key;
    default:
        break;
    }
    if (const QString text = value.toString(); !text.isEmpty()) {
        key.kind = Kind::Text;
        key.text = collator.sortKey(text);
    }
    return key;
}

int compare(const Key& one, const Key& other)
{
    if (one.kind == Kind::Number)
        return one.number < other.number ? -1 : one.number > other.number ? 1 : 0;
    return one.kind == Kind::Text ? one.text->compare(*other.text) : 0;
}

} // namespace

QVector<QVariant> TableSortKey::keysOf(const QTableWidget* table, int column, int role)
{
    QVector<QVariant> keys;
    keys.reserve(table->rowCount());
    for (int row = 0; row < table->rowCount(); ++row) {
        const QTableWidgetItem* item = table->item(row, column);
        const QVariant key = item ? item->data(role) : QVariant();
        keys.append(key.isValid() || !item ? key : item->data(Qt::DisplayRole));
    }
    return keys;
}

QVector<int> TableSortKey::orderOf(const QVector<QVariant>& keys, Qt::SortOrder order)
{
    const QCollator& collator = NaturalOrder::collator();
    std::vector<Key> read;
    read.reserve(static_cast<std::size_t>(keys.size()));
    for (const QVariant& key : keys)
        read.push_back(keyOf(key, collator));

    QVector<int> rows(keys.size());
    std::iota(rows.begin(), rows.end(), 0);
    std::stable_sort(rows.begin(), rows.end(), [&read, order](int oneRow, int otherRow) {
        const Key& one = read[static_cast<std::size_t>(oneRow)];
        const Key& other = read[static_cast<std::size_t>(otherRow)];
        if (one.kind != other.kind) {
            const bool inOrder = one.kind < other.kind;
            const bool emptyInvolved = one.kind == Kind::Empty || other.kind == Kind::Empty;
            return emptyInvolved || order == Qt::AscendingOrder ? inOrder : !inOrder;
        }
        const int result = compare(one, other);
        return order == Qt::AscendingOrder ? result < 0 : result > 0;
    });
    return rows;
}

} // namespace vemo_base
