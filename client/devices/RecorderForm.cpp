#include "RecorderForm.h"

#include "LoginWords.h"
#include "NoticeCard.h"
#include "RecorderAddress.h"
#include "RecorderTree.h"

#include <DevsMgrData.h>
#include <Icons.h>
#include <Theme.h>

#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QStyle>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int settleMs = 700;
constexpr int longestText = 256;
constexpr int ringRoom = 4; ///< the focus ring lies outside the fields
constexpr int wordsPixels = 12;
constexpr int wordsHeight = 18;

void markInvalid(QLineEdit* field, bool invalid)
{
    if (field->property("invalid").toBool() == invalid)
        return;
    field->setProperty("invalid", invalid);
    field->update();
}

QLabel* labelFor(QWidget* field, const QString& text, QWidget* parent)
{
    auto* words = new QLabel(text, parent);
    QFont strong = words->font();
    strong.setWeight(QFont::DemiBold);
    words->setFont(strong);
    words->setBuddy(field);
    field->setAccessibleName(text);
    return words;
}

void tint(QLabel* label, vemo_base::Token token)
{
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, vemo_base::Theme::instance().color(token));
    label->setPalette(palette);
}

} // namespace

RecorderForm::RecorderForm(RecorderLogins* logins, QWidget* parent)
    : QWidget(parent)
    , m_logins(logins)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(ringRoom, ringRoom, ringRoom, ringRoom);
    layout->setSpacing(6);
    m_address = addField(tr("Address"), tr("192.168.1.20 or https://nvr.example/onvif/device_service"));
    m_addressWords = addWords();
    layout->addSpacing(4);
    m_direct = makeDirectFields();
    layout->addWidget(m_direct);
    m_user = addField(tr("User name"), QString());
    layout->addSpacing(8);
    m_password = addField(tr("Password"), QString());
    m_password->setEchoMode(QLineEdit::Password);
    m_password->setMaxLength(longestText);
    QAction* eye = m_password->addAction(vemo_base::Icons::icon(QStringLiteral("eye")), QLineEdit::TrailingPosition);
    eye->setToolTip(tr("Show the password"));
    connect(eye, &QAction::triggered, this, &RecorderForm::togglePassword);
    layout->addSpacing(8);
    m_name = addField(tr("Name"), tr("as the recorder calls itself"));
    m_name->setMaxLength(longestText);
    m_user->setMaxLength(longestText);
    layout->addSpacing(8);
    m_notice = new NoticeCard(this);
    m_notice->hide();
    layout->addWidget(m_notice);
    layout->addStretch();

    m_settleTimer.setSingleShot(true);
    m_settleTimer.setInterval(settleMs);
    connect(&m_settleTimer, &QTimer::timeout, this, [this] { checkAddress(true); });
    connect(m_address, &QLineEdit::textEdited, this, [this] {
        m_loginTaken = false;
        checkAddress(false);
        m_settleTimer.start();
        emit signalStageChanged();
    });
    connect(m_address, &QLineEdit::editingFinished, this, [this] { checkAddress(true); });
    connect(m_notice, &NoticeCard::signalDeed, this, [this] {
        setStage(Stage::Connecting);
        m_logins->trust(m_devId, m_shownKey);
    });
    connect(m_logins, &RecorderLogins::signalChanged, this, [this](const QString& devId) {
        // What the logins do by themselves is no answer to somebody who is still typing.
        if (m_stage != Stage::Filling && !m_devId.isEmpty() && devId == m_devId)
            takeLogin();
    });
    checkAddress(false);
}

QLineEdit* RecorderForm::addField(const QString& label, const QString& hint)
{
    auto* field = new QLineEdit(this);
    field->setPlaceholderText(hint);
    connect(field, &QLineEdit::returnPressed, this, &RecorderForm::submit);
    layout()->addWidget(labelFor(field, label, this));
    layout()->addWidget(field);
    return field;
}

