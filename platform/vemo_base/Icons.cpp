#include "Icons.h"

#include "ThemeIconEngine.h"

#include <QFile>

namespace vemo_base {

namespace {

QString pathOf(const QString& name)
{
    if (!name.contains(QLatin1Char('/')))
        return QLatin1String(":/vemo_base/icons/") + name + QLatin1String(".svg");
    if (name.endsWith(QLatin1String(".png"))) {
        const QString svg = name.chopped(3) + QLatin1String("svg");
        if (QFile::exists(svg))
            return svg;
    }
    return name;
}

} // namespace

QIcon Icons::icon(const QString& name)
{
    return QIcon(new ThemeIconEngine(pathOf(name)));
}

QPixmap Icons::pixmap(const QString& name, int size, const QColor& color, qreal ratio)
{
    QPixmap pixmap = ThemeIconEngine::tinted(pathOf(name), qRound(size * ratio), size, color);
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

} // namespace vemo_base
