#include "VWidget.h"

#include <StylePainter.h>
#include <Theme.h>

#include <QPainter>
#include <QPaintEvent>

namespace VCOMMON {

VWidget::VWidget(QWidget* parent)
    : QWidget(parent)
{}

void VWidget::setBackground(vemo_base::Token token)
{
    m_background = token;
    update();
}

void VWidget::setDarkIsland()
{
    setPalette(vemo_base::Theme::palette(vemo_base::ThemeMode::Dark));
}

void VWidget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), vemo_base::themeColor(vemo_base::StylePainter::modeOf(palette()), m_background));
}

} // namespace VCOMMON
