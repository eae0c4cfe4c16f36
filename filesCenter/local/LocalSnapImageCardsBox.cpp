#include "LocalSnapImageCardsBox.h"

#include "LocalSnapImageCard.h"
#include "LocalSnapImageNames.h"

#include <BaseTools.h>
#include <Icons.h>
#include <ImageViewerDlg.h>
#include <ToolsCollection.h>

#include <QClipboard>
#include <QDir>
#include <QDrag>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QSet>
#include <QUrl>

#include <algorithm>

namespace vemo_filesCenter {

using vemo_base::Thumbnail;
using vemo_base::ThumbnailKey;
using vemo_base::Thumbnails;

namespace {

constexpr int spacing = 20;
constexpr QSize dragPicture{120, 68};

} // namespace

LocalSnapImageCardsBox::LocalSnapImageCardsBox(QWidget* parent)
    : CardsBox(LocalSnapImageCard::cardSize, spacing, parent)
{
    connect(&Thumbnails::instance(), &Thumbnails::signalThumbnail, this, &LocalSnapImageCardsBox::showThumbnail);
}

void LocalSnapImageCardsBox::setSnapshots(const QList<Snapshot>& snapshots)
{
    m_items.clear();
    m_items.reserve(snapshots.size());
    for (const Snapshot& snapshot : snapshots)
        m_items.append({snapshot, false});
    std::stable_sort(m_items.begin(), m_items.end(), [](const Item& one, const Item& other) {
        return one.snapshot.captureTime > other.snapshot.captureTime;
    });
    setCardCount(m_items.size());
    emit signalCountChanged(m_items.size());
    tellCheckState();
}

void LocalSnapImageCardsBox::setAllChecked(bool isChecked)
{
    for (int i = 0; i < m_items.size(); ++i) {
        m_items[i].isChecked = isChecked;
        if (auto* shown = static_cast<LocalSnapImageCard*>(card(i)))
            shown->setChecked(isChecked);
    }
    tellCheckState();
}

QList<LocalSnapImageCardsBox::Snapshot> LocalSnapImageCardsBox::checkedSnapshots() const
{
    QList<Snapshot> snapshots;
    for (const Item& item : m_items) {
        if (item.isChecked)
            snapshots.append(item.snapshot);
    }
    return snapshots;
}

void LocalSnapImageCardsBox::removeSnapshots(const QStringList& filePaths)
{
    const QSet<QString> paths(filePaths.cbegin(), filePaths.cend());
    QVector<int> gone;
    for (int i = 0; i < m_items.size(); ++i) {
        if (paths.contains(m_items.at(i).snapshot.filePath))
            gone.append(i);
    }
    if (gone.isEmpty())
        return;
    m_items.erase(std::remove_if(m_items.begin(), m_items.end(),
                                 [&paths](const Item& item) { return paths.contains(item.snapshot.filePath); }),
                  m_items.end());
    removeCards(gone);
    emit signalCountChanged(m_items.size());
    if (m_items.isEmpty())
        emit signalAllCardsDeleted();
    else
        tellCheckState();
}

void LocalSnapImageCardsBox::tellCheckState()
{
    const auto checked =
        std::count_if(m_items.cbegin(), m_items.cend(), [](const Item& item) { return item.isChecked; });
    emit signalCheckState(checked == 0                ? Qt::Unchecked
                          : checked == m_items.size() ? Qt::Checked
                                                      : Qt::PartiallyChecked);
}

void LocalSnapImageCardsBox::setChecked(const LocalSnapImageCard* card, bool isChecked)
{
    const int index = indexOf(card);
    if (index < 0)
        return;
    m_items[index].isChecked = isChecked;
    tellCheckState();
}

QWidget* LocalSnapImageCardsBox::createCard()
{
    auto* card = new LocalSnapImageCard(this);
    connect(card, &LocalSnapImageCard::signalCheckState, this,
            [this, card](bool isChecked) { setChecked(card, isChecked); });
    connect(card, &LocalSnapImageCard::signalRequestDeleteSnapImageCard, this,
            [this](const LocalSnapImageCard* gone) { removeSnapshots({gone->snapshot().filePath}); });
    connect(card, &LocalSnapImageCard::signalEnlargeRequested, this,
            [this](const LocalSnapImageCard* shown) { enlarge(indexOf(shown)); });
    connect(card, &LocalSnapImageCard::signalDragRequested, this, &LocalSnapImageCardsBox::drag);
    connect(card, &LocalSnapImageCard::signalMenuRequested, this, &LocalSnapImageCardsBox::openMenu);
    return card;
}

void LocalSnapImageCardsBox::fillCard(QWidget* card, int index)
{
    auto* shown = static_cast<LocalSnapImageCard*>(card);
    const Item& item = m_items.at(index);
    shown->setSnapshot(item.snapshot, item.isChecked);
    const ThumbnailKey key = shown->thumbnailKey();
    if (Thumbnails::instance().find(key).state == Thumbnail::State::Unknown)
        Thumbnails::instance().request(key, cardRect(index).intersects(partInView()) ? Thumbnails::Priority::Visible
                                                                                     : Thumbnails::Priority::Later);
}

void LocalSnapImageCardsBox::releaseCard(QWidget* card, int)
{
    Thumbnails::instance().withdraw(static_cast<LocalSnapImageCard*>(card)->thumbnailKey());
}

void LocalSnapImageCardsBox::showThumbnail(const ThumbnailKey& key, const Thumbnail& thumbnail)
{
    const QList<QWidget*> shown = cardsInView();
    for (QWidget* widget : shown) {
        auto* card = static_cast<LocalSnapImageCard*>(widget);
        if (card->thumbnailKey() == key)
            card->setThumbnail(thumbnail);
    }
}

void LocalSnapImageCardsBox::enlarge(int index)
{
    if (index < 0)
        return;
    QStringList paths;
    QStringList titles;
    for (const Item& item : qAsConst(m_items)) {
        paths.append(item.snapshot.filePath);
        titles.append(LocalSnapImageNames::channelName(item.snapshot) % QLatin1Char(' ') %
                      LocalSnapImageNames::captureTime(item.snapshot));
    }
    auto* viewer = new vemo_base::ImageViewerDlg(vemo_base::BaseTools::instance().getRootParentWt(this));
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->setImageFiles(paths, titles, index);
    viewer->show();
}

void LocalSnapImageCardsBox::drag(const LocalSnapImageCard* card)
{
    const int index = indexOf(card);
    if (index < 0)
        return;
    QList<QUrl> files;
    if (m_items.at(index).isChecked) {
        const QList<Snapshot> checked = checkedSnapshots();
        for (const Snapshot& snapshot : checked)
            files.append(QUrl::fromLocalFile(snapshot.filePath));
    } else {
        files.append(QUrl::fromLocalFile(m_items.at(index).snapshot.filePath));
    }
    auto* dragged = new QMimeData;
    dragged->setUrls(files);
    auto* drag = new QDrag(this);
    drag->setMimeData(dragged);
    const QImage picture = Thumbnails::instance().find(card->thumbnailKey()).image;
    if (!picture.isNull()) {
        QPixmap small = QPixmap::fromImage(
            picture.scaled(dragPicture * devicePixelRatioF(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
        small.setDevicePixelRatio(devicePixelRatioF());
        drag->setPixmap(small);
    }
    drag->exec(Qt::CopyAction);
}

void LocalSnapImageCardsBox::openMenu(LocalSnapImageCard* card, const QPoint& globalPos)
{
    const QString filePath = card->snapshot().filePath;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [this, menu](const char* icon, const QString& text, auto act) {
        connect(menu->addAction(vemo_base::Icons::icon(QLatin1String(icon)), text), &QAction::triggered, this, act);
    };
    // The card may show another snapshot by the time that an entry is chosen.
    const auto still = [this, card, filePath] {
        return indexOf(card) >= 0 && card->snapshot().filePath == filePath ? card : nullptr;
    };
    add("enlarge", tr("enlarge"), [this, still] {
        if (const LocalSnapImageCard* shown = still())
            enlarge(indexOf(shown));
    });
    add("save-as", tr("save as"), [still] {
        if (LocalSnapImageCard* shown = still())
            shown->saveSnapshot();
    });
    add("clean", tr("delete"), [still] {
        if (LocalSnapImageCard* shown = still())
            shown->deleteSnapshot();
    });
    menu->addSeparator();
    add("open-folder", tr("open folder"), [filePath] { VCOMMON::ToolsCollection::openFolderAndSelectFile(filePath); });
    add("copy", tr("Copy path"),
        [filePath] { QGuiApplication::clipboard()->setText(QDir::toNativeSeparators(filePath)); });
    menu->popup(globalPos);
}

} // namespace vemo_filesCenter
