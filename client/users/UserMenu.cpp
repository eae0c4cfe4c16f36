#include "UserMenu.h"

#include "Avatar.h"
#include "UserAccounts.h"
#include "UserDialog.h"

#include <Icons.h>
#include <StylePainter.h>
#include <SystemWorker.h>
#include <Theme.h>

#include <QFocusEvent>
#include <QMenu>
#include <QPainter>
#include <QStyle>

namespace vemo_client {

namespace {

using vemo_base::Token;

constexpr int barHeight = 40;
constexpr int padding = 8;
constexpr int gap = 8;
constexpr int chevronExtent = 14;
constexpr int mostWidth = 220;
constexpr double radius = 6;

} // namespace

UserMenu::UserMenu(QWidget* parent)
    : QAbstractButton(parent)
    , m_menu(new QMenu(this))
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_menu->addAction(vemo_base::Icons::icon(QStringLiteral("lock")), tr("Change password..."), this, [this] {
        auto* dialog =
            new UserDialog(UserDialog::Deed::ChangeOwnPassword, UserAccounts::instance().current(), window());
        dialog->open();
    });
    m_menu->addSeparator();
    m_menu->addAction(vemo_base::Icons::icon(QStringLiteral("user")), tr("Log out"), this, &UserMenu::signalLogOut);
    connect(this, &QAbstractButton::clicked, this, &UserMenu::open);
    connect(&vemo_worker::SystemWorker::instance(), &vemo_worker::SystemWorker::signalCurUserChanged, this,
            &UserMenu::refresh);
    refresh();
}

void UserMenu::refresh()
{
    m_name = UserAccounts::instance().current().name;
    setToolTip(tr("Logged in as %1").arg(m_name));
    setAccessibleName(toolTip());
    updateGeometry();
    update();
}

QSize UserMenu::sizeHint() const
{
    const int words = QFontMetrics(font()).horizontalAdvance(m_name);
    return {qMin(mostWidth, 2 * padding + Avatar::extent + gap + words + gap + chevronExtent), barHeight};
}

QSize UserMenu::minimumSizeHint() const
{
    return {2 * padding + Avatar::extent, barHeight};
}

void UserMenu::open()
{
    const int x = layoutDirection() == Qt::RightToLeft ? 0 : width() - m_menu->sizeHint().width();
    m_menu->popup(mapToGlobal(QPoint(x, height())));
}

void UserMenu::paintEvent(QPaintEvent*)
{
    const vemo_base::Theme& theme = vemo_base::Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (underMouse() || isDown())
        vemo_base::StylePainter::box(&painter, rect(), radius, theme.color(isDown() ? Token::Press : Token::Hover),
                                     QColor());
    if (hasFocus())
        vemo_base::StylePainter::focusRing(&painter, rect(), radius, theme.mode());
    const auto mirrored = [this](const QRect& logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };
    const QRect round = mirrored(QRect(padding, (height() - Avatar::extent) / 2, Avatar::extent, Avatar::extent));
    Avatar::paint(&painter, round, m_name, font());
    const int end = width() - padding - chevronExtent;
    const QRect words = mirrored(
        QRect(padding + Avatar::extent + gap, 0, end - gap - padding - Avatar::extent - gap + gap / 2, height()));
    painter.setFont(font());
    painter.setPen(theme.color(Token::Text));
    painter.drawText(words, int(Qt::AlignLeading | Qt::AlignVCenter),
                     painter.fontMetrics().elidedText(m_name, Qt::ElideRight, words.width()));
    const QRect chevron = mirrored(QRect(end, (height() - chevronExtent) / 2, chevronExtent, chevronExtent));
    painter.drawPixmap(chevron, vemo_base::Icons::pixmap(QStringLiteral("chev-down"), chevronExtent,
                                                         theme.color(Token::Text2), devicePixelRatioF()));
}

} // namespace vemo_client
