#include "UserDialog.h"

#include "MessageLine.h"
#include "PasswordEdit.h"
#include "PowersEdit.h"
#include "StrengthBar.h"
#include "UserAccounts.h"

#include <SystemWorker.h>
#include <UserRules.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

using vemo_worker::UserRules;

constexpr int dialogWidth = 480;
constexpr int labelGap = 6;
constexpr int fieldGap = 12;
constexpr int usualPowers = vemo_worker::PowerLive | vemo_worker::PowerPlayback | vemo_worker::PowerDownload |
                            vemo_worker::PowerLocalRecordings | vemo_worker::PowerLocalSnapshots;

QLabel* strongLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    QFont strong = label->font();
    strong.setWeight(QFont::DemiBold);
    label->setFont(strong);
    return label;
}

} // namespace

UserDialog::UserDialog(Deed deed, const vemo_worker::UserRecord& user, QWidget* parent)
    : TitledDialog(titleOf(deed, user.name), sentenceOf(deed, user.name), dialogWidth, parent)
    , m_deed(deed)
    , m_user(user)
{
    body()->setSpacing(0);
    addFields();
    m_submit = new QPushButton(m_deed == Deed::Add ? tr("Add") : tr("Save"), this);
    m_submit->setProperty("kind", QStringLiteral("primary"));
    m_submit->setDefault(true);
    buttons()->addWidget(m_submit);
    // The buttons come last, in reading order.
    setTabOrder(m_submit, cancelButton());
    setTabOrder(cancelButton(), m_submit);
    connect(m_submit, &QPushButton::clicked, this, &UserDialog::submit);
    check();
    for (QWidget* first : {static_cast<QWidget*>(m_name), static_cast<QWidget*>(m_current),
                           static_cast<QWidget*>(m_password), static_cast<QWidget*>(m_powers)}) {
        if (first) {
            first->setFocus(Qt::OtherFocusReason);
            break;
        }
    }
}

QString UserDialog::titleOf(Deed deed, const QString& name)
{
    switch (deed) {
    case Deed::Add:
        return tr("Add a user");
    case Deed::ChangePowers:
        return tr("What %1 may do").arg(name);
    case Deed::ResetPassword:
        return tr("A new password for %1").arg(name);
    default:
        return tr("Change your password");
    }
}

QString UserDialog::sentenceOf(Deed deed, const QString& name)
{
    switch (deed) {
    case Deed::Add:
        return tr("The user logs in on this computer with this name and password.");
    case Deed::ChangePowers:
        return tr("It holds from the next login of %1 on.").arg(name);
    case Deed::ResetPassword:
        return tr("The old one stops working at once, and a lock after wrong passwords ends.");
    default:
        return tr("Where you stay logged in, the password is asked for once more.");
    }
}

void UserDialog::addField(const QString& label, QWidget* field)
{
    QLabel* words = strongLabel(label, this);
    words->setBuddy(field);
    body()->addWidget(words);
    body()->addSpacing(labelGap);
    body()->addWidget(field);
    body()->addSpacing(fieldGap);
}

void UserDialog::addFields()
{
    if (m_deed == Deed::Add) {
        m_name = new QLineEdit(this);
        m_name->setAccessibleName(tr("User name"));
        m_name->setMaxLength(UserRules::longestName);
        addField(tr("User name"), m_name);
        connect(m_name, &QLineEdit::textChanged, this, &UserDialog::check);
    }
    if (m_deed == Deed::ChangeOwnPassword) {
        m_current = new PasswordEdit(tr("Current password"), this);
        addField(tr("Current password"), m_current);
        connect(m_current, &QLineEdit::textChanged, this, &UserDialog::check);
    }
    if (asksPassword()) {
        m_password = new PasswordEdit(tr("New password"), this);
        m_strength = new StrengthBar(this);
        m_repeat = new PasswordEdit(tr("Repeat the password"), this);
        addField(tr("New password"), m_password);
        body()->addSpacing(4 - fieldGap);
        body()->addWidget(m_strength);
        body()->addSpacing(labelGap);
        addField(tr("Repeat the password"), m_repeat);
        connect(m_password, &QLineEdit::textChanged, this, &UserDialog::check);
        connect(m_repeat, &QLineEdit::textChanged, this, &UserDialog::check);
    }
    if (m_deed == Deed::Add || m_deed == Deed::ChangePowers) {
        m_powers = new PowersEdit(this);
        m_powers->setPowers(m_deed == Deed::Add ? usualPowers : m_user.powers);
        body()->addWidget(strongLabel(tr("May do"), this));
        body()->addWidget(m_powers);
        connect(m_powers, &PowersEdit::signalChanged, this, &UserDialog::check);
    }
    m_message = new MessageLine(this);
    body()->addSpacing(4);
    body()->addWidget(m_message);
    body()->addSpacing(8);
}

bool UserDialog::isAdministrator() const
{
    return m_powers ? m_powers->isAdministrator() : m_user.isAdministrator();
}

QString UserDialog::problem() const
{
    if (m_name && !UserRules::nameProblem(m_name->text()).isEmpty())
        return UserRules::nameProblem(m_name->text());
    if (m_current && m_current->text().isEmpty())
        return tr("The current password is missing.");
    if (!asksPassword())
        return {};
    const QString words =
        UserRules::passwordProblem(m_password->text(), m_name ? m_name->text() : m_user.name, isAdministrator());
    if (!words.isEmpty())
        return words;
    return m_repeat->text() == m_password->text() ? QString() : tr("The two passwords differ");
}

void UserDialog::check()
{
    if (!m_submit)
        return;
    if (m_strength)
        m_strength->setPassword(m_password->text());
    const QString words = problem();
    m_submit->setEnabled(!m_isBusy && words.isEmpty());
    // What is still missing is a hint, not a fault.
    if (words.isEmpty())
        m_message->clear();
    else
        m_message->tell(MessageLine::Tone::Plain, words);
}

void UserDialog::submit()
{
    m_isBusy = true;
    check();
    UserAccounts& accounts = UserAccounts::instance();
    const auto answer = [this](const QString& problem) { take(problem); };
    switch (m_deed) {
    case Deed::Add:
        accounts.add(m_name->text(), m_password->text(), m_powers->powers(), this, answer);
        break;
    case Deed::ChangePowers:
        accounts.setPowers(m_user.name, m_powers->powers(), this, answer);
        break;
    case Deed::ResetPassword:
        accounts.setPassword(m_user.name, m_password->text(), this, answer);
        break;
    default:
        accounts.changePassword(m_user.name, m_current->text(), m_password->text(), this, answer);
        break;
    }
}

void UserDialog::take(const QString& problem)
{
    m_isBusy = false;
    if (problem.isEmpty()) {
        accept();
        return;
    }
    check();
    m_message->tell(MessageLine::Tone::Error, problem);
}

} // namespace vemo_client
