#include "RecorderTree.h"

#include "ChannelMime.h"
#include "LoginWords.h"
#include "RecorderAddress.h"
#include "RecorderLogins.h"
#include "RecorderTreeDelegate.h"

#include <DataSignals.h>
#include <DevsMgrData.h>
#include <NaturalOrder.h>
#include <SystemWorker.h>

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>

namespace vemo_client {

namespace {

using Roles = RecorderTreeDelegate;

constexpr int indent = 16;
/// More recorders than that begin folded.
constexpr int mostUnfolded = 12;

/// A replay address tells no channels: its one, or as many numbers as are usual.
QList<vms_sdk::ChannelInfo> channelsOf(const QString& devId)
{
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    QList<vms_sdk::ChannelInfo> channels = devices.channels(devId);
    const QUrl address = devices.devRecord(devId).address;
    if (!channels.isEmpty() || !RecorderAddress::isDirect(address))
        return channels;
    const int count = RecorderAddress::hasChannelNumber(address) ? RecorderTree::mostChannels : 1;
    for (int number = 1; number <= count; ++number) {
        vms_sdk::ChannelInfo channel;
        channel.channelNo = number;
        channels.append(channel);
    }
    return channels;
}

bool isChannel(const QTreeWidgetItem* item)
{
    return item && item->data(0, Roles::ChannelNoRole).isValid();
}

bool isRecorder(const QTreeWidgetItem* item)
{
    return item && item->data(0, Roles::DevIdRole).isValid();
}

bool mayChange()
{
    return vemo_worker::SystemWorker::instance().isCurUserHasPower(vemo_worker::PowerDevices);
}

bool isUsable(const QTreeWidgetItem* channel)
{
    return isChannel(channel) && channel->flags() & Qt::ItemIsEnabled;
}

ChannelRef refOf(const QTreeWidgetItem* channel)
{
    return {channel->parent()->data(0, Roles::DevIdRole).toString(), channel->data(0, Roles::ChannelNoRole).toInt()};
}

} // namespace

RecorderTree::RecorderTree(RecorderLogins* logins, QWidget* parent, Use use)
    : QTreeWidget(parent)
    , m_logins(logins)
    , m_use(use)
{
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setItemDelegate(new RecorderTreeDelegate(this));
    setIndentation(indent);
    setUniformRowHeights(true);
    setRootIsDecorated(true);
    setExpandsOnDoubleClick(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(SingleSelection);
    setMouseTracking(true);
    setDragEnabled(true);
    setDragDropMode(DragOnly);
    setAccessibleName(tr("Recorders and channels"));
    // The column stands on the surface of the navigation, not in a well.
    QPalette own = palette();
    own.setColor(QPalette::Base, Qt::transparent);
    setPalette(own);

    const vemo_data::DataSignals& stores = vemo_data::DataSignals::instance();
    connect(&stores, &vemo_data::DataSignals::signalDevInfoChanged, this, &RecorderTree::refresh);
    connect(&stores, &vemo_data::DataSignals::signalDevRemoved, this, &RecorderTree::removeRecorder);
    connect(m_logins, &RecorderLogins::signalChanged, this, &RecorderTree::refresh);
    connect(this, &QTreeWidget::itemChanged, this, &RecorderTree::takeCheck);
    const QStringList devIds = vemo_data::DevsMgrData::instance().devIds();
    for (const QString& devId : devIds)
        refresh(devId);
}

/// In the order of the tree.
QVector<QTreeWidgetItem*> RecorderTree::recorderItems() const
{
    QVector<QTreeWidgetItem*> items;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = topLevelItem(i);
        if (isRecorder(item))
            items.append(item);
        for (int c = 0; !isRecorder(item) && c < item->childCount(); ++c)
            items.append(item->child(c));
    }
    return items;
}

/// Groups stand ahead of the recorders that are in none, in the order of their names.
QTreeWidgetItem* RecorderTree::groupItem(const QString& group)
{
    if (QTreeWidgetItem* known = m_groups.value(group))
        return known;
    int place = 0;
    while (place < m_groups.size() && vemo_base::NaturalOrder::lessThan(topLevelItem(place)->text(0), group))
        ++place;
    auto* item = new QTreeWidgetItem;
    item->setText(0, group);
    item->setToolTip(0, group);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    insertTopLevelItem(place, item);
    item->setExpanded(true);
    m_groups.insert(group, item);
    return item;
}

void RecorderTree::removeIfEmpty(QTreeWidgetItem* group)
{
    if (!group || group->childCount() > 0)
        return;
    m_groups.remove(group->text(0));
    delete group;
}

/// The recorder's item below its group, made or moved there when it is not.
QTreeWidgetItem* RecorderTree::placedItem(const QString& devId, const QString& group)
{
    QTreeWidgetItem* item = m_recorders.value(devId);
    QTreeWidgetItem* before = item ? item->parent() : nullptr;
    if (item && (before ? before->text(0) : QString()) == group)
        return item;
    const bool isNew = !item;
    bool isExpanded = false;
    if (isNew) {
        item = new QTreeWidgetItem;
        item->setData(0, Roles::DevIdRole, devId);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        m_recorders.insert(devId, item);
        isExpanded = m_recorders.size() <= mostUnfolded;
    } else {
        isExpanded = item->isExpanded();
        if (before)
            before->removeChild(item);
        else
            takeTopLevelItem(indexOfTopLevelItem(item));
        removeIfEmpty(before);
    }
    if (group.isEmpty())
        addTopLevelItem(item);
    else
        groupItem(group)->addChild(item);
    item->setExpanded(isExpanded);
    return item;
}

QString RecorderTree::whyUnusable(const QString& devId) const
{
    const vemo_data::DevRecord record = vemo_data::DevsMgrData::instance().devRecord(devId);
    if (!record.enabled)
        return tr("The recorder is disabled.");
    if (m_use == Use::Playback && record.kind == vemo_data::DevKind::RtspSource)
        return tr("A source for live view alone: it has no recordings.");
    return QString();
}

void RecorderTree::refresh(const QString& devId)
{
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    if (!devices.contains(devId))
        return;
    const QScopedValueRollback<bool> guard(m_changing, true);
    QTreeWidgetItem* item = placedItem(devId, devices.devRecord(devId).group);
    const vms_sdk::DevInfo info = devices.getDevInfoById(devId);
    const vemo_data::DevRecord record = devices.devRecord(devId);
    const QString name = !info.name.isEmpty() ? info.name : record.address.host();
    const RecorderLogins::Login login = m_logins->login(devId);
    const LoginWords::State state = LoginWords::stateOf(login);
    item->setText(0, name);
    item->setData(0, Roles::StateIconRole, state.icon);
    item->setData(0, Roles::StateColorRole, int(state.color));
    item->setData(0, Roles::StateWordRole, state.word);
    const LoginWords::Failure failure = LoginWords::failureOf(login);
    QStringList tip{name, RecorderAddress::text(record.address), state.word};
    if (!info.model.isEmpty())
        tip.insert(1, QString(info.manufacturer + QLatin1Char(' ') + info.model).trimmed());
    if (!failure.title.isEmpty())
        tip << failure.cause << failure.advice;
    item->setToolTip(0, tip.join(QLatin1Char('\n')));
    item->setData(0, Qt::AccessibleTextRole, QString(name + QLatin1String(", ") + state.word));
    refreshChannels(item, devId);
    if (!m_filter.isEmpty())
        applyFilter();
}

void RecorderTree::refreshChannels(QTreeWidgetItem* recorder, const QString& devId)
{
    const QList<vms_sdk::ChannelInfo> channels = channelsOf(devId);
    bool same = channels.size() == recorder->childCount();
    for (int i = 0; same && i < channels.size(); ++i)
        same = recorder->child(i)->data(0, Roles::ChannelNoRole).toInt() == channels.at(i).channelNo;
    if (!same) {
        m_wanted += checkedChannels();
        qDeleteAll(recorder->takeChildren());
    }
    const QString unusable = whyUnusable(devId);
    Qt::ItemFlags flags = Qt::ItemIsSelectable;
    if (unusable.isEmpty())
        flags |= Qt::ItemIsEnabled | Qt::ItemIsDragEnabled;
    if (unusable.isEmpty() && m_use == Use::Playback)
        flags |= Qt::ItemIsUserCheckable;
    QList<QTreeWidgetItem*> made;
    for (int i = 0; i < channels.size(); ++i) {
        QTreeWidgetItem* item = same ? recorder->child(i) : new QTreeWidgetItem;
        const vms_sdk::ChannelInfo& channel = channels.at(i);
        const QString name = !channel.name.isEmpty() ? channel.name : tr("Channel %1").arg(channel.channelNo);
        item->setText(0, name);
        item->setToolTip(0, unusable.isEmpty() ? name : name + QLatin1Char('\n') + unusable);
        item->setFlags(flags);
        const ChannelRef ref{devId, channel.channelNo};
        if (!same) {
            item->setData(0, Roles::ChannelNoRole, ref.channelNo);
            item->setData(0, Roles::ActiveRole, m_active.contains(ref));
            made.append(item);
        }
        if (!same || !isUsable(item))
            item->setCheckState(0, isUsable(item) && m_wanted.removeAll(ref) > 0 ? Qt::Checked : Qt::Unchecked);
    }
    if (same)
        return;
    recorder->addChildren(made);
    if (m_recorders.size() <= mostUnfolded)
        recorder->setExpanded(true);
    emit signalCheckedChanged();
}

void RecorderTree::removeRecorder(const QString& devId)
{
    QTreeWidgetItem* item = m_recorders.take(devId);
    if (!item)
        return;
    QTreeWidgetItem* group = item->parent();
    delete item;
    removeIfEmpty(group);
    emit signalCheckedChanged();
}

QVector<ChannelRef> RecorderTree::checkedChannels() const
{
    QVector<ChannelRef> channels;
    const QVector<QTreeWidgetItem*> recorders = recorderItems();
    for (const QTreeWidgetItem* recorder : recorders) {
        for (int c = 0; c < recorder->childCount(); ++c) {
            if (recorder->child(c)->checkState(0) == Qt::Checked)
                channels.append(refOf(recorder->child(c)));
        }
    }
    return channels;
}

void RecorderTree::setCheckedChannels(const QVector<ChannelRef>& channels)
{
    const QScopedValueRollback<bool> guard(m_changing, true);
    m_wanted = channels;
    const QVector<QTreeWidgetItem*> recorders = recorderItems();
    for (QTreeWidgetItem* recorder : recorders) {
        for (int c = 0; c < recorder->childCount(); ++c) {
            QTreeWidgetItem* channel = recorder->child(c);
            const bool isWanted = isUsable(channel) && m_wanted.removeAll(refOf(channel)) > 0;
            channel->setCheckState(0, isWanted ? Qt::Checked : Qt::Unchecked);
        }
    }
    emit signalCheckedChanged();
}

void RecorderTree::setActiveChannels(const QVector<ChannelRef>& channels)
{
    const QScopedValueRollback<bool> guard(m_changing, true);
    m_active = channels;
    for (QTreeWidgetItem* recorder : qAsConst(m_recorders)) {
        for (int c = 0; c < recorder->childCount(); ++c) {
            QTreeWidgetItem* channel = recorder->child(c);
            const bool isActive = m_active.contains(refOf(channel));
            if (channel->data(0, Roles::ActiveRole).toBool() == isActive)
                continue;
            channel->setData(0, Roles::ActiveRole, isActive);
            channel->setData(0, Qt::AccessibleTextRole,
                             isActive ? tr("%1, is being played").arg(channel->text(0)) : QVariant());
        }
    }
}

void RecorderTree::takeCheck(QTreeWidgetItem* item)
{
    if (m_changing)
        return;
    if (item->checkState(0) == Qt::Checked && checkedChannels().size() > mostChannels) {
        const QScopedValueRollback<bool> guard(m_changing, true);
        item->setCheckState(0, Qt::Unchecked);
    }
    emit signalCheckedChanged();
}

void RecorderTree::checkOnly(QTreeWidgetItem* channel)
{
    setCheckedChannels({refOf(channel)});
    m_wanted.clear();
}

bool RecorderTree::isBox(const QTreeWidgetItem* item, const QPoint& position) const
{
    const QRect row = visualItemRect(item);
    return m_use == Use::Playback &&
           RecorderTreeDelegate::boxRect(row, layoutDirection()).adjusted(-4, -8, 4, 8).contains(position);
}

void RecorderTree::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeWidgetItem* item = itemAt(event->pos());
    QTreeWidget::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && isUsable(item) && !isBox(item, event->pos()))
        checkOnly(item);
}