QWidget* RecorderForm::makeDirectFields()
{
    auto* fields = new QWidget(this);
    m_kind = new QComboBox(fields);
    m_kind->addItem(tr("Live view alone"), int(vemo_data::DevKind::RtspSource));
    m_kind->addItem(tr("Recordings by time"), int(vemo_data::DevKind::Recorder));
    m_channels = new QSpinBox(fields);
    m_channels->setRange(1, vemo_data::DevRecord::mostChannels);
    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(0, 0, 0, 8);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(6);
    grid->addWidget(labelFor(m_kind, tr("Used for"), fields), 0, 0);
    grid->addWidget(m_kind, 1, 0);
    grid->addWidget(labelFor(m_channels, tr("Channels"), fields), 0, 1);
    grid->addWidget(m_channels, 1, 1);
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(1, 1);
    fields->hide();
    connect(m_kind, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] { checkAddress(true); });
    return fields;
}

void RecorderForm::offerGroup()
{
    m_group = new QComboBox(this);
    m_group->setEditable(true);
    m_group->addItem(QString());
    m_group->addItems(vemo_data::DevsMgrData::instance().groups());
    m_group->setCurrentText(vemo_data::DevsMgrData::instance().devRecord(m_devId).group);
    m_group->lineEdit()->setMaxLength(longestText);
    m_group->lineEdit()->setPlaceholderText(tr("none"));
    auto* below = qobject_cast<QVBoxLayout*>(layout());
    const int place = below->indexOf(m_name) + 1;
    below->insertWidget(place, m_group);
    below->insertWidget(place, labelFor(m_group, tr("Group"), this));
    below->insertSpacing(place, 8);
}

QLabel* RecorderForm::addWords()
{
    auto* words = new QLabel(this);
    QFont small = words->font();
    small.setPixelSize(wordsPixels);
    words->setFont(small);
    words->setTextFormat(Qt::PlainText);
    words->setMinimumHeight(wordsHeight);
    words->setWordWrap(true);
    layout()->addWidget(words);
    return words;
}

void RecorderForm::edit(const QString& devId)
{
    const vemo_data::DevRecord record = vemo_data::DevsMgrData::instance().devRecord(devId);
    m_devId = devId;
    m_isNew = false;
    m_address->setText(RecorderAddress::typed(record.address));
    m_user->setText(record.user);
    m_password->setPlaceholderText(tr("unchanged"));
    m_name->setText(record.name);
    m_kind->setCurrentIndex(m_kind->findData(int(record.kind)));
    m_channels->setValue(record.channelCount > 0 ? record.channelCount : RecorderTree::mostChannels);
    checkAddress(true);
    setStage(Stage::Filling);
    m_notice->setVisible(tellFailure());
}

void RecorderForm::focusFirst()
{
    m_address->setFocus(Qt::TabFocusReason);
}

bool RecorderForm::isComplete() const
{
    return RecorderAddress::parse(m_address->text()).problem.isEmpty();
}

bool RecorderForm::mayBeKept() const
{
    return m_stage == Stage::Failed && m_isNew && RecorderLogins::retriesAfter(m_logins->login(m_devId).error.kind);
}

void RecorderForm::checkAddress(bool isSettled)
{
    if (isSettled)
        takeLoginOutOfAddress();
    const RecorderAddress address = RecorderAddress::parse(m_address->text());
    showDirectFields(address.url);
    const bool isEmpty = m_address->text().trimmed().isEmpty();
    const bool isWrong = isSettled && !isEmpty && !address.problem.isEmpty();
    QString words = address.problem;
    if (isEmpty)
        words = tr("IP address or name, with a port where it needs one.");
    else if (address.problem.isEmpty() && m_loginTaken)
        words = tr("User and password of the address were put into their own fields.");
    else if (address.problem.isEmpty() && RecorderAddress::isDirect(address.url))
        words = m_kind->currentData().toInt() == int(vemo_data::DevKind::RtspSource)
                    ? tr("A stream to watch: it can't be played back, downloaded or backed up.")
                    : tr("Replay address: it has no list of recordings, spans of time can be fetched.");
    else if (address.problem.isEmpty())
        words = tr("ONVIF over %1 at %2")
                    .arg(address.url.scheme() == QLatin1String("https") ? tr("TLS") : tr("HTTP"),
                         address.url.authority(QUrl::PrettyDecoded));
    m_addressWords->setText(words);
    tint(m_addressWords, isWrong ? vemo_base::Token::Error : vemo_base::Token::Text2);
    markInvalid(m_address, isWrong);
}

/// What is stored and shown of an address holds no login.
void RecorderForm::takeLoginOutOfAddress()
{
    const std::optional<RecorderAddress::WithLogin> split = RecorderAddress::splitLogin(m_address->text());
    if (!split)
        return;
    m_address->setText(split->address);
    m_user->setText(split->user);
    if (!split->password.isEmpty())
        m_password->setText(split->password);
    m_loginTaken = true;
    emit signalStageChanged();
}

