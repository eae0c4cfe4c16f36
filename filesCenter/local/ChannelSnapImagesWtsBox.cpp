#include "ChannelSnapImagesWtsBox.h"

#include "ChannelSnapImagesWt.h"
#include "LocalSnapImageNames.h"

#include <BaseTools.h>

#include <QMap>
#include <QVBoxLayout>

#include <algorithm>

namespace vemo_filesCenter {

namespace {

constexpr int margin = 20;
constexpr int groupGap = 28;

} // namespace

ChannelSnapImagesWtsBox::ChannelSnapImagesWtsBox(QWidget* parent)
    : VWidget(parent)
    , m_layout(new QVBoxLayout(this))
{
    setDarkIsland();
    setBackground(vemo_base::Token::Well);
    m_layout->setContentsMargins(margin, margin, margin, margin);
    m_layout->setSpacing(groupGap);
    m_layout->addStretch();
}

void ChannelSnapImagesWtsBox::setSnapshots(const QList<Snapshot>& snapshots)
{
    QMap<QString, QList<Snapshot>> byName;
    for (const Snapshot& snapshot : snapshots)
        byName[LocalSnapImageNames::channelName(snapshot)].append(snapshot);
    QStringList names = byName.keys();
    std::sort(names.begin(), names.end(), [](const QString& one, const QString& other) {
        return vemo_base::BaseTools::instance().strLessThan(one, other);
    });

    const int reused = qMin(names.size(), m_groups.size());
    for (int i = 0; i < reused; ++i)
        m_groups.at(i)->setChannel(names.at(i), byName.value(names.at(i)));
    while (m_groups.size() > names.size())
        removeGroup(m_groups.last());
    for (int i = reused; i < names.size(); ++i)
        addGroup(names.at(i), byName.value(names.at(i)));
    emit signalContentChanged();
}

void ChannelSnapImagesWtsBox::addGroup(const QString& name, const QList<Snapshot>& snapshots)
{
    auto* group = new ChannelSnapImagesWt(this);
    group->setChannel(name, snapshots);
    group->setVisible(true);
    m_groups.append(group);
    m_layout->insertWidget(m_layout->count() - 1, group);
    connect(group, &ChannelSnapImagesWt::signalRequestDeleteChannelSnapImagesWt, this,
            &ChannelSnapImagesWtsBox::removeGroup);
    connect(group->cards(), &LocalSnapImageCardsBox::signalCountChanged, this,
            &ChannelSnapImagesWtsBox::signalContentChanged);
    connect(group->cards(), &LocalSnapImageCardsBox::signalLeft, this,
            [this, group](int direction, int column) { goOn(group, direction, column); });
}

void ChannelSnapImagesWtsBox::removeGroup(ChannelSnapImagesWt* group)
{
    m_layout->removeWidget(group);
    m_groups.removeOne(group);
    group->hide();
    group->deleteLater(); // it may be one of its own signals that leads here
    emit signalContentChanged();
}

bool ChannelSnapImagesWtsBox::isShown(const ChannelSnapImagesWt* group) const
{
    return !group->isHidden();
}

void ChannelSnapImagesWtsBox::filter(const QString& keyword)
{
    for (ChannelSnapImagesWt* group : qAsConst(m_groups))
        group->setVisible(keyword.isEmpty() || group->name().contains(keyword, Qt::CaseInsensitive));
    emit signalContentChanged();
}

void ChannelSnapImagesWtsBox::setAllChecked(bool isChecked)
{
    for (const ChannelSnapImagesWt* group : qAsConst(m_groups)) {
        if (isShown(group))
            group->cards()->setAllChecked(isChecked);
    }
}

QList<ChannelSnapImagesWtsBox::Snapshot> ChannelSnapImagesWtsBox::checkedSnapshots() const
{
    QList<Snapshot> snapshots;
    for (const ChannelSnapImagesWt* group : m_groups) {
        if (isShown(group))
            snapshots.append(group->cards()->checkedSnapshots());
    }
    return snapshots;
}

void ChannelSnapImagesWtsBox::removeSnapshots(const QStringList& filePaths)
{
    const QList<ChannelSnapImagesWt*> groups = m_groups; // a group that becomes empty leaves the list
    for (const ChannelSnapImagesWt* group : groups)
        group->cards()->removeSnapshots(filePaths);
}

int ChannelSnapImagesWtsBox::shownGroupCount() const
{
    return static_cast<int>(std::count_if(m_groups.cbegin(), m_groups.cend(),
                                          [this](const ChannelSnapImagesWt* group) { return isShown(group); }));
}

int ChannelSnapImagesWtsBox::snapshotCount() const
{
    int count = 0;
    for (const ChannelSnapImagesWt* group : m_groups)
        count += group->cards()->cardCount();
    return count;
}

void ChannelSnapImagesWtsBox::goOn(const ChannelSnapImagesWt* from, int direction, int column)
{
    int next = m_groups.indexOf(const_cast<ChannelSnapImagesWt*>(from));
    do
        next += direction;
    while (next >= 0 && next < m_groups.size() && !isShown(m_groups.at(next)));
    if (next < 0 || next >= m_groups.size())
        return;
    LocalSnapImageCardsBox* cards = m_groups.at(next)->cards();
    const int columns = cards->columnCount();
    const int row = direction > 0 ? 0 : (cards->cardCount() - 1) / columns;
    cards->focusCard(qMin(row * columns + column, cards->cardCount() - 1));
}

} // namespace vemo_filesCenter
