#include "ChannelNameWt.h"

#include <DevsMgrData.h>
#include <Icons.h>
#include <OperButton.h>

#include <QHBoxLayout>
#include <QLineEdit>

namespace vemo_client {

namespace {

constexpr int longestName = 128;

} // namespace

ChannelNameWt::ChannelNameWt(const ChannelRef& channel, const QString& name, const QString& deviceName, QWidget* parent)
    : QWidget(parent)
    , m_channel(channel)
    , m_deviceName(deviceName.isEmpty() ? tr("Channel %1").arg(channel.channelNo) : deviceName)
    , m_name(new QLineEdit(name == deviceName ? QString() : name, this))
    , m_reset(new vemo_base::OperButton(this))
{
    m_name->setMaxLength(longestName);
    m_name->setPlaceholderText(m_deviceName);
    m_name->setAccessibleName(tr("Name of channel %1").arg(channel.channelNo));
    m_reset->setIcon(vemo_base::Icons::icon(QStringLiteral("close")));
    m_reset->setToolTip(tr("The recorder's own name: %1").arg(m_deviceName));
    m_reset->setAccessibleName(m_reset->toolTip());
    m_reset->setEnabled(!m_name->text().isEmpty());
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(m_name, 1);
    layout->addWidget(m_reset);
    connect(m_name, &QLineEdit::editingFinished, this, &ChannelNameWt::keep);
    connect(m_name, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_reset->setEnabled(!text.isEmpty()); });
    connect(m_reset, &QToolButton::clicked, this, [this] {
        m_name->clear();
        keep();
    });
}

void ChannelNameWt::keep()
{
    const QString typed = m_name->text().simplified();
    vemo_data::DevsMgrData::instance().setChannelName(m_channel.devId, m_channel.channelNo,
                                                      typed == m_deviceName ? QString() : typed);
}

} // namespace vemo_client
