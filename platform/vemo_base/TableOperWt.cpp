#include "TableOperWt.h"

#include "Icons.h"
#include "OperButton.h"

#include <QHBoxLayout>

namespace vemo_base {

namespace {

constexpr int buttonSpacing = 4;

} // namespace

TableOperWt::TableOperWt(QWidget* parent)
    : QWidget(parent)
{}

TableOperWt::~TableOperWt() = default;

void TableOperWt::setCurStyle(TableOperWtStyle::Style style)
{
    if (m_style == style)
        return;
    m_style = style;
    styleChanged();
}

QToolButton* TableOperWt::addOperButton(const QString& objectName, const QString& iconName, const QString& toolTip)
{
    if (!m_buttons) {
        m_buttons = new QHBoxLayout(this);
        m_buttons->setContentsMargins(0, 0, 0, 0);
        m_buttons->setSpacing(buttonSpacing);
        m_buttons->addStretch();
        m_buttons->addStretch();
    }
    auto* button = new OperButton(this);
    button->setObjectName(objectName);
    button->setIcon(Icons::icon(iconName));
    setOperButtonText(button, toolTip);
    m_buttons->insertWidget(m_buttons->count() - 1, button);
    return button;
}

void TableOperWt::setOperButtonText(QToolButton* button, const QString& text)
{
    button->setToolTip(text);
    button->setAccessibleName(text);
}

void TableOperWt::styleChanged()
{
    update();
}

} // namespace vemo_base
