#include "ThemeIconEngine.h"

#include "Theme.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace vemo_base {

namespace {

constexpr double disabledOpacity = 0.7;

QColor colorOf(QIcon::Mode mode, QIcon::State state)
{
    const Theme& theme = Theme::instance();
    if (mode == QIcon::Disabled) {
        QColor color = theme.color(Token::Text3);
        color.setAlphaF(disabledOpacity);
        return color;
    }
    if (mode == QIcon::Selected || state == QIcon::On)
        return theme.color(Token::AccentText);
    return theme.color(mode == QIcon::Active ? Token::Text : Token::Text2);
}

/// Our shapes have a stroke of 1.75 on a grid of 24; small ones are drawn bolder, large ones finer.
QByteArray withStrokeFor(QByteArray svg, int logicalSize)
{
    constexpr int smallSize = 16;
    constexpr int largeSize = 36;
    if (logicalSize <= smallSize)
        svg.replace("stroke-width=\"1.75\"", "stroke-width=\"2\"");
    else if (logicalSize >= largeSize)
        svg.replace("stroke-width=\"1.75\"", "stroke-width=\"1.25\"");
    return svg;
}

void drawShape(QPainter* painter, const QString& path, const QRectF& rect, int logicalSize)
{
    if (path.endsWith(QLatin1String(".svg"))) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return;
        QSvgRenderer renderer(withStrokeFor(file.readAll(), logicalSize));
        renderer.render(painter, rect);
        return;
    }
    const QImage image(path);
    if (!image.isNull())
        painter->drawImage(rect, image);
}

} // namespace

ThemeIconEngine::ThemeIconEngine(const QString& path)
    : m_path(path)
{}

QPixmap ThemeIconEngine::tinted(const QString& path, int pixels, int logicalSize, const QColor& color)
{
    const QString key = QLatin1String("vemo:") + path + QLatin1Char(':') + QString::number(pixels) + QLatin1Char(':') +
                        QString::number(logicalSize) + QLatin1Char(':') + QString::number(color.rgba(), 16);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    drawShape(&painter, path, QRectF(0, 0, pixels, pixels), logicalSize);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    pixmap = QPixmap::fromImage(image);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

void ThemeIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state)
{
    const int size = qMin(rect.width(), rect.height());
    const qreal ratio = painter->device()->devicePixelRatioF();
    const QPixmap shape = tinted(m_path, qRound(size * ratio), size, colorOf(mode, state));
    const QRectF target(rect.x() + (rect.width() - size) / 2.0, rect.y() + (rect.height() - size) / 2.0, size, size);
    painter->drawPixmap(target, shape, QRectF(shape.rect()));
}

QPixmap ThemeIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    // Callers that ask for a pixmap, and not for painting, get device pixels: the size is what counts for the stroke as
    // well.
    const int pixels = qMin(size.width(), size.height());
    return tinted(m_path, pixels, pixels, colorOf(mode, state));
}

QIconEngine* ThemeIconEngine::clone() const
{
    return new ThemeIconEngine(m_path);
}

} // namespace vemo_base
