#include "PageHeader.h"

#include "Icons.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVariant>

namespace vemo_base {

namespace {

constexpr int titlePixels = 20;
constexpr int titleGap = 12;
constexpr int buttonGap = 12;
constexpr int wrapBelow = 1100;
constexpr int leastSummary = 120;

} // namespace

PageHeader::PageHeader(const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_layout(new QGridLayout(this))
    , m_title(new QLabel(this))
    , m_summary(new QLabel(this))
    , m_buttons(new QWidget(this))
    , m_buttonRow(new QHBoxLayout(m_buttons))
{
    QFont font = this->font();
    font.setPixelSize(titlePixels);
    font.setWeight(QFont::DemiBold);
    m_title->setFont(font);
    m_title->setTextFormat(Qt::PlainText);
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setForegroundRole(QPalette::PlaceholderText);
    // The summary takes the room that is left and asks for none: a long one never widens the page.
    m_summary->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    auto* words = new QHBoxLayout;
    words->setSpacing(titleGap);
    words->addWidget(m_title, 0, Qt::AlignBaseline);
    words->addWidget(m_summary, 1, Qt::AlignBaseline);
    m_buttonRow->setContentsMargins(0, 0, 0, 0);
    m_buttonRow->setSpacing(buttonGap);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setHorizontalSpacing(titleGap);
    m_layout->setVerticalSpacing(0);
    m_layout->setColumnStretch(0, 1);
    m_layout->addLayout(words, 0, 0);
    m_layout->addWidget(m_buttons, 0, 1);
    setTitle(title);
}

void PageHeader::setTitle(const QString& title)
{
    m_title->setText(title);
    arrange();
}

void PageHeader::setSummary(const QString& summary)
{
    m_summaryText = summary;
    fitSummary();
}

QString PageHeader::summary() const
{
    return m_summaryText;
}

QPushButton* PageHeader::addButton(const QString& objectName, const QString& iconName, const QString& text,
                                   Weight weight)
{
    auto* button = new QPushButton(Icons::icon(iconName), text, m_buttons);
    button->setObjectName(objectName);
    if (weight == Weight::Primary)
        button->setProperty("kind", QStringLiteral("primary"));
    m_buttonRow->addWidget(button);
    arrange();
    return button;
}

void PageHeader::addTool(QWidget* tool)
{
    m_buttonRow->addWidget(tool);
    arrange();
}

void PageHeader::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void PageHeader::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LanguageChange)
        arrange();
}

void PageHeader::arrange()
{
    const int needed = m_title->sizeHint().width() + titleGap + leastSummary + m_buttons->sizeHint().width();
    const bool wraps = m_buttonRow->count() > 0 && (window()->width() < wrapBelow || width() < needed);
    if (wraps != m_isWrapped) {
        m_isWrapped = wraps;
        m_layout->removeWidget(m_buttons);
        if (wraps)
            m_layout->addWidget(m_buttons, 1, 0, 1, 2, Qt::AlignLeading);
        else
            m_layout->addWidget(m_buttons, 0, 1);
        m_layout->setVerticalSpacing(wraps ? titleGap : 0);
    }
    m_layout->activate();
    fitSummary();
}

void PageHeader::fitSummary()
{
    const QString shown = m_summary->fontMetrics().elidedText(m_summaryText, Qt::ElideRight, m_summary->width());
    m_summary->setText(shown);
    m_summary->setToolTip(shown == m_summaryText ? QString() : m_summaryText);
    m_summary->setAccessibleName(m_summaryText);
}

} // namespace vemo_base
