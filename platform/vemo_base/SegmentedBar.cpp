#include "SegmentedBar.h"

#include "StylePainter.h"
#include "ThemeTokens.h"

#include <QButtonGroup>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QPainterPath>
#include <QRadioButton>

namespace vemo_base {

namespace {

constexpr int barHeight = 32;
constexpr int padding = 14;
constexpr double radius = 6;

/// A radio button that looks like a part of the bar.
class SegmentBt final : public QRadioButton
{
public:
    SegmentBt(const QString& text, QWidget* parent)
        : QRadioButton(text, parent)
    {
        setAttribute(Qt::WA_Hover);
        setFixedHeight(barHeight);
    }

    QSize sizeHint() const override
    {
        return {QFontMetrics(strongFont()).horizontalAdvance(text()) + 2 * padding, barHeight};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

    void paintEvent(QPaintEvent*) override
    {
        const ThemeMode mode = StylePainter::modeOf(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        // The round corners are those of the whole bar.
        QPainterPath bar;
        bar.addRoundedRect(QRectF(parentWidget()->rect().translated(-pos())).adjusted(1, 1, -1, -1), radius - 1,
                           radius - 1);
        painter.setClipPath(bar);
        if (isChecked() || underMouse())
            painter.fillRect(rect().adjusted(0, 1, 0, -1),
                             themeColor(mode, isChecked() ? Token::Select : Token::Hover));
        const bool isFirst =
            layoutDirection() == Qt::RightToLeft ? geometry().right() >= parentWidget()->width() - 1 : x() == 0;
        const int edge = layoutDirection() == Qt::RightToLeft ? width() - 1 : 0;
        if (!isFirst)
            painter.fillRect(QRect(edge, 1, 1, height() - 2),
                             themeColor(mode, isEnabled() ? Token::Control : Token::Border));
        if (hasFocus() && m_isKeyboard)
            StylePainter::focusRingInside(&painter, QRectF(rect()).adjusted(2, 2, -2, -2), radius - 2);
        painter.setFont(isChecked() ? strongFont() : font());
        painter.setPen(themeColor(mode, !isEnabled() ? Token::Text3 : isChecked() ? Token::Text : Token::Text2));
        painter.drawText(rect(), Qt::AlignCenter, text());
    }

    void focusInEvent(QFocusEvent* event) override
    {
        m_isKeyboard = event->reason() != Qt::MouseFocusReason;
        QRadioButton::focusInEvent(event);
    }

private:
    QFont strongFont() const
    {
        QFont strong = font();
        strong.setWeight(QFont::DemiBold);
        return strong;
    }

    bool m_isKeyboard = false;
};

} // namespace

SegmentedBar::SegmentedBar(const QString& accessibleName, QWidget* parent)
    : QWidget(parent)
    , m_layout(new QHBoxLayout(this))
    , m_group(new QButtonGroup(this))
{
    setAccessibleName(accessibleName);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    connect(m_group, &QButtonGroup::idClicked, this, &SegmentedBar::signalChosen);
}

void SegmentedBar::addChoice(int value, const QString& text)
{
    auto* segment = new SegmentBt(text, this);
    segment->setChecked(m_group->buttons().isEmpty());
    m_group->addButton(segment, value);
    m_layout->addWidget(segment);
}

int SegmentedBar::value() const
{
    return m_group->checkedId();
}

void SegmentedBar::setValue(int value)
{
    if (QAbstractButton* segment = m_group->button(value))
        segment->setChecked(true);
}

void SegmentedBar::paintEvent(QPaintEvent*)
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    QPainter painter(this);
    StylePainter::box(&painter, rect(), radius, themeColor(mode, Token::Field),
                      themeColor(mode, isEnabled() ? Token::Control : Token::Border));
}

} // namespace vemo_base
