#pragma once

#include <QString>

class QPainter;
class QRectF;
class QFont;

namespace vemo_client {

/// The round that stands for a user: initials on a ground of the theme. GUI thread.
class Avatar final
{
public:
    Avatar() = delete;

    static constexpr int extent = 24;

    /// At most two letters: of the first and the last word, where dots and the like part words too.
    static QString initialsOf(const QString& name);
    static void paint(QPainter* painter, const QRectF& round, const QString& name, QFont font);
};

} // namespace vemo_client
