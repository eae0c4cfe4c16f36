#pragma once

#include <QColor>
#include <QIconEngine>
#include <QString>

namespace vemo_base {

/// Draws one shape, an SVG or the alpha of a picture, in the colour that the theme gives to mode and state, at the real
/// ratio of the paint device. Pixmaps are cached by shape, size and colour. GUI thread.
class ThemeIconEngine final : public QIconEngine
{
public:
    explicit ThemeIconEngine(const QString& path);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;

    /// The shape in a colour, `pixels` wide and high in device pixels; `logicalSize` decides the stroke of our own
    /// shapes.
    static QPixmap tinted(const QString& path, int pixels, int logicalSize, const QColor& color);

private:
    QString m_path;
};

} // namespace vemo_base
