#include "TableFooter.h"

#include "Icons.h"
#include "KeyCap.h"
#include "StylePainter.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace vemo_base {

namespace {

constexpr int lineHeight = 24;
constexpr int fontPixels = 12;
constexpr int iconSize = 16;
constexpr int iconGap = 8;
constexpr int wordGap = 8;
constexpr int keyGap = 24;

} // namespace

/// Paints text and icon itself, elided, so that a long text takes no room from the keys.
class TableFooter::Leading final : public QWidget
{
public:
    explicit Leading(QWidget* parent)
        : QWidget(parent)
    {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        QFont words = font();
        words.setPixelSize(fontPixels);
        setFont(words);
    }

    QString text;
    QString iconName;

    QSize sizeHint() const override { return {fontMetrics().horizontalAdvance(text) + iconRoom(), lineHeight}; }
    QSize minimumSizeHint() const override { return {0, lineHeight}; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        if (!iconName.isEmpty()) {
            const QRect icon(0, (height() - iconSize) / 2, iconSize, iconSize);
            Icons::icon(iconName).paint(&painter, QStyle::visualRect(layoutDirection(), rect(), icon));
        }
        painter.setPen(themeColor(StylePainter::modeOf(palette()), Token::Text2));
        const QRect room = QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(iconRoom(), 0, 0, 0));
        const Qt::Alignment leading = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
        painter.drawText(room, static_cast<int>(leading) | Qt::AlignVCenter | Qt::TextSingleLine,
                         fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
    }

private:
    int iconRoom() const { return iconName.isEmpty() ? 0 : iconSize + iconGap; }
};

TableFooter::TableFooter(QWidget* parent)
    : QWidget(parent)
    , m_leading(new Leading(this))
    , m_keys(new QHBoxLayout)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(keyGap);
    layout->addWidget(m_leading, 1);
    m_keys->setSpacing(keyGap);
    layout->addLayout(m_keys);
}

void TableFooter::setText(const QString& text)
{
    m_leading->text = text;
    m_leading->setAccessibleName(text);
    m_leading->updateGeometry();
    m_leading->update();
}

QString TableFooter::text() const
{
    return m_leading->text;
}

void TableFooter::setIcon(const QString& iconName)
{
    m_leading->iconName = iconName;
    m_leading->update();
}

void TableFooter::addKey(const QString& key, const QString& words)
{
    auto* pair = new QHBoxLayout;
    pair->setSpacing(wordGap);
    pair->addWidget(new KeyCap(key, this), 0, Qt::AlignVCenter);
    auto* label = new QLabel(words, this);
    QFont labelFont = label->font();
    labelFont.setPixelSize(fontPixels);
    label->setFont(labelFont);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(QPalette::PlaceholderText);
    pair->addWidget(label);
    m_keys->addLayout(pair);
}

QSize TableFooter::minimumSizeHint() const
{
    return {QWidget::minimumSizeHint().width(), lineHeight};
}

} // namespace vemo_base
