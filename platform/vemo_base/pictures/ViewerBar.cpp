#include "ViewerBar.h"

#include "player/TransportButton.h"
#include "StylePainter.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace vemo_base {

namespace {

constexpr int margin = 20;
constexpr int between = 4;
constexpr int groupGap = 16;

} // namespace

ViewerBar::ViewerBar(QWidget* parent)
    : QWidget(parent)
    , m_back(add(QStringLiteral("chev-left"), tr("Previous (Left arrow)"), false))
    , m_on(add(QStringLiteral("chev-right"), tr("Next (Right arrow)"), false))
    , m_place(new QLabel(this))
    , m_scale(new QLabel(this))
{
    setFixedHeight(barHeight);
    m_place->setObjectName(QStringLiteral("viewerPlace"));
    m_scale->setObjectName(QStringLiteral("viewerScale"));
    m_place->setForegroundRole(QPalette::PlaceholderText);
    m_scale->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("1600%")));
    m_scale->setAlignment(Qt::AlignCenter);
    TransportButton* out = add(QStringLiteral("zoom-out"), tr("Zoom out (-)"), true);
    TransportButton* in = add(QStringLiteral("zoom-in"), tr("Zoom in (+)"), true);
    TransportButton* fit = add(QStringLiteral("fit"), tr("Fit into the window (0)"), true);
    TransportButton* actual = add(QStringLiteral("actual-size"), tr("Actual size (1)"), true);
    TransportButton* left = add(QStringLiteral("rotate-left"), tr("Turn left (Shift+R)"), true);
    TransportButton* right = add(QStringLiteral("rotate-right"), tr("Turn right (R)"), true);
    TransportButton* copy = add(QStringLiteral("copy"), tr("Copy (Ctrl+C)"), true);
    m_folder = add(QStringLiteral("open-folder"), tr("Open the folder"), false);
    m_fullScreen = add(QStringLiteral("fullscreen"), tr("Full screen (F)"), false);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(margin, 0, margin, 0);
    row->setSpacing(between);
    row->addWidget(m_back);
    row->addWidget(m_on);
    row->addSpacing(groupGap - between);
    row->addWidget(m_place);
    row->addStretch();
    for (QWidget* widget : {static_cast<QWidget*>(out), static_cast<QWidget*>(m_scale), static_cast<QWidget*>(in),
                            static_cast<QWidget*>(fit), static_cast<QWidget*>(actual)})
        row->addWidget(widget);
    row->addSpacing(groupGap - between);
    row->addWidget(left);
    row->addWidget(right);
    row->addStretch();
    row->addWidget(copy);
    row->addWidget(m_folder);
    row->addWidget(m_fullScreen);

    connect(m_back, &TransportButton::clicked, this, [this] { emit signalStepRequested(-1); });
    connect(m_on, &TransportButton::clicked, this, [this] { emit signalStepRequested(1); });
    connect(out, &TransportButton::clicked, this, [this] { emit signalZoomRequested(-1); });
    connect(in, &TransportButton::clicked, this, [this] { emit signalZoomRequested(1); });
    connect(fit, &TransportButton::clicked, this, &ViewerBar::signalFitRequested);
    connect(actual, &TransportButton::clicked, this, &ViewerBar::signalActualSizeRequested);
    connect(left, &TransportButton::clicked, this, [this] { emit signalTurnRequested(-1); });
    connect(right, &TransportButton::clicked, this, [this] { emit signalTurnRequested(1); });
    connect(copy, &TransportButton::clicked, this, &ViewerBar::signalCopyRequested);
    connect(m_folder, &TransportButton::clicked, this, &ViewerBar::signalFolderRequested);
    connect(m_fullScreen, &TransportButton::clicked, this, &ViewerBar::signalFullScreenRequested);
    setPlace(0, 0);
    setScale(0, true);
}

TransportButton* ViewerBar::add(const QString& iconName, const QString& tip, bool needsPicture)
{
    auto* button = new TransportButton(TransportButton::Kind::Quiet, iconName, tip, this);
    if (needsPicture)
        m_needPicture.append(button);
    return button;
}

void ViewerBar::setPlace(int index, int count)
{
    m_back->setEnabled(index > 0);
    m_on->setEnabled(index + 1 < count);
    m_place->setText(count > 0 ? tr("%1 of %2").arg(index + 1).arg(count) : QString());
}

void ViewerBar::setScale(int percent, bool isFitted)
{
    for (TransportButton* button : qAsConst(m_needPicture))
        button->setEnabled(percent > 0);
    m_scale->setText(percent > 0 ? tr("%1%").arg(percent) : QString());
    m_scale->setForegroundRole(isFitted ? QPalette::PlaceholderText : QPalette::WindowText);
}

void ViewerBar::setFullScreen(bool on)
{
    m_fullScreen->setFace(QStringLiteral("fullscreen"), on ? tr("Leave full screen (F)") : tr("Full screen (F)"));
}

void ViewerBar::setHasFile(bool hasFile)
{
    m_folder->setEnabled(hasFile);
}

void ViewerBar::paintEvent(QPaintEvent*)
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(mode, Token::Surface));
    StylePainter::hairline(&painter, rect(), Qt::TopEdge, mode);
}

} // namespace vemo_base
