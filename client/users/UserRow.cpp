#include "UserRow.h"

#include "Avatar.h"
#include "PowerWords.h"

#include <BaseTools.h>
#include <Icons.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

namespace vemo_client {

namespace {

using vemo_base::Token;

constexpr int rowHeight = 60;
constexpr int padding = 16;
constexpr int avatarExtent = 32;
constexpr int gap = 12;
constexpr int lineHeight = 20;
constexpr int smallPixels = 12;
constexpr int buttonExtent = 32;
constexpr int iconExtent = 18;

} // namespace

UserRow::UserRow(const vemo_worker::UserRecord& user, bool isOwn, QWidget* parent)
    : QWidget(parent)
    , m_user(user)
    , m_isOwn(isOwn)
    , m_layout(new QHBoxLayout(this))
{
    setFixedHeight(rowHeight);
    setAccessibleName(user.name);
    setAccessibleDescription(secondLine());
    m_layout->setContentsMargins(padding, 0, padding, 0);
    m_layout->setSpacing(4);
    m_layout->addStretch();
    connect(addButton(QStringLiteral("settings"), tr("What %1 may do").arg(user.name)), &QToolButton::clicked, this,
            &UserRow::signalPowers);
    connect(addButton(QStringLiteral("lock"), tr("A new password for %1").arg(user.name)), &QToolButton::clicked, this,
            &UserRow::signalPassword);
    QToolButton* toggle = addButton(user.isEnabled ? QStringLiteral("pause") : QStringLiteral("start"),
                                    user.isEnabled ? tr("Disable %1").arg(user.name) : tr("Enable %1").arg(user.name));
    connect(toggle, &QToolButton::clicked, this, &UserRow::signalToggleEnabled);
    QToolButton* remove = addButton(QStringLiteral("clean"), tr("Remove %1").arg(user.name));
    connect(remove, &QToolButton::clicked, this, &UserRow::signalRemove);
    for (QToolButton* button : {toggle, remove}) {
        button->setEnabled(!isOwn);
        if (isOwn)
            button->setToolTip(tr("You can't do that to yourself; another administrator can."));
    }
}

QToolButton* UserRow::addButton(const QString& icon, const QString& tip)
{
    auto* button = new QToolButton(this);
    button->setIcon(vemo_base::Icons::icon(icon));
    button->setIconSize(QSize(iconExtent, iconExtent));
    button->setFixedSize(buttonExtent, buttonExtent);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    m_layout->addWidget(button);
    return button;
}

QSize UserRow::sizeHint() const
{
    return {m_layout->sizeHint().width() + avatarExtent + gap, rowHeight};
}

QString UserRow::secondLine() const
{
    const QString powers = PowerWords::summary(m_user.powers);
    if (!m_user.isEnabled)
        return tr("Disabled. %1").arg(powers);
    if (!m_user.lastLogin.isValid())
        return tr("%1. Never logged in").arg(powers);
    return tr("%1. Last login %2")
        .arg(powers, vemo_base::BaseTools::instance().strDatetime(m_user.lastLogin.toLocalTime(), false, false));
}

void UserRow::paintEvent(QPaintEvent*)
{
    const vemo_base::Theme& theme = vemo_base::Theme::instance();
    QPainter painter(this);
    const auto mirrored = [this](const QRect& logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };
    const QRect round = mirrored(QRect(padding, (height() - avatarExtent) / 2, avatarExtent, avatarExtent));
    Avatar::paint(&painter, round, m_user.name, font());

    const int left = padding + avatarExtent + gap;
    const int room = width() - left - 4 * (buttonExtent + 4) - 2 * padding;
    const QRect first(left, height() / 2 - lineHeight, room, lineHeight);
    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    painter.setFont(strong);
    painter.setPen(theme.color(m_user.isEnabled ? Token::Text : Token::Text2));
    const QString name = m_isOwn ? tr("%1 (you)").arg(m_user.name) : m_user.name;
    painter.drawText(mirrored(first), int(Qt::AlignLeading | Qt::AlignVCenter),
                     painter.fontMetrics().elidedText(name, Qt::ElideRight, room));
    QFont small = font();
    small.setPixelSize(smallPixels);
    painter.setFont(small);
    painter.setPen(theme.color(m_user.isEnabled ? Token::Text2 : Token::Warning));
    painter.drawText(mirrored(first.translated(0, lineHeight)), int(Qt::AlignLeading | Qt::AlignVCenter),
                     painter.fontMetrics().elidedText(secondLine(), Qt::ElideRight, room));
    if (geometry().top() > 0)
        vemo_base::StylePainter::hairline(&painter, rect(), Qt::TopEdge, theme.mode());
}

} // namespace vemo_client
