#include "DeviceDetailsWt.h"

#include "ChannelNameWt.h"
#include "DeviceFacts.h"
#include "NoticeCard.h"

#include <DataSignals.h>
#include <DevsMgrData.h>
#include <Icons.h>
#include <TableWidget.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

using Phase = RecorderLogins::Phase;
using vemo_base::TableWidget;

enum Column : int { NoColumn = 0, NameColumn, RecordingsColumn, ColumnCount };

} // namespace

DeviceDetailsWt::DeviceDetailsWt(RecorderLogins* logins, QWidget* host)
    : SettingToolWt(tr("Recorder"), host)
    , m_logins(logins)
    , m_facts(new QWidget)
    , m_grid(new QGridLayout(m_facts))
    , m_notice(new NoticeCard)
    , m_channelsTitle(new QLabel)
    , m_channels(new TableWidget)
    , m_reconnect(new QPushButton(vemo_base::Icons::icon(QStringLiteral("sync")), tr("Log in again")))
{
    m_grid->setContentsMargins(0, 4, 0, 4);
    m_grid->setHorizontalSpacing(16);
    m_grid->setVerticalSpacing(6);
    m_grid->setColumnStretch(1, 1);
    QFont strong = m_channelsTitle->font();
    strong.setWeight(QFont::DemiBold);
    m_channelsTitle->setFont(strong);
    m_channels->setColumnCount(ColumnCount);
    m_channels->setHorizontalHeaderLabels({tr("No."), tr("Name"), tr("Recordings")});
    m_channels->setColumnRoom({48, 0, 104});
    m_channels->setColumnTone(RecordingsColumn, vemo_base::Token::Text2);
    m_channels->setAccessibleName(tr("Channels"));
    m_channels->setCellWidgetFactory(NameColumn, [this](int row) -> QWidget* {
        const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
        const QList<vms_sdk::ChannelInfo> channels = devices.channels(m_devId);
        if (row >= channels.size())
            return nullptr;
        const vms_sdk::ChannelInfo& channel = channels.at(row);
        return new ChannelNameWt({m_devId, channel.channelNo}, channel.name,
                                 devices.deviceChannelName(m_devId, channel.channelNo));
    });
    body()->addWidget(m_notice);
    body()->addWidget(m_facts);
    body()->addSpacing(8);
    body()->addWidget(m_channelsTitle);
    auto* room = new QVBoxLayout;
    room->addWidget(m_channels);
    room->addStretch();
    body()->addLayout(room, 1);

    auto* edit = new QPushButton(vemo_base::Icons::icon(QStringLiteral("settings")), tr("Change..."));
    foot()->addWidget(m_reconnect);
    foot()->addWidget(edit);
    connect(edit, &QPushButton::clicked, this, [this] { emit signalEdit(m_devId); });
    connect(m_reconnect, &QPushButton::clicked, this, [this] { m_logins->retry(m_devId); });
    connect(m_notice, &NoticeCard::signalDeed, this, &DeviceDetailsWt::act);
    const auto follow = [this](const QString& devId) {
        if (devId == m_devId && isVisible())
            refresh();
    };
    connect(m_logins, &RecorderLogins::signalChanged, this, follow);
    const vemo_data::DataSignals& stores = vemo_data::DataSignals::instance();
    connect(&stores, &vemo_data::DataSignals::signalDevInfoChanged, this, follow);
    connect(&stores, &vemo_data::DataSignals::signalDevRemoved, this, [this](const QString& devId) {
        if (devId == m_devId)
            hideSettingToolWt();
    });
}

DeviceDetailsWt::~DeviceDetailsWt()
{
    // It asks for the widgets of its rows to its end, so it ends before what they are made from.
    delete m_channels;
}

void DeviceDetailsWt::showDevice(const QString& devId)
{
    m_channels->setRowCount(0);
    m_devId = devId;
    refresh();
    showSettingToolWt();
}

void DeviceDetailsWt::refresh()
{
    if (!vemo_data::DevsMgrData::instance().contains(m_devId))
        return;
    const DeviceFacts facts = DeviceFacts::of(m_devId, *m_logins);
    setTitleNote(facts.name);
    m_reconnect->setEnabled(facts.phase != Phase::Disabled && facts.phase != Phase::Connecting);
    showNotice(facts);
    showFacts(facts);
    showChannels();
}

