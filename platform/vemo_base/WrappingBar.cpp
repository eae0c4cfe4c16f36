#include "WrappingBar.h"

#include <QGridLayout>

namespace vemo_base {

namespace {

constexpr int wrapBelow = 1100;
constexpr int groupGap = 16;
constexpr int rowGap = 12;

} // namespace

WrappingBar::WrappingBar(QWidget* parent)
    : QWidget(parent)
{}

QSize WrappingBar::minimumSizeHint() const
{
    // Side by side they may ask for more than there is; one below the other they don't.
    const auto* grid = qobject_cast<const QGridLayout*>(layout());
    int width = 0;
    for (int at = 0; grid && at < grid->count(); ++at)
        width = qMax(width, grid->itemAt(at)->minimumSize().width());
    return {width, QWidget::minimumSizeHint().height()};
}

void WrappingBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void WrappingBar::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    arrange();
}

void WrappingBar::arrange()
{
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (!grid || grid->count() != 2)
        return;
    QWidget* first = grid->itemAt(0)->widget();
    QWidget* second = grid->itemAt(1)->widget();
    const int needed = first->sizeHint().width() + groupGap + second->sizeHint().width();
    const bool wraps = window()->width() < wrapBelow || width() < needed;
    if (wraps == m_isWrapped)
        return;
    m_isWrapped = wraps;
    grid->removeWidget(second);
    grid->setVerticalSpacing(wraps ? rowGap : 0);
    if (wraps)
        grid->addWidget(second, 1, 0, Qt::AlignLeading);
    else
        grid->addWidget(second, 0, 1, Qt::AlignTrailing);
    updateGeometry();
}

} // namespace vemo_base
