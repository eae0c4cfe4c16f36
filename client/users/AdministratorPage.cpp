#include "AdministratorPage.h"

#include "MessageLine.h"
#include "PasswordEdit.h"
#include "StrengthBar.h"
#include "UserAccounts.h"

#include <Icons.h>
#include <SegmentedBar.h>
#include <SystemWorker.h>
#include <Theme.h>
#include <UserRules.h>

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

using vemo_base::Theme;
using vemo_worker::UserRules;

constexpr int fieldGap = 14;

} // namespace

AdministratorPage::AdministratorPage(QWidget* parent)
    : AuthForm(parent)
    , m_name(new QLineEdit(this))
    , m_password(new PasswordEdit(tr("Password"), this))
    , m_strength(new StrengthBar(this))
    , m_repeat(new PasswordEdit(tr("Repeat the password"), this))
    , m_theme(new vemo_base::SegmentedBar(tr("Theme"), this))
{
    addStep(1);
    addTitle(tr("Create the administrator"));
    addSentence(tr("This account manages users, recorders and storage. It is kept on this computer only."));

    QAction* person = m_name->addAction(vemo_base::Icons::icon(QStringLiteral("user")), QLineEdit::LeadingPosition);
    person->setToolTip(tr("User name"));
    m_name->setAccessibleName(tr("User name"));
    m_name->setMaxLength(UserRules::longestName);
    addField(tr("User name"), m_name);
    addGap(fieldGap);
    addField(tr("Password"), m_password, tr("%1 characters or more").arg(UserRules::shortestAdministratorPassword));
    addGap(4);
    column()->addWidget(m_strength);
    addGap(fieldGap - 4);
    addField(tr("Repeat the password"), m_repeat);
    m_message = addMessage();
    addGap(4);
    m_theme->addChoice(int(Theme::Choice::Dark), tr("Dark"));
    m_theme->addChoice(int(Theme::Choice::Light), tr("Light"));
    m_theme->addChoice(int(Theme::Choice::System), tr("System"));
    m_theme->setValue(int(Theme::instance().choice()));
    addField(tr("Theme"), m_theme);
    addGap(24);
    m_submit = addPrimary(tr("Create and continue"));
    MessageLine* note = addMessage();
    note->tell(MessageLine::Tone::Plain, tr("A lost password cannot be recovered. Another administrator can set a new "
                                            "one."));
    addRest();

    for (QLineEdit* field : {m_name, static_cast<QLineEdit*>(m_password), static_cast<QLineEdit*>(m_repeat)}) {
        connect(field, &QLineEdit::textChanged, this, &AdministratorPage::check);
        connect(field, &QLineEdit::editingFinished, this, &AdministratorPage::check);
        connect(field, &QLineEdit::returnPressed, this, &AdministratorPage::submit);
    }
    connect(m_theme, &vemo_base::SegmentedBar::signalChosen, this,
            [](int choice) { Theme::instance().setChoice(Theme::Choice(choice)); });
    connect(&Theme::instance(), &Theme::signalChanged, m_theme,
            [this] { m_theme->setValue(int(Theme::instance().choice())); });
    connect(m_submit, &QPushButton::clicked, this, &AdministratorPage::submit);
    setFocusProxy(m_name);
    check();
}

/// A half-typed word is not yet a wrong one: what is wrong is told once the person has gone on to the next field.
void AdministratorPage::check()
{
    m_strength->setPassword(m_password->text());
    const QString nameProblem = UserRules::nameProblem(m_name->text());
    const QString passwordProblem = UserRules::passwordProblem(m_password->text(), m_name->text(), true);
    const bool isNameTold = !nameProblem.isEmpty() && !m_name->text().isEmpty();
    const bool isPasswordTold = !passwordProblem.isEmpty() && !m_password->text().isEmpty() && !m_password->hasFocus();
    const bool isRepeated = m_repeat->text() == m_password->text();
    const bool isRepeatTold = !isRepeated && !m_repeat->text().isEmpty() &&
                              (!m_repeat->hasFocus() || !m_password->text().startsWith(m_repeat->text()));
    m_password->setInvalid(isPasswordTold);
    m_repeat->setInvalid(isRepeatTold);
    if (isNameTold || isPasswordTold || isRepeatTold)
        m_message->tell(MessageLine::Tone::Error, isNameTold       ? nameProblem
                                                  : isPasswordTold ? passwordProblem
                                                                   : tr("The two passwords differ"));
    else
        m_message->clear();
    m_submit->setEnabled(!m_isBusy && nameProblem.isEmpty() && passwordProblem.isEmpty() && isRepeated);
}

void AdministratorPage::setBusy(bool isBusy)
{
    m_isBusy = isBusy;
    for (QLineEdit* field : {m_name, static_cast<QLineEdit*>(m_password), static_cast<QLineEdit*>(m_repeat)})
        field->setEnabled(!isBusy);
    check();
}

void AdministratorPage::submit()
{
    check();
    if (!m_submit->isEnabled())
        return;
    setBusy(true);
    UserAccounts::instance().add(m_name->text(), m_password->text(), vemo_worker::SystemWorker::allPowers, this,
                                 [this](const QString& problem) {
                                     if (problem.isEmpty()) {
                                         logIn();
                                         return;
                                     }
                                     setBusy(false);
                                     m_message->tell(MessageLine::Tone::Error, problem);
                                 });
}

void AdministratorPage::logIn()
{
    UserAccounts::instance().logIn(m_name->text(), m_password->text(), false, this,
                                   [this](const vemo_worker::LoginResult& result) {
                                       UserAccounts::instance().setCurrent(result.user);
                                       emit signalDone();
                                   });
}

} // namespace vemo_client