void DeviceDetailsWt::showNotice(const DeviceFacts& facts)
{
    const bool isDisabled = facts.phase == Phase::Disabled;
    m_notice->setVisible(isDisabled || !facts.failure.title.isEmpty());
    if (isDisabled) {
        m_notice->tell(NoticeCard::Weight::Warning, tr("The recorder is disabled"),
                       tr("It is not logged in. Its channels can't be watched, played, downloaded or backed up."),
                       tr("Enable"));
        return;
    }
    const bool isLogin =
        facts.phase == Phase::PasswordWanted || m_logins->login(m_devId).error.kind == vms_sdk::ErrorKind::LoginRefused;
    const bool isCertificate = facts.phase == Phase::CertificateUnknown;
    m_notice->tell(
        facts.failure.isWarning ? NoticeCard::Weight::Warning : NoticeCard::Weight::Error, facts.failure.title,
        isCertificate ? facts.failure.cause : QString(facts.failure.cause + QLatin1Char('\n') + facts.failure.advice),
        isCertificate ? tr("Check the key...")
        : isLogin     ? tr("Type the login...")
                      : QString());
}

void DeviceDetailsWt::act()
{
    switch (m_logins->login(m_devId).phase) {
    case Phase::Disabled:
        m_logins->setEnabled(m_devId, true);
        break;
    case Phase::CertificateUnknown:
        emit signalCertificate(m_devId);
        break;
    default:
        emit signalEdit(m_devId);
    }
}

void DeviceDetailsWt::showFacts(const DeviceFacts& facts)
{
    const vemo_data::DevRecord record = vemo_data::DevsMgrData::instance().devRecord(m_devId);
    QVector<QPair<QString, QString>> lines{{tr("State"), facts.state.word},
                                           {tr("Address"), record.address.toString(QUrl::PrettyDecoded)},
                                           {tr("User name"), record.user},
                                           {tr("Group"), facts.group},
                                           {tr("Used for"), facts.use},
                                           {tr("Maker"), facts.maker},
                                           {tr("Model"), facts.model},
                                           {tr("Firmware"), facts.firmware},
                                           {tr("Serial number"), facts.serialNumber},
                                           {tr("Last seen"), facts.lastSeenWords()}};
    while (QLayoutItem* item = m_grid->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    int row = 0;
    for (const auto& line : qAsConst(lines)) {
        if (line.second.isEmpty())
            continue;
        auto* name = new QLabel(line.first, m_facts);
        name->setForegroundRole(QPalette::PlaceholderText);
        auto* value = new QLabel(line.second, m_facts);
        value->setTextFormat(Qt::PlainText);
        value->setWordWrap(true);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        m_grid->addWidget(name, row, 0, Qt::AlignTop);
        m_grid->addWidget(value, row, 1);
        ++row;
    }
}

/// Rows that are there stay: somebody may be typing in one.
void DeviceDetailsWt::showChannels()
{
    const QList<vms_sdk::ChannelInfo> channels = vemo_data::DevsMgrData::instance().channels(m_devId);
    m_channelsTitle->setText(channels.isEmpty()     ? tr("Its channels are known once it was logged in.")
                             : channels.size() == 1 ? tr("1 channel")
                                                    : tr("%1 channels").arg(channels.size()));
    m_channels->setVisible(!channels.isEmpty());
    if (m_channels->rowCount() == channels.size())
        return;
    const TableWidget::BulkChange bulk(m_channels);
    m_channels->setRowCount(channels.size());
    for (int row = 0; row < channels.size(); ++row) {
        m_channels->setItem(row, NoColumn, new QTableWidgetItem);
        auto* recordings = new QTableWidgetItem(channels.at(row).recordingToken.isEmpty() ? tr("No") : tr("Yes"));
        recordings->setTextAlignment(Qt::AlignCenter);
        m_channels->setItem(row, RecordingsColumn, recordings);
    }
}

} // namespace vemo_client
