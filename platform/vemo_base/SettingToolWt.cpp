#include "SettingToolWt.h"

#include "Icons.h"
#include "StylePainter.h"
#include "Theme.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>
#include <QVariantAnimation>
#include <QVBoxLayout>

namespace vemo_base {

namespace {

constexpr int slideMs = 180;
constexpr int titleHeight = 56;
constexpr int footHeight = 64;
constexpr int margin = 24;
constexpr int titlePixels = 16;
constexpr double veilDark = 0.66;
constexpr double veilLight = 0.76;

/// The card itself: surface, and lines that part title and foot from the body.
class PanelWt final : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        const Theme& theme = Theme::instance();
        QPainter painter(this);
        painter.fillRect(rect(), theme.color(Token::Surface));
        const bool mirrored = layoutDirection() == Qt::RightToLeft;
        StylePainter::hairline(&painter, rect(), mirrored ? Qt::RightEdge : Qt::LeftEdge, theme.mode());
        StylePainter::hairline(&painter, QRect(0, 0, width(), titleHeight), Qt::BottomEdge, theme.mode());
        StylePainter::hairline(&painter, QRect(0, height() - footHeight, width(), footHeight), Qt::TopEdge,
                               theme.mode());
    }

    /// What lies below is veiled and takes no click.
    void mousePressEvent(QMouseEvent* event) override { event->accept(); }
};

} // namespace

SettingToolWt::SettingToolWt(const QString& title, QWidget* host)
    : QWidget(host)
    , m_panel(new PanelWt(this))
    , m_note(new QLabel(m_panel))
    , m_body(new QVBoxLayout)
    , m_foot(new QHBoxLayout)
    , m_slide(new QVariantAnimation(this))
{
    hide();
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(title);
    auto* titleLabel = new QLabel(title, m_panel);
    QFont strong = titleLabel->font();
    strong.setPixelSize(titlePixels);
    strong.setWeight(QFont::DemiBold);
    titleLabel->setFont(strong);
    m_note->setForegroundRole(QPalette::PlaceholderText);
    m_note->setTextFormat(Qt::PlainText);
    auto* close = new QToolButton(m_panel);
    close->setIcon(Icons::icon(QStringLiteral("close")));
    close->setAutoRaise(true);
    close->setToolTip(tr("Close"));
    close->setAccessibleName(close->toolTip());
    connect(close, &QToolButton::clicked, this, &SettingToolWt::hideSettingToolWt);

    auto* head = new QWidget(m_panel);
    head->setFixedHeight(titleHeight);
    auto* headLayout = new QHBoxLayout(head);
    headLayout->setContentsMargins(margin, 0, margin / 2, 0);
    headLayout->addWidget(titleLabel);
    headLayout->addWidget(m_note, 1);
    headLayout->addWidget(close);
    auto* foot = new QWidget(m_panel);
    foot->setFixedHeight(footHeight);
    foot->setProperty("bottomBar", true);
    foot->setLayout(m_foot);
    m_foot->setContentsMargins(margin, 0, margin, 0);
    m_foot->addStretch();
    m_body->setContentsMargins(margin, margin - 8, margin, 16);
    m_body->setSpacing(8);
    auto* layout = new QVBoxLayout(m_panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(head);
    layout->addLayout(m_body, 1);
    layout->addWidget(foot);

    m_slide->setDuration(slideMs);
    m_slide->setEasingCurve(QEasingCurve::OutCubic);
    connect(m_slide, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_shown = value.toDouble();
        arrange();
    });
    connect(m_slide, &QVariantAnimation::finished, this, [this] {
        if (m_shown <= 0)
            vanish();
    });
    host->installEventFilter(this);
}

SettingToolWt::~SettingToolWt() = default;

void SettingToolWt::setTitleNote(const QString& note)
{
    m_note->setText(note);
}

void SettingToolWt::showSettingToolWt()
{
    m_focusBefore = QApplication::focusWidget();
    const bool slides = QApplication::isEffectEnabled(Qt::UI_General) && parentWidget()->isVisible();
    m_slide->stop();
    m_shown = slides ? m_shown : 1;
    arrange();
    raise();
    show();
    setFocus(Qt::OtherFocusReason);
    if (slides) {
        m_slide->setStartValue(m_shown);
        m_slide->setEndValue(1.0);
        m_slide->start();
    }
}

void SettingToolWt::hideSettingToolWt()
{
    if (isHidden())
        return;
    m_slide->stop();
    if (m_focusBefore)
        m_focusBefore->setFocus(Qt::OtherFocusReason);
    if (QApplication::isEffectEnabled(Qt::UI_General) && parentWidget()->isVisible()) {
        m_slide->setStartValue(m_shown);
        m_slide->setEndValue(0.0);
        m_slide->start();
    } else {
        m_shown = 0;
        vanish();
    }
}

void SettingToolWt::vanish()
{
    hide();
    emit signalHidden();
}

QRect SettingToolWt::panelRect() const
{
    const int shown = qRound(m_shown * qMin(panelWidth, width()));
    return QStyle::visualRect(layoutDirection(), rect(),
                              QRect(width() - shown, 0, qMin(panelWidth, width()), height()));
}

void SettingToolWt::arrange()
{
    setGeometry(parentWidget()->rect());
    m_panel->setGeometry(panelRect());
    update();
}

bool SettingToolWt::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        arrange();
    return QWidget::eventFilter(watched, event);
}

void SettingToolWt::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QColor veil = theme.color(Token::Base);
    veil.setAlphaF((theme.mode() == ThemeMode::Light ? veilLight : veilDark) * m_shown);
    QPainter(this).fillRect(rect(), veil);
}

void SettingToolWt::mousePressEvent(QMouseEvent*)
{
    hideSettingToolWt();
}

void SettingToolWt::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        hideSettingToolWt();
    else
        QWidget::keyPressEvent(event);
}

/// Tab stays inside: what is veiled can't be used.
bool SettingToolWt::focusNextPrevChild(bool next)
{
    QWidget* const now = focusWidget() ? focusWidget() : this;
    for (QWidget* widget = next ? now->nextInFocusChain() : now->previousInFocusChain(); widget != now;
         widget = next ? widget->nextInFocusChain() : widget->previousInFocusChain()) {
        if (m_panel->isAncestorOf(widget) && widget->isVisibleTo(m_panel) && widget->isEnabled() &&
            widget->focusPolicy() & Qt::TabFocus && !widget->focusProxy()) {
            widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    return true;
}

} // namespace vemo_base
