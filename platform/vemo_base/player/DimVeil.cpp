#include "DimVeil.h"

#include "StylePainter.h"

#include <QEvent>
#include <QPainter>

namespace vemo_base {

namespace {

constexpr double darkShare = 0.66;
constexpr double lightShare = 0.76;

} // namespace

DimVeil::DimVeil(QWidget* window)
    : QWidget(window)
{
    window->installEventFilter(this);
    setGeometry(window->rect());
    show();
    raise();
}

bool DimVeil::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}

void DimVeil::paintEvent(QPaintEvent*)
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    QPainter painter(this);
    QColor color = themeColor(mode, Token::Base);
    color.setAlphaF(mode == ThemeMode::Light ? lightShare : darkShare);
    painter.fillRect(rect(), color);
}

} // namespace vemo_base
