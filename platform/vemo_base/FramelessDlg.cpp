#include "FramelessDlg.h"

#include "player/DimVeil.h"
#include "player/FadingBar.h"
#include "player/PlayerTitleBar.h"
#include "StylePainter.h"
#include "Theme.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QSizeGrip>
#include <QWindow>

namespace vemo_base {

namespace {

constexpr double radius = 10;

} // namespace

FramelessDlg::FramelessDlg(QWidget* parent, const QSize& narrowest)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
    , m_titleBar(new PlayerTitleBar(this))
    , m_grip(new QSizeGrip(this))
{
    setWindowModality(Qt::WindowModal);
    setMinimumSize(narrowest);
    setFocusPolicy(Qt::StrongFocus);
    connect(m_titleBar, &PlayerTitleBar::signalCloseRequested, this, &QDialog::reject);
}

FramelessDlg::~FramelessDlg()
{
    delete m_veil;
}

void FramelessDlg::setParts(QWidget* shown, QWidget* bar, int barHeight)
{
    m_shown = shown;
    m_bar = bar;
    m_barHeight = barHeight;
    m_fading = new FadingBar(bar, this);
    m_grip->raise();
}

void FramelessDlg::setFullScreen(bool on)
{
    if (on == isFullScreen())
        return;
    if (on) {
        m_geometryBefore = geometry();
        showFullScreen();
        windowHandle()->setGeometry(screen()->geometry()); // where no window manager does it
    } else {
        showNormal();
        setGeometry(m_geometryBefore);
    }
    arrange();
}

QRect FramelessDlg::room() const
{
    const QWidget* under = parentWidget() ? parentWidget()->window() : nullptr;
    return under ? under->geometry() : QGuiApplication::primaryScreen()->availableGeometry();
}

void FramelessDlg::place(const QSize& size)
{
    resize(size);
    move(room().center() - rect().center());
    QWidget* under = parentWidget() ? parentWidget()->window() : nullptr;
    if (under && under->isVisible() && !m_veil)
        m_veil = new DimVeil(under);
}

void FramelessDlg::arrange()
{
    if (!m_shown)
        return;
    const bool full = isFullScreen();
    m_titleBar->setVisible(!full);
    m_grip->setVisible(!full);
    showFullScreenState(full);
    m_fading->setActive(full);
    if (full) {
        clearMask();
        m_shown->setGeometry(rect());
        m_bar->setGeometry(0, height() - m_barHeight, width(), m_barHeight);
        m_bar->raise();
        return;
    }
    QPainterPath shape;
    shape.addRoundedRect(rect().adjusted(0, 0, border, border), radius, radius);
    setMask(shape.toFillPolygon().toPolygon());
    const QRect inside = rect().adjusted(border, border, -border, -border);
    m_titleBar->setGeometry(inside.left(), inside.top(), inside.width(), PlayerTitleBar::barHeight);
    m_bar->setGeometry(inside.left(), inside.bottom() + 1 - m_barHeight, inside.width(), m_barHeight);
    m_shown->setGeometry(inside.adjusted(0, PlayerTitleBar::barHeight, 0, -m_barHeight));
    const QSize gripSize = m_grip->sizeHint();
    m_grip->setGeometry(inside.right() - gripSize.width(), inside.bottom() - gripSize.height(), gripSize.width(),
                        gripSize.height());
    m_grip->raise();
}

void FramelessDlg::done(int result)
{
    setFullScreen(false);
    delete m_veil;
    QDialog::done(result);
}

void FramelessDlg::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && isFullScreen())
        setFullScreen(false);
    else if (event->key() == Qt::Key_Escape)
        reject();
    else if (!takeKey(*event))
        event->ignore(); // Enter has no button here that it could mean
}

void FramelessDlg::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    arrange();
}

void FramelessDlg::paintEvent(QPaintEvent*)
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(mode, Token::Surface));
    painter.setRenderHint(QPainter::Antialiasing);
    StylePainter::box(&painter, QRectF(rect()), radius, Qt::transparent, themeColor(mode, Token::Control));
}

} // namespace vemo_base
