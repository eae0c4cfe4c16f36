#pragma once

#include <QStringList>
#include <QWidget>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QMenu;
class QPushButton;

namespace vemo_base {
class TransportButton;
}

namespace vemo_client {

/// The bar below the tiles of live video: named views, the number of tiles, what comes in, what is done with the
/// selected tile. Shows a state and tells wishes, nothing else. GUI thread.
class LiveBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LiveBar)

public:
    /// Of the selected tile.
    enum class Recording : int { Off = 0, On };

    explicit LiveBar(QWidget* parent = nullptr);

    /// `current` empty: what is shown has no name.
    void setViews(const QStringList& names, const QString& current);
    void setTileCount(int count);
    void setSummary(const QString& text);
    /// Of the selected tile; without a channel, nothing can be done.
    void setSelected(bool hasChannel, bool hasPicture, Recording recording);

signals:
    void signalViewChosen(const QString& name);
    void signalSaveAsWanted();
    void signalRenameWanted();
    void signalDeleteWanted();
    void signalTileCountChosen(int count);
    void signalSnapshotWanted();
    void signalRecordWanted();
    void signalFullScreenWanted();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void addViews(QHBoxLayout* row);
    void addTiles(QHBoxLayout* row);
    void addDeeds(QHBoxLayout* row);
    QWidget* separator();

    QComboBox* m_views = nullptr;
    QMenu* m_menu = nullptr;
    QAction* m_rename = nullptr;
    QAction* m_delete = nullptr;
    QVector<vemo_base::TransportButton*> m_counts;
    QLabel* m_summary = nullptr;
    QPushButton* m_snapshot = nullptr;
    QPushButton* m_record = nullptr;
};

} // namespace vemo_client
