#include "ClientTree.h"

#include "BaseTools.h"
#include "Icons.h"
#include "Theme.h"

#include <DataSignals.h>
#include <DevsMgrData.h>

#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTreeWidgetItemIterator>

namespace vemo_base {

namespace {

constexpr int rowHeight = 32;
constexpr int iconExtent = 18;
constexpr int indent = 24;
constexpr int wordPixels = 12;
constexpr int edge = 12;
constexpr int idRole = Qt::UserRole;
constexpr int refusalRole = Qt::UserRole + 1;

/// The style's row, and trailing the word why it can't be checked.
class RefusalDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return {QStyledItemDelegate::sizeHint(option, index).width(), rowHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QString word = index.data(refusalRole).toString();
        if (word.isEmpty()) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        QFont small = option.font;
        small.setPixelSize(wordPixels);
        const int wordWidth = QFontMetrics(small).horizontalAdvance(word);
        QStyleOptionViewItem row = option;
        row.rect = QStyle::visualRect(option.direction, option.rect, option.rect.adjusted(0, 0, -wordWidth - edge, 0));
        QStyledItemDelegate::paint(painter, row, index);
        painter->save();
        painter->setFont(small);
        painter->setPen(Theme::instance().color(Token::Text2));
        const QRect room = QStyle::visualRect(option.direction, option.rect, option.rect.adjusted(0, 0, -edge, 0));
        painter->drawText(room, int(QStyle::visualAlignment(option.direction, Qt::AlignRight) | Qt::AlignVCenter),
                          word);
        painter->restore();
    }
};

} // namespace

ClientTree::ClientTree(Refusal refusal, QWidget* parent)
    : QTreeWidget(parent)
    , m_refusal(std::move(refusal))
{
    setHeaderHidden(true);
    setFrameShape(NoFrame);
    setItemDelegate(new RefusalDelegate(this));
    setIndentation(indent);
    setIconSize(QSize(iconExtent, iconExtent));
    setUniformRowHeights(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    setAccessibleName(tr("Channels"));
    const vemo_data::DataSignals& stores = vemo_data::DataSignals::instance();
    connect(&stores, &vemo_data::DataSignals::signalDevInfoChanged, this, &ClientTree::refresh);
    connect(&stores, &vemo_data::DataSignals::signalDevRemoved, this, &ClientTree::refresh);
    connect(this, &QTreeWidget::itemChanged, this, [this] {
        if (!m_isFilling)
            emit signalCheckedChanged();
    });
}

QList<ClientTree::Device> ClientTree::devices() const
{
    const vemo_data::DevsMgrData& store = vemo_data::DevsMgrData::instance();
    const BaseTools& tools = BaseTools::instance();
    QList<Device> devices;
    for (const QString& devId : store.devIds()) {
        const vms_sdk::DevInfo info = store.getDevInfoById(devId);
        Device device;
        device.name = info.name.isEmpty() ? store.devRecord(devId).address.host() : info.name;
        device.refusal = m_refusal ? m_refusal(info) : QString();
        for (const vms_sdk::ChannelInfo& channel : store.channels(devId))
            device.channels.append(
                {tools.formatChannelId(devId, channel.channelNo), tools.getChannelName(devId, channel.channelNo)});
        devices.append(device);
    }
    return devices;
}

void ClientTree::refresh()
{
    const QStringList checked = getCheckedChannels();
    {
        const QScopedValueRollback<bool> guard(m_isFilling, true);
        clear();
        fill(devices());
    }
    setCheckedChannels(checked);
    setFilter(m_filter);
}

QTreeWidgetItem* ClientTree::makeDevice(const Device& device) const
{
    auto* item = new QTreeWidgetItem({device.name});
    item->setIcon(0, Icons::icon(QStringLiteral("devices")));
    item->setToolTip(0, device.name);
    item->setData(0, refusalRole, device.refusal);
    item->setCheckState(0, Qt::Unchecked);
    if (device.refusal.isEmpty() && !device.channels.isEmpty())
        item->setFlags(item->flags() | Qt::ItemIsAutoTristate);
    else
        item->setFlags(Qt::NoItemFlags);
    return item;
}

QTreeWidgetItem* ClientTree::makeChannel(const Channel& channel, const Device& device) const
{
    auto* item = new QTreeWidgetItem({channel.name});
    item->setIcon(0, Icons::icon(QStringLiteral("camera")));
    item->setToolTip(0, channel.name);
    item->setData(0, idRole, channel.id);
    item->setCheckState(0, Qt::Unchecked);
    if (!device.refusal.isEmpty())
        item->setFlags(Qt::NoItemFlags);
    return item;
}

QList<QTreeWidgetItem*> ClientTree::channelItems() const
{
    QList<QTreeWidgetItem*> items;
    for (QTreeWidgetItemIterator it(const_cast<ClientTree*>(this)); *it; ++it) {
        if (!(*it)->data(0, idRole).toString().isEmpty())
            items.append(*it);
    }
    return items;
}

QStringList ClientTree::getCheckedChannels() const
{
    QStringList ids;
    for (const QTreeWidgetItem* item : channelItems()) {
        if (item->checkState(0) == Qt::Checked)
            ids.append(item->data(0, idRole).toString());
    }
    return ids;
}

void ClientTree::setCheckedChannels(const QStringList& channelIds)
{
    const QSet<QString> wanted(channelIds.cbegin(), channelIds.cend());
    {
        const QScopedValueRollback<bool> guard(m_isFilling, true);
        for (QTreeWidgetItem* item : channelItems()) {
            const bool isWanted =
                item->flags() & Qt::ItemIsEnabled && wanted.contains(item->data(0, idRole).toString());
            item->setCheckState(0, isWanted ? Qt::Checked : Qt::Unchecked);
        }
    }
    emit signalCheckedChanged();
}

void ClientTree::setFilter(const QString& text)
{
    m_filter = text.trimmed();
    for (int i = 0; i < topLevelItemCount(); ++i)
        applyFilter(topLevelItem(i), false);
}

void ClientTree::applyFilter(QTreeWidgetItem* item, bool parentHit)
{
    const bool hit = parentHit || item->text(0).contains(m_filter, Qt::CaseInsensitive);
    bool any = hit;
    for (int i = 0; i < item->childCount(); ++i) {
        applyFilter(item->child(i), hit);
        any = any || !item->child(i)->isHidden();
    }
    item->setHidden(!any);
    if (!m_filter.isEmpty() && any)
        item->setExpanded(true);
}

} // namespace vemo_base
