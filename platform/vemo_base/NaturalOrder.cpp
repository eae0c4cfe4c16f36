#include "NaturalOrder.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <numeric>
#include <vector>

namespace vemo_base {

const QCollator& NaturalOrder::collator()
{
    static const QCollator collator = [] {
        // The C locale compares bytes and knows no numbers.
        const QLocale locale;
        QCollator made(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
        made.setNumericMode(true);
        made.setCaseSensitivity(Qt::CaseInsensitive);
        return made;
    }();
    return collator;
}

bool NaturalOrder::lessThan(const QString& one, const QString& other)
{
    const int result = collator().compare(one, other);
    return result != 0 ? result < 0 : one < other;
}

QVector<int> NaturalOrder::orderOf(const QVector<QString>& texts)
{
    std::vector<QCollatorSortKey> keys;
    keys.reserve(static_cast<std::size_t>(texts.size()));
    for (const QString& text : texts)
        keys.push_back(collator().sortKey(text));
    QVector<int> order(texts.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&keys, &texts](int one, int other) {
        const int result = keys[static_cast<std::size_t>(one)].compare(keys[static_cast<std::size_t>(other)]);
        return result != 0 ? result < 0 : texts.at(one) < texts.at(other);
    });
    return order;
}

} // namespace vemo_base