void RecorderForm::showDirectFields(const QUrl& address)
{
    const bool isDirect = RecorderAddress::isDirect(address);
    m_channels->setEnabled(RecorderAddress::hasChannelNumber(address));
    m_channels->setToolTip(m_channels->isEnabled()
                               ? QString()
                               : tr("Write {channel} in the address where the number of the channel goes."));
    if (m_direct->isHidden() != isDirect)
        return;
    m_direct->setVisible(isDirect);
    emit signalStageChanged();
}

void RecorderForm::submit()
{
    if (m_stage == Stage::Connecting)
        return;
    takeLoginOutOfAddress();
    const RecorderAddress address = RecorderAddress::parse(m_address->text());
    if (!address.problem.isEmpty()) {
        checkAddress(true);
        m_address->setFocus(Qt::OtherFocusReason);
        return;
    }
    vemo_data::DevRecord record;
    if (!m_devId.isEmpty())
        record = vemo_data::DevsMgrData::instance().devRecord(m_devId);
    if (record.address.host() != address.url.host() || record.address.port() != address.url.port())
        record.pinnedKeySha256.clear(); // another recorder, another key
    record.address = address.url;
    record.user = m_user->text().trimmed();
    record.name = m_name->text().simplified();
    const bool isDirect = RecorderAddress::isDirect(address.url);
    record.kind = isDirect ? vemo_data::DevKind(m_kind->currentData().toInt()) : vemo_data::DevKind::Recorder;
    record.channelCount = !isDirect ? 0 : RecorderAddress::hasChannelNumber(address.url) ? m_channels->value() : 1;
    if (m_group)
        record.group = m_group->currentText().simplified();
    setStage(Stage::Connecting);
    if (m_devId.isEmpty())
        m_devId = m_logins->add(record, m_password->text());
    else
        m_logins->change(record, m_isNew || !m_password->text().isEmpty() ? std::optional<QString>(m_password->text())
                                                                          : std::nullopt);
}

void RecorderForm::discard()
{
    if (m_isNew && !m_devId.isEmpty() && m_stage != Stage::Done)
        m_logins->remove(m_devId);
    m_devId.clear();
}

void RecorderForm::takeLogin()
{
    const RecorderLogins::Phase phase = m_logins->login(m_devId).phase;
    if (phase == RecorderLogins::Phase::Online)
        setStage(Stage::Done);
    else
        setStage(tellFailure() ? Stage::Failed : Stage::Connecting);
}

bool RecorderForm::tellFailure()
{
    const RecorderLogins::Login login = m_logins->login(m_devId);
    const LoginWords::Failure failure = LoginWords::failureOf(login);
    if (failure.title.isEmpty())
        return false;
    m_shownKey = login.offeredKeySha256;
    m_notice->tell(failure.isWarning ? NoticeCard::Weight::Warning : NoticeCard::Weight::Error, failure.title,
                   failure.cause + QLatin1Char('\n') + failure.advice,
                   login.phase == RecorderLogins::Phase::CertificateUnknown ? tr("Trust this key") : QString());
    return true;
}

void RecorderForm::setStage(Stage stage)
{
    const bool wasConnecting = m_stage == Stage::Connecting;
    m_stage = stage;
    m_notice->setVisible(stage == Stage::Failed);
    const bool isRefused = m_logins->login(m_devId).error.kind == vms_sdk::ErrorKind::LoginRefused;
    for (QWidget* field : QList<QWidget*>{m_address, m_user, m_password, m_name, m_direct})
        field->setEnabled(stage != Stage::Connecting);
    if (m_group)
        m_group->setEnabled(stage != Stage::Connecting);
    // Disabled fields have lost the focus; it comes back where the mistake is likely.
    if (wasConnecting && stage == Stage::Failed)
        (isRefused ? m_password : m_address)->setFocus(Qt::TabFocusReason);
    emit signalStageChanged();
}

void RecorderForm::togglePassword()
{
    const bool isHidden = m_password->echoMode() == QLineEdit::Password;
    m_password->setEchoMode(isHidden ? QLineEdit::Normal : QLineEdit::Password);
}

} // namespace vemo_client
