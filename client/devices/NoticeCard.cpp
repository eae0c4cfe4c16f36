#include "NoticeCard.h"

#include <Icons.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int padding = 12;
constexpr int iconExtent = 18;
constexpr int iconGap = 10;
constexpr int deedGap = 6;
constexpr double radius = 6;
constexpr int tint = 26;     // 10 %
constexpr int outline = 115; // 45 %

} // namespace

NoticeCard::NoticeCard(QWidget* parent)
    : QWidget(parent)
    , m_title(new QLabel(this))
    , m_text(new QLabel(this))
    , m_deed(new QPushButton(this))
{
    QFont strong = m_title->font();
    strong.setWeight(QFont::DemiBold);
    m_title->setFont(strong);
    for (QLabel* label : {m_title, m_text}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    m_text->setForegroundRole(QPalette::PlaceholderText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_deed->hide();
    connect(m_deed, &QPushButton::clicked, this, &NoticeCard::signalDeed);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding + iconExtent + iconGap, padding, padding, padding);
    layout->setSpacing(2);
    layout->addWidget(m_title);
    layout->addWidget(m_text);
    auto* deed = new QVBoxLayout;
    deed->setContentsMargins(0, deedGap, 0, 0);
    deed->addWidget(m_deed, 0, Qt::AlignLeading);
    layout->addLayout(deed);
}

void NoticeCard::tell(Weight weight, const QString& title, const QString& text, const QString& deed)
{
    m_weight = weight;
    m_title->setText(title);
    m_text->setText(text);
    m_deed->setText(deed);
    m_deed->setVisible(!deed.isEmpty());
    setAccessibleName(title);
    setAccessibleDescription(text);
    updateGeometry();
    update();
}

QString NoticeCard::title() const
{
    return m_title->text();
}

vemo_base::Token NoticeCard::token() const
{
    return m_weight == Weight::Error ? vemo_base::Token::Error : vemo_base::Token::Warning;
}

void NoticeCard::paintEvent(QPaintEvent*)
{
    const QColor color = vemo_base::Theme::instance().color(token());
    QColor fill = color;
    fill.setAlpha(tint);
    QColor line = color;
    line.setAlpha(outline);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    vemo_base::StylePainter::box(&painter, rect(), radius, fill, line);
    const QString icon = m_weight == Weight::Error ? QStringLiteral("error") : QStringLiteral("warning");
    const QRect iconRect =
        QStyle::visualRect(layoutDirection(), rect(), QRect(padding, padding + 1, iconExtent, iconExtent));
    painter.drawPixmap(iconRect, vemo_base::Icons::pixmap(icon, iconExtent, color, devicePixelRatioF()));
}

} // namespace vemo_client