void RecorderTree::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeWidgetItem* item = itemAt(event->pos());
    if (!item || event->button() != Qt::LeftButton)
        return;
    if (!isChannel(item)) {
        item->setExpanded(!item->isExpanded());
    } else if (isUsable(item) && !isBox(item, event->pos())) {
        emit signalChannelActivated(refOf(item));
        emit signalSearchWanted();
    }
}

void RecorderTree::keyPressEvent(QKeyEvent* event)
{
    QTreeWidgetItem* item = currentItem();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isUsable(item) && isEnter) {
        emit signalChannelActivated(refOf(item));
        if (checkedChannels().isEmpty() || item->checkState(0) != Qt::Checked)
            checkOnly(item);
        emit signalSearchWanted();
    } else if (isRecorder(item) && isEnter && mayChange()) {
        emit signalEdit(currentDevId());
    } else if (isRecorder(item) && event->key() == Qt::Key_Delete && mayChange()) {
        emit signalRemove(currentDevId());
    } else {
        QTreeWidget::keyPressEvent(event);
    }
}

void RecorderTree::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    QTreeWidgetItem* item = byKeyboard ? currentItem() : itemAt(event->pos());
    if (!item || m_use == Use::Live)
        return;
    setCurrentItem(item);
    const QString devId = currentDevId();
    if (devId.isEmpty())
        return;
    QMenu menu(this);
    if (isUsable(item))
        connect(menu.addAction(tr("Search this channel")), &QAction::triggered, this, [this, item] {
            checkOnly(item);
            emit signalSearchWanted();
        });
    connect(menu.addAction(tr("Log in again")), &QAction::triggered, this, [this, devId] { m_logins->retry(devId); });
    if (mayChange()) {
        connect(menu.addAction(tr("Change...")), &QAction::triggered, this, [this, devId] { emit signalEdit(devId); });
        menu.addSeparator();
        connect(menu.addAction(tr("Remove...")), &QAction::triggered, this,
                [this, devId] { emit signalRemove(devId); });
    }
    menu.exec(byKeyboard ? viewport()->mapToGlobal(visualItemRect(item).center()) : event->globalPos());
}

