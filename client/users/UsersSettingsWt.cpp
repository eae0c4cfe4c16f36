#include "UsersSettingsWt.h"

#include "MessageLine.h"
#include "UserAccounts.h"
#include "UserDialog.h"
#include "UserRow.h"

#include <Icons.h>
#include <StylePainter.h>
#include <SystemWorker.h>
#include <Theme.h>
#include <VMessageBox.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

using vemo_base::Token;
using vemo_worker::UserRecord;

constexpr int titlePixels = 16;
constexpr double radius = 8;
constexpr int gap = 8;
constexpr int groupGap = 24;

/// The ground of a group.
class CardWt final : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        const vemo_base::Theme& theme = vemo_base::Theme::instance();
        QPainter painter(this);
        vemo_base::StylePainter::box(&painter, rect(), radius, theme.color(Token::Surface), theme.color(Token::Border));
    }
};

QLabel* groupTitle(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    QFont font = label->font();
    font.setPixelSize(titlePixels);
    font.setWeight(QFont::DemiBold);
    label->setFont(font);
    return label;
}

void ask(UserDialog::Deed deed, const UserRecord& user, QWidget* parent)
{
    (new UserDialog(deed, user, parent->window()))->open();
}

} // namespace

UsersSettingsWt::UsersSettingsWt(QWidget* parent)
    : QWidget(parent)
    , m_rows(new QVBoxLayout)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    if (vemo_worker::SystemWorker::instance().isCurUserHasPower(vemo_worker::PowerUsers)) {
        auto* head = new QHBoxLayout;
        head->addWidget(groupTitle(tr("Accounts"), this));
        head->addStretch();
        auto* add = new QPushButton(vemo_base::Icons::icon(QStringLiteral("add")), tr("Add a user"), this);
        head->addWidget(add);
        layout->addLayout(head);
        auto* card = new CardWt(this);
        card->setLayout(m_rows);
        m_rows->setContentsMargins(0, 0, 0, 0);
        m_rows->setSpacing(0);
        layout->addWidget(card);
        m_message = new MessageLine(this);
        layout->addWidget(m_message);
        layout->addSpacing(groupGap - gap);
        connect(add, &QPushButton::clicked, this, [this] { ask(UserDialog::Deed::Add, {}, this); });
        connect(&UserAccounts::instance(), &UserAccounts::signalUsersChanged, this, &UsersSettingsWt::refresh);
        refresh();
    }
    layout->addWidget(groupTitle(tr("Your password"), this));
    auto* card = new CardWt(this);
    auto* row = new QHBoxLayout(card);
    row->setContentsMargins(16, 16, 16, 16);
    auto* words = new QLabel(
        tr("You are logged in as %1. A new password holds from now on.").arg(UserAccounts::instance().current().name),
        card);
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    row->addWidget(words, 1);
    auto* change = new QPushButton(vemo_base::Icons::icon(QStringLiteral("lock")), tr("Change password"), card);
    row->addWidget(change);
    layout->addWidget(card);
    layout->addStretch();
    connect(change, &QPushButton::clicked, this,
            [this] { ask(UserDialog::Deed::ChangeOwnPassword, UserAccounts::instance().current(), this); });
}

void UsersSettingsWt::refresh()
{
    // A row may be on the stack of calls that led here.
    while (QLayoutItem* item = m_rows->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
    const QString own = UserAccounts::instance().current().name;
    for (const UserRecord& user : UserAccounts::instance().users()) {
        auto* row = new UserRow(user, user.name == own, this);
        m_rows->addWidget(row);
        connect(row, &UserRow::signalPowers, this, [this, user] { ask(UserDialog::Deed::ChangePowers, user, this); });
        connect(row, &UserRow::signalPassword, this,
                [this, user] { ask(UserDialog::Deed::ResetPassword, user, this); });
        connect(row, &UserRow::signalToggleEnabled, this, [this, user] {
            UserAccounts::instance().setEnabled(user.name, !user.isEnabled, this,
                                                [this](const QString& problem) { tell(problem); });
        });
        connect(row, &UserRow::signalRemove, this, [this, user] { remove(user); });
    }
}

void UsersSettingsWt::remove(const UserRecord& user)
{
    auto* box = new vemo_base::VMessageBox(
        vemo_base::VMessageBox::Kind::DangerousQuestion, tr("Remove %1").arg(user.name),
        tr("The user can't log in any more. Downloads, recordings and logs stay."), tr("Remove"), window());
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(box, &QDialog::accepted, this, [this, name = user.name] {
        UserAccounts::instance().remove(name, this, [this](const QString& problem) { tell(problem); });
    });
    box->open();
}

void UsersSettingsWt::tell(const QString& problem)
{
    if (problem.isEmpty())
        m_message->clear();
    else
        m_message->tell(MessageLine::Tone::Error, problem);
}

} // namespace vemo_client
