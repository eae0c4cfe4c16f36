#include "LocalSnapImagesArea.h"

#include <StylePainter.h>
#include <Theme.h>

#include <QEvent>
#include <QPainter>
#include <QScrollBar>

namespace vemo_filesCenter {

using vemo_base::StylePainter;
using vemo_base::Theme;
using vemo_base::ThemeMode;
using vemo_base::Token;

namespace {

constexpr int inset = 3; // the corners of what is inside then lie inside the round ones
constexpr double radius = 8;
constexpr int scrollStep = 48;

} // namespace

LocalSnapImagesArea::LocalSnapImagesArea(QWidget* parent)
    : QScrollArea(parent)
{
    setPalette(Theme::palette(ThemeMode::Dark));
    setViewportMargins(inset, inset, inset, inset);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(scrollStep);
}

bool LocalSnapImagesArea::event(QEvent* event)
{
    // Around the viewport, which paints no ground of its own.
    if (event->type() == QEvent::Paint) {
        const auto dark = [](Token token) { return themeColor(ThemeMode::Dark, token); };
        const bool isIsland = Theme::instance().mode() == ThemeMode::Light;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        StylePainter::box(&painter, rect(), radius, dark(Token::Well), dark(isIsland ? Token::Well : Token::Border));
    }
    return QScrollArea::event(event);
}

} // namespace vemo_filesCenter
