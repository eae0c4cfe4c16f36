#include "LoginPage.h"

#include "MessageLine.h"
#include "PasswordEdit.h"
#include "UserAccounts.h"

#include "devices/NoticeCard.h"

#include <BaseTools.h>
#include <DownloadTaskData.h>
#include <Icons.h>
#include <Notices.h>
#include <SystemConfig.h>
#include <UserRules.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace vemo_client {

namespace {

using vemo_worker::LoginResult;
using vemo_worker::UserRecord;
using vemo_worker::UserRules;

constexpr int fieldGap = 16;
constexpr int lockTickMs = 500;
constexpr qint64 secondMs = 1000;
constexpr qint64 minuteSeconds = 60;

/// A combo whose icon stands below and above those of fields.
class NameCombo final : public QComboBox
{
public:
    using QComboBox::QComboBox;

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QComboBox::resizeEvent(event);
        const bool isMirrored = layoutDirection() == Qt::RightToLeft;
        const QRect place = lineEdit()->geometry();
        lineEdit()->setGeometry(isMirrored ? place.adjusted(0, 0, width() - 1 - place.right(), 0)
                                           : place.adjusted(1 - place.left(), 0, 0, 0));
    }
};

qint64 steadyMs()
{
    return vemo_worker::UserStore::systemClock()().steadyMs;
}

} // namespace

LoginPage::LoginPage(QWidget* parent)
    : AuthForm(parent)
    , m_name(new NameCombo(this))
    , m_password(new PasswordEdit(tr("Password"), this))
    , m_stay(new QCheckBox(tr("Stay logged in on this computer"), this))
    , m_capsLock(new NoticeCard(this))
{
    addTitle(tr("Log in"));
    m_lastLogin = addSentence(QString());

    QVector<UserRecord> users = UserAccounts::instance().users();
    std::stable_sort(users.begin(), users.end(), [](const UserRecord& one, const UserRecord& other) {
        return one.lastLogin.isValid() && (!other.lastLogin.isValid() || one.lastLogin > other.lastLogin);
    });
    m_name->setEditable(true);
    m_name->setInsertPolicy(QComboBox::NoInsert);
    m_name->setAccessibleName(tr("User name"));
    for (const UserRecord& user : qAsConst(users)) {
        if (user.isEnabled)
            m_name->addItem(user.name);
    }
    m_name->lineEdit()->setMaxLength(UserRules::longestName);
    m_name->lineEdit()->setAccessibleName(tr("User name"));
    QAction* person =
        m_name->lineEdit()->addAction(vemo_base::Icons::icon(QStringLiteral("user")), QLineEdit::LeadingPosition);
    person->setToolTip(tr("User name"));
    addField(tr("User name"), m_name);
    addGap(fieldGap);
    addField(tr("Password"), m_password);
    m_message = addMessage();
    column()->addWidget(m_stay);
    addGap(fieldGap);
    m_submit = addPrimary(tr("Log in"));
    addGap(fieldGap);
    m_waiting = addMessage();
    m_capsLock->tell(NoticeCard::Weight::Warning, tr("Caps Lock is on"),
                     tr("Capital and small letters are told apart."));
    // It keeps its room, so that nothing moves when it comes.
    QSizePolicy kept = m_capsLock->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    m_capsLock->setSizePolicy(kept);
    m_capsLock->hide();
    column()->addWidget(m_capsLock);
    addRest();

    connect(m_name, &QComboBox::currentTextChanged, this, &LoginPage::showUser);
    connect(m_name->lineEdit(), &QLineEdit::returnPressed, this, [this] { m_password->setFocus(Qt::TabFocusReason); });
    connect(m_password, &QLineEdit::returnPressed, this, &LoginPage::submit);
    connect(m_password, &QLineEdit::textChanged, this, [this] { setBusy(m_isBusy); });
    connect(m_password, &PasswordEdit::signalCapsLock, m_capsLock, &QWidget::setVisible);
    connect(m_submit, &QPushButton::clicked, this, &LoginPage::submit);
    m_lockTimer.setInterval(lockTickMs);
    connect(&m_lockTimer, &QTimer::timeout, this, &LoginPage::tellLock);
    if (vemo_worker::SystemConfig::instance().goOnWithDownloads())
        vemo_data::DownloadTaskData::instance().countWaiting(this, [this](int count) {
            if (count > 0)
                m_waiting->tell(MessageLine::Tone::Plain,
                                count == 1 ? tr("1 download is waiting and goes on after login.")
                                           : tr("%1 downloads are waiting and go on after login.").arg(count),
                                QStringLiteral("download-mgr"));
        });
    setFocusProxy(m_password);
    showUser();
}

