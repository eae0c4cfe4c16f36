#pragma once

#include "vemo_base_global.h"

#include <QString>
#include <QVector>

class QCollator;

namespace vemo_base {

/// The order in which people expect names: by the language's rules, capitals or not, with numbers inside by their value
/// ("Channel 2" before "Channel 10"). Texts that differ have a fixed order. GUI thread.
class VEMO_BASE_EXPORT NaturalOrder final
{
public:
    NaturalOrder() = delete;

    static bool lessThan(const QString& one, const QString& other);
    /// Positions of the texts in their order; equal ones keep theirs. Much faster than a sort with lessThan().
    static QVector<int> orderOf(const QVector<QString>& texts);

    static const QCollator& collator();
};

} // namespace vemo_base
