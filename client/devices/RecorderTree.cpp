#include "RecorderTree.h"

#include "LoginWords.h"
#include "RecorderAddress.h"
#include "RecorderLogins.h"
#include "RecorderTreeDelegate.h"

#include <BaseTools.h>
#include <DataSignals.h>
#include <DevsMgrData.h>

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>

namespace vemo_client {

namespace {

using Roles = RecorderTreeDelegate;

constexpr int indent = 16;

/// A replay address tells no channels: its one, or as many numbers as are usual.
QList<vms_sdk::ChannelInfo> channelsOf(const QString& devId)
{
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    QList<vms_sdk::ChannelInfo> channels = devices.channels(devId);
    const QUrl address = devices.devRecord(devId).address;
    if (!channels.isEmpty() || !RecorderAddress::isDirect(address))
        return channels;
    const bool hasNumber = address.toString().contains(QLatin1String("{channel}")) ||
                           address.toString(QUrl::FullyEncoded).contains(QLatin1String("%7Bchannel%7D"));
    const int count = hasNumber ? RecorderTree::mostChannels : 1;
    for (int number = 1; number <= count; ++number) {
        vms_sdk::ChannelInfo channel;
        channel.channelNo = number;
        channels.append(channel);
    }
    return channels;
}

bool isChannel(const QTreeWidgetItem* item)
{
    return item && item->parent();
}

ChannelRef refOf(const QTreeWidgetItem* channel)
{
    return {channel->parent()->data(0, Roles::DevIdRole).toString(), channel->data(0, Roles::ChannelNoRole).toInt()};
}

} // namespace

RecorderTree::RecorderTree(RecorderLogins* logins, QWidget* parent)
    : QTreeWidget(parent)
    , m_logins(logins)
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

QTreeWidgetItem* RecorderTree::recorderItem(const QString& devId) const
{
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (topLevelItem(i)->data(0, Roles::DevIdRole).toString() == devId)
            return topLevelItem(i);
    }
    return nullptr;
}

void RecorderTree::refresh(const QString& devId)
{
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    if (!devices.contains(devId))
        return;
    const QScopedValueRollback<bool> guard(m_changing, true);
    QTreeWidgetItem* item = recorderItem(devId);
    if (!item) {
        item = new QTreeWidgetItem(this);
        item->setData(0, Roles::DevIdRole, devId);
        item->setExpanded(true);
    }
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
    QList<QTreeWidgetItem*> made;
    for (int i = 0; i < channels.size(); ++i) {
        QTreeWidgetItem* item = same ? recorder->child(i) : new QTreeWidgetItem;
        const QString name = vemo_base::BaseTools::instance().getChannelName(devId, channels.at(i).channelNo);
        item->setText(0, name);
        item->setToolTip(0, name);
        if (same)
            continue;
        const ChannelRef ref{devId, channels.at(i).channelNo};
        item->setData(0, Roles::ChannelNoRole, ref.channelNo);
        item->setCheckState(0, m_wanted.removeAll(ref) > 0 ? Qt::Checked : Qt::Unchecked);
        made.append(item);
    }
    if (same)
        return;
    recorder->addChildren(made);
    recorder->setExpanded(true);
    emit signalCheckedChanged();
}

void RecorderTree::removeRecorder(const QString& devId)
{
    delete recorderItem(devId);
    emit signalCheckedChanged();
}

QVector<ChannelRef> RecorderTree::checkedChannels() const
{
    QVector<ChannelRef> channels;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        const QTreeWidgetItem* recorder = topLevelItem(i);
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
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* recorder = topLevelItem(i);
        for (int c = 0; c < recorder->childCount(); ++c)
            recorder->child(c)->setCheckState(0, m_wanted.removeAll(refOf(recorder->child(c))) > 0 ? Qt::Checked
                                                                                                   : Qt::Unchecked);
    }
    emit signalCheckedChanged();
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
    return RecorderTreeDelegate::boxRect(row, layoutDirection()).adjusted(-4, -8, 4, 8).contains(position);
}

void RecorderTree::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeWidgetItem* item = itemAt(event->pos());
    QTreeWidget::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && isChannel(item) && !isBox(item, event->pos()))
        checkOnly(item);
}

void RecorderTree::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeWidgetItem* item = itemAt(event->pos());
    if (!item || event->button() != Qt::LeftButton)
        return;
    if (!isChannel(item))
        item->setExpanded(!item->isExpanded());
    else if (!isBox(item, event->pos()))
        emit signalSearchWanted();
}

void RecorderTree::keyPressEvent(QKeyEvent* event)
{
    QTreeWidgetItem* item = currentItem();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isChannel(item) && isEnter) {
        if (checkedChannels().isEmpty() || item->checkState(0) != Qt::Checked)
            checkOnly(item);
        emit signalSearchWanted();
    } else if (item && !isChannel(item) && isEnter) {
        emit signalEdit(currentDevId());
    } else if (item && !isChannel(item) && event->key() == Qt::Key_Delete) {
        emit signalRemove(currentDevId());
    } else {
        QTreeWidget::keyPressEvent(event);
    }
}

void RecorderTree::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    QTreeWidgetItem* item = byKeyboard ? currentItem() : itemAt(event->pos());
    if (!item)
        return;
    setCurrentItem(item);
    const QString devId = currentDevId();
    QMenu menu(this);
    if (isChannel(item))
        connect(menu.addAction(tr("Search this channel")), &QAction::triggered, this, [this, item] {
            checkOnly(item);
            emit signalSearchWanted();
        });
    connect(menu.addAction(tr("Log in again")), &QAction::triggered, this, [this, devId] { m_logins->retry(devId); });
    connect(menu.addAction(tr("Change...")), &QAction::triggered, this, [this, devId] { emit signalEdit(devId); });
    menu.addSeparator();
    connect(menu.addAction(tr("Remove...")), &QAction::triggered, this, [this, devId] { emit signalRemove(devId); });
    menu.exec(byKeyboard ? viewport()->mapToGlobal(visualItemRect(item).center()) : event->globalPos());
}

QString RecorderTree::currentDevId() const
{
    const QTreeWidgetItem* item = currentItem();
    if (isChannel(item))
        item = item->parent();
    return item ? item->data(0, Roles::DevIdRole).toString() : QString();
}

void RecorderTree::showRecorder(const QString& devId)
{
    if (QTreeWidgetItem* item = recorderItem(devId)) {
        setCurrentItem(item);
        scrollToItem(item);
    }
}

void RecorderTree::setFilter(const QString& text)
{
    m_filter = text.trimmed();
    applyFilter();
}

void RecorderTree::applyFilter()
{
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* recorder = topLevelItem(i);
        const bool all = recorder->text(0).contains(m_filter, Qt::CaseInsensitive);
        bool any = false;
        for (int c = 0; c < recorder->childCount(); ++c) {
            QTreeWidgetItem* channel = recorder->child(c);
            const bool hit = all || channel->text(0).contains(m_filter, Qt::CaseInsensitive);
            channel->setHidden(!hit);
            any = any || hit;
        }
        recorder->setHidden(!all && !any);
    }
}

} // namespace vemo_client