QString RecorderTree::currentDevId() const
{
    const QTreeWidgetItem* item = currentItem();
    if (isChannel(item))
        item = item->parent();
    return isRecorder(item) ? item->data(0, Roles::DevIdRole).toString() : QString();
}

void RecorderTree::showRecorder(const QString& devId)
{
    if (QTreeWidgetItem* item = m_recorders.value(devId)) {
        setCurrentItem(item);
        scrollToItem(item);
    }
}

QStringList RecorderTree::mimeTypes() const
{
    return {ChannelMime::type()};
}

QMimeData* RecorderTree::mimeData(const QList<QTreeWidgetItem*> items) const
{
    if (items.isEmpty() || !isUsable(items.first()))
        return nullptr;
    auto* mime = new QMimeData;
    mime->setData(ChannelMime::type(), ChannelMime::encode(refOf(items.first())));
    return mime;
}

void RecorderTree::setFilter(const QString& text)
{
    m_filter = text.trimmed();
    applyFilter();
}

void RecorderTree::applyFilter()
{
    const auto isHit = [this](const QTreeWidgetItem* item) {
        return item->text(0).contains(m_filter, Qt::CaseInsensitive);
    };
    setUpdatesEnabled(false);
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = topLevelItem(i);
        if (isRecorder(item)) {
            applyFilterTo(item, false);
            continue;
        }
        bool any = false;
        for (int c = 0; c < item->childCount(); ++c)
            any = applyFilterTo(item->child(c), isHit(item)) || any;
        item->setHidden(!any);
    }
    setUpdatesEnabled(true);
}

/// The channels of a recorder that is hidden as a whole stay as they are.
bool RecorderTree::applyFilterTo(QTreeWidgetItem* recorder, bool groupHit)
{
    const auto isHit = [this](const QTreeWidgetItem* item) {
        return item->text(0).contains(m_filter, Qt::CaseInsensitive);
    };
    const bool all = groupHit || isHit(recorder);
    QVector<bool> hits(recorder->childCount(), all);
    for (int c = 0; !all && c < hits.size(); ++c)
        hits[c] = isHit(recorder->child(c));
    const bool any = hits.contains(true);
    recorder->setHidden(!all && !any);
    if (!any)
        return all;
    for (int c = 0; c < hits.size(); ++c) {
        if (recorder->child(c)->isHidden() == hits.at(c))
            recorder->child(c)->setHidden(!hits.at(c));
    }
    if (!all)
        recorder->setExpanded(true);
    return true;
}

} // namespace vemo_client
