#pragma once

#include <CardsBox.h>
#include <LocalSnapImageIndexInfo.h>

#include <QList>
#include <QStringList>
#include <QVector>

namespace vemo_base {
struct Thumbnail;
struct ThumbnailKey;
} // namespace vemo_base

namespace vemo_filesCenter {

class LocalSnapImageCard;

/// The snapshots of one channel as cards, newest first. Keeps what is checked; a card in view only shows it. GUI
/// thread, owned by its group.
class LocalSnapImageCardsBox final : public vemo_base::CardsBox
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalSnapImageCardsBox)

public:
    using Snapshot = VCOMMON::LocalSnapImageIndexInfo;

    explicit LocalSnapImageCardsBox(QWidget* parent = nullptr);

    /// Nothing is checked afterwards.
    void setSnapshots(const QList<Snapshot>& snapshots);
    void setAllChecked(bool isChecked);
    QList<Snapshot> checkedSnapshots() const;
    /// Cards that are none of its own are left out.
    void removeSnapshots(const QStringList& filePaths);
    void enlarge(int index);

signals: // in this order: it is the order of their indexes
    void signalCheckState(Qt::CheckState state);
    void signalAllCardsDeleted();
    void signalCountChanged(int count);

protected:
    QWidget* createCard() override;
    void fillCard(QWidget* card, int index) override;
    void releaseCard(QWidget* card, int index) override;

private:
    struct Item
    {
        Snapshot snapshot;
        bool isChecked = false;
    };

    void setChecked(const LocalSnapImageCard* card, bool isChecked);
    void tellCheckState();
    void showThumbnail(const vemo_base::ThumbnailKey& key, const vemo_base::Thumbnail& thumbnail);
    void drag(const LocalSnapImageCard* card);
    void openMenu(LocalSnapImageCard* card, const QPoint& globalPos);

    QVector<Item> m_items;
};

} // namespace vemo_filesCenter