void LoginPage::showUser()
{
    const QString key = UserRules::nameKey(m_name->currentText());
    QString words = tr("Give the name and the password of your account.");
    for (const UserRecord& user : UserAccounts::instance().users()) {
        if (UserRules::nameKey(user.name) == key && user.lastLogin.isValid())
            words = tr("Last login of %1: %2")
                        .arg(user.name,
                             vemo_base::BaseTools::instance().strDatetime(user.lastLogin.toLocalTime(), false, false));
    }
    m_lastLogin->setText(words);
    m_message->clear();
    m_password->setInvalid(false);
    tellLock();
}

void LoginPage::setBusy(bool isBusy)
{
    m_isBusy = isBusy;
    m_name->setEnabled(!isBusy);
    m_password->setEnabled(!isBusy);
    m_stay->setEnabled(!isBusy);
    const bool isLocked = m_lockTimer.isActive() && UserRules::nameKey(m_name->currentText()) == m_lockedName;
    m_submit->setEnabled(!isBusy && !isLocked && !m_password->text().isEmpty());
    m_submit->setText(isBusy ? tr("Logging in...") : tr("Log in"));
}

void LoginPage::submit()
{
    setBusy(m_isBusy);
    if (!m_submit->isEnabled())
        return;
    setBusy(true);
    UserAccounts::instance().logIn(m_name->currentText(), m_password->text(), m_stay->isChecked(), this,
                                   [this](const LoginResult& result) { take(result); });
}

void LoginPage::take(const LoginResult& result)
{
    if (result.outcome == LoginResult::Outcome::Done) {
        UserAccounts::instance().setCurrent(result.user);
        if (!result.isKept) {
            vemo_base::Notice notice;
            notice.kind = vemo_base::Notice::Kind::Warning;
            notice.title = tr("You do not stay logged in");
            notice.text = tr("It could not be stored. The next start asks for the password again.");
            vemo_base::Notices::instance().add(notice);
        }
        emit signalDone();
        return;
    }
    m_password->clear();
    m_password->setInvalid(true);
    if (result.lockedMs > 0) {
        m_lockEndMs = steadyMs() + result.lockedMs;
        m_lockedName = UserRules::nameKey(m_name->currentText());
        m_lockTimer.start();
        tellLock();
    } else if (result.outcome == LoginResult::Outcome::Disabled) {
        m_message->tell(MessageLine::Tone::Error,
                        tr("This account is disabled. An administrator can enable it again."));
    } else {
        QString words = tr("The user name or the password is wrong.");
        if (result.triesLeft == 1)
            words = tr("The user name or the password is wrong. After one more wrong try the account is locked.");
        m_message->tell(MessageLine::Tone::Error, words);
    }
    setBusy(false);
    m_password->setFocus(Qt::OtherFocusReason);
}

void LoginPage::tellLock()
{
    const qint64 leftMs = m_lockEndMs - steadyMs();
    const bool isThisUser = UserRules::nameKey(m_name->currentText()) == m_lockedName;
    if (m_lockTimer.isActive() && leftMs <= 0) {
        m_lockTimer.stop();
        if (isThisUser) {
            m_message->tell(MessageLine::Tone::Plain, tr("The account can be used again."));
            m_password->setInvalid(false);
        }
    } else if (m_lockTimer.isActive() && isThisUser) {
        m_message->tell(MessageLine::Tone::Error,
                        tr("Too many wrong passwords. The account is locked for %1.").arg(remainingWords(leftMs)));
    }
    setBusy(m_isBusy);
}

QString LoginPage::remainingWords(qint64 ms)
{
    const qint64 seconds = (ms + secondMs - 1) / secondMs;
    if (seconds < minuteSeconds)
        return tr("%1 s").arg(seconds);
    return tr("%1 min %2 s").arg(seconds / minuteSeconds).arg(seconds % minuteSeconds);
}

} // namespace vemo_client
