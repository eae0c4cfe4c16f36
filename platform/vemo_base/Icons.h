#pragma once

#include "vemo_base_global.h"

#include <QIcon>
#include <QString>

namespace vemo_base {

/// The client's line icons. Each is one shape that is coloured from the theme when it is drawn: text2 at rest,
/// accentText when active, selected or on, text3 at 70 % when disabled; a theme change needs no new icon. GUI thread.
class VEMO_BASE_EXPORT Icons final
{
public:
    /// `name` as "files", "disk", "chev-down"; or the path of a picture, of which only the shape is used.
    static QIcon icon(const QString& name);
    /// The shape in one colour, at `size` logical pixels and the ratio of the screen.
    static QPixmap pixmap(const QString& name, int size, const QColor& color, qreal ratio);
};

} // namespace vemo_base
