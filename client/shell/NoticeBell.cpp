#include "NoticeBell.h"

#include "NoticesPopup.h"

#include <Icons.h>
#include <Notices.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QIcon>
#include <QPainter>
#include <QStyle>

namespace vemo_client {

namespace {

using vemo_base::Notices;
using vemo_base::Token;

constexpr int iconExtent = 20;
constexpr int badgeHeight = 14;
constexpr int badgePixels = 10;
constexpr int badgePadding = 4;
constexpr int dotExtent = 7;
constexpr int mostCounted = 99;

} // namespace

NoticeBell::NoticeBell(QWidget* parent)
    : QToolButton(parent)
{
    setObjectName(QStringLiteral("noticeBell"));
    setIcon(vemo_base::Icons::icon(QStringLiteral("bell")));
    setIconSize(QSize(iconExtent, iconExtent));
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QToolButton::clicked, this, &NoticeBell::open);
    connect(&Notices::instance(), &Notices::signalNoticeAdded, this, &NoticeBell::refresh);
    connect(&Notices::instance(), &Notices::signalUnreadCountChanged, this, &NoticeBell::refresh);
    refresh();
}

void NoticeBell::refresh()
{
    const int unread = Notices::instance().unreadCount();
    const int failures = Notices::instance().unreadFailures();
    setToolTip(unread == 0     ? tr("Notices")
               : failures == 0 ? tr("Notices: %1 new").arg(unread)
                               : tr("Notices: %1 new, %2 of them tell of failures").arg(unread).arg(failures));
    setAccessibleName(toolTip());
    update();
}

void NoticeBell::open()
{
    if (!m_popup)
        m_popup = new NoticesPopup(this);
    m_popup->popUp(this);
}

void NoticeBell::paintEvent(QPaintEvent* event)
{
    QToolButton::paintEvent(event);
    const Notices& notices = Notices::instance();
    if (notices.unreadCount() == 0)
        return;
    const vemo_base::Theme& theme = vemo_base::Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPoint corner(width() / 2 + iconExtent / 2, height() / 2 - iconExtent / 2); // of the icon, the upper trailing
    const int failures = notices.unreadFailures();
    if (failures == 0) {
        const QRect dot(corner.x() - dotExtent, corner.y(), dotExtent, dotExtent);
        vemo_base::StylePainter::box(&painter, QStyle::visualRect(layoutDirection(), rect(), dot), dotExtent / 2.0,
                                     theme.color(Token::AccentText), QColor());
        return;
    }
    QFont font = this->font();
    font.setPixelSize(badgePixels);
    font.setWeight(QFont::DemiBold);
    const QString words = failures > mostCounted ? tr("%1+").arg(mostCounted) : QString::number(failures);
    const int badgeWidth = qMax(badgeHeight, QFontMetrics(font).horizontalAdvance(words) + 2 * badgePadding);
    const QRect badge(qMin(corner.x() - badgeHeight / 2, width() - badgeWidth), qMax(0, corner.y() - badgePadding),
                      badgeWidth, badgeHeight);
    const QRect shown = QStyle::visualRect(layoutDirection(), rect(), badge);
    vemo_base::StylePainter::box(&painter, shown, badgeHeight / 2.0, theme.color(Token::ErrorFill), QColor());
    painter.setFont(font);
    painter.setPen(theme.color(Token::OnAccent));
    painter.drawText(shown, Qt::AlignCenter, words);
}

} // namespace vemo_client
