#include "TileActionsWt.h"

#include <Icons.h>
#include <OperButton.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace vemo_client {

using vemo_base::Icons;
using vemo_base::ThemeMode;
using vemo_base::Token;

namespace {

constexpr int iconSize = 18;
constexpr double radius = 6;
constexpr int groundAlpha = 204; // 80 %

/// Tiles are dark in both themes, and so are their icons.
QIcon iconOf(const VideoTileWt::Action& action, qreal ratio)
{
    const auto shape = [&](Token token) {
        return Icons::pixmap(action.iconName, iconSize, vemo_base::themeColor(ThemeMode::Dark, token), ratio);
    };
    QIcon icon(shape(action.isAlert ? Token::AxisAlarm : Token::Text));
    icon.addPixmap(shape(Token::Text3), QIcon::Disabled);
    return icon;
}

} // namespace

TileActionsWt::TileActionsWt(QWidget* parent)
    : QWidget(parent)
    , m_layout(new QHBoxLayout(this))
{
    m_layout->setContentsMargins(2, 1, 2, 1);
    m_layout->setSpacing(2);
    setCursor(Qt::ArrowCursor);
}

void TileActionsWt::setActions(const QVector<VideoTileWt::Action>& actions)
{
    if (actions.size() != m_actions.size()) {
        for (QWidget* button : qAsConst(m_buttons))
            button->deleteLater();
        m_buttons.clear();
        for (int i = 0; i < actions.size(); ++i) {
            auto* button = new vemo_base::OperButton(this);
            button->setIconSize(QSize(iconSize, iconSize));
            button->setFocusPolicy(Qt::TabFocus);
            button->installEventFilter(this);
            connect(button, &QToolButton::clicked, this, [this, i] { emit signalAction(m_actions.at(i).id); });
            m_layout->addWidget(button);
            m_buttons.append(button);
            button->show();
        }
    }
    m_actions = actions;
    for (int i = 0; i < actions.size(); ++i) {
        auto* button = static_cast<QToolButton*>(m_buttons.at(i));
        const VideoTileWt::Action& action = actions.at(i);
        button->setObjectName(action.id);
        button->setIcon(iconOf(action, devicePixelRatioF()));
        button->setToolTip(action.tip);
        button->setAccessibleName(action.tip);
        button->setEnabled(action.isEnabled);
        button->setCheckable(action.isChecked);
        button->setChecked(action.isChecked);
    }
    m_layout->activate();
    resize(sizeHint());
}

bool TileActionsWt::holdsFocus() const
{
    const QWidget* focused = QApplication::focusWidget();
    return focused && isAncestorOf(focused);
}

bool TileActionsWt::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        emit signalFocusChanged();
    return QWidget::eventFilter(watched, event);
}

void TileActionsWt::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ground = vemo_base::themeColor(ThemeMode::Dark, Token::Well);
    ground.setAlpha(groundAlpha);
    vemo_base::StylePainter::box(&painter, rect(), radius, ground, Qt::transparent, 0);
}

} // namespace vemo_client
