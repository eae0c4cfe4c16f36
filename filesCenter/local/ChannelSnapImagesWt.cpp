#include "ChannelSnapImagesWt.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace vemo_filesCenter {

namespace {

constexpr int namePixels = 14;
constexpr int rowGap = 12;
constexpr int countGap = 8;

} // namespace

ChannelSnapImagesWt::ChannelSnapImagesWt(QWidget* parent)
    : QWidget(parent)
    , m_channelName(new QCheckBox(this))
    , m_count(new QLabel(this))
    , m_cards(new LocalSnapImageCardsBox(this))
{
    m_channelName->setObjectName(QStringLiteral("channelName"));
    m_cards->setObjectName(QStringLiteral("localSnapImageCardsBox"));
    QFont font = m_channelName->font();
    font.setPixelSize(namePixels);
    font.setWeight(QFont::DemiBold);
    m_channelName->setFont(font);
    m_count->setForegroundRole(QPalette::PlaceholderText);

    auto* head = new QHBoxLayout;
    head->setSpacing(countGap);
    head->addWidget(m_channelName);
    head->addWidget(m_count);
    head->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(rowGap);
    layout->addLayout(head);
    layout->addWidget(m_cards);

    connect(m_channelName, &QCheckBox::clicked, this, [this] {
        // A click on a partly checked box checks all; the box itself never stays partly checked.
        const bool isChecked = m_channelName->checkState() != Qt::Unchecked;
        m_cards->setAllChecked(isChecked);
        m_channelName->setCheckState(isChecked ? Qt::Checked : Qt::Unchecked);
    });
    connect(m_cards, &LocalSnapImageCardsBox::signalCheckState, m_channelName, &QCheckBox::setCheckState);
    connect(m_cards, &LocalSnapImageCardsBox::signalCountChanged, this,
            [this](int count) { m_count->setText(count == 1 ? tr("1 snapshot") : tr("%1 snapshots").arg(count)); });
    connect(m_cards, &LocalSnapImageCardsBox::signalAllCardsDeleted, this,
            [this] { emit signalRequestDeleteChannelSnapImagesWt(this); });
}

void ChannelSnapImagesWt::setChannel(const QString& name, const QList<Snapshot>& snapshots)
{
    m_name = name;
    QString shown = name;
    shown.replace(QLatin1Char('&'), QLatin1String("&&")); // or else it would be a shortcut
    m_channelName->setText(shown);
    m_cards->setSnapshots(snapshots);
}

} // namespace vemo_filesCenter
