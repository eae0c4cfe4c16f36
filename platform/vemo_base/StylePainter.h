#pragma once

#include "ThemeTokens.h"
#include "vemo_base_global.h"

#include <QRectF>
#include <QStyle>

class QPainter;
class QPalette;

namespace vemo_base {

/// How a push button weighs on its page; the widget's property `kind` holds the name in lower case.
enum class ButtonKind : int { Unknown = 0, Secondary, Primary, Quiet, Danger };

/// The shapes that the style and the widgets that paint themselves have in common. Nothing here asks a widget:
/// rectangles, states and the theme's mode come in.
class VEMO_BASE_EXPORT StylePainter final
{
public:
    /// The theme that a palette belongs to: dark islands carry the dark palette in the light theme.
    static ThemeMode modeOf(const QPalette& palette);

    static void box(QPainter* painter, const QRectF& rect, double radius, const QColor& fill, const QColor& outline,
                    double outlineWidth = 1.0);
    /// A line of one device pixel along the edge of `rect`.
    static void hairline(QPainter* painter, const QRectF& rect, Qt::Edge edge, ThemeMode mode);
    /// Makes one corner of a panel with square contents round: paints over what lies outside of it with the window's
    /// colour and draws the outline's bend. `panel` is the whole panel in the painter's coordinates.
    static void panelCorner(QPainter* painter, const QRectF& panel, Qt::Corner corner, const QPalette& palette);
    /// 2 px ring that fills the outer edge of `rect`; the caller leaves the gap.
    static void focusRing(QPainter* painter, const QRectF& rect, double radius, ThemeMode mode);
    static void focusRingInside(QPainter* painter, const QRectF& rect, double radius);

    static void checkBox(QPainter* painter, const QRect& rect, QStyle::State state, ThemeMode mode);
    static void pushButton(QPainter* painter, const QRect& rect, QStyle::State state, ButtonKind kind, ThemeMode mode);
    static QColor pushButtonText(QStyle::State state, ButtonKind kind, ThemeMode mode);
    static void field(QPainter* painter, const QRect& rect, QStyle::State state, bool invalid, ThemeMode mode);
    /// `fraction` 0 to 1; the bar keeps its rounded ends at every fraction above 0.
    static void progress(QPainter* painter, const QRectF& groove, double fraction, const QColor& track,
                         const QColor& bar);
};

} // namespace vemo_base
