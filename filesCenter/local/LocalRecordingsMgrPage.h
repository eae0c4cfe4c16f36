#pragma once

#include "LocalRecordingRows.h"

#include <LocalRecordingIndexInfo.h>

#include <QList>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

class QTimer;

namespace VCOMMON {
struct LocalRescanResult;
}

namespace vemo_base {
class LocalPlaybackDlg;
class PageHeader;
class TableOperWtStyle;
} // namespace vemo_base

namespace vemo_filesCenter {

class LocalFilesSaveAs;
class LocalRecordingOperWt;
class LocalRecordingsData;

namespace Ui {
class LocalRecordingsMgrPage;
}

/// Page of the recordings on this computer: searched by a span of time, filtered by channel name, shown page by page;
/// played, copied elsewhere, deleted. It searches by itself when it is shown for the first time. One request to the
/// index is in flight at a time; an answer to an earlier one is dropped. A deletion takes record, file and side index
/// together; a file that will not go gets its record back. GUI thread, owned by the form.
class LocalRecordingsMgrPage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalRecordingsMgrPage)

public:
    explicit LocalRecordingsMgrPage(QWidget* parent = nullptr);
    ~LocalRecordingsMgrPage() override;

public slots: // in this order: it is the order of their indexes
    void slotSearchBtClicked();
    void slotDeleteBtClicked();
    void slotSaveAsBtClicked();

protected:
    void showEvent(QShowEvent* event) override;

private:
    /// Whether a page without rows is told in a box, or by what stands in the place of the rows alone.
    enum class WhenEmpty : int { Tell = 0, Show };

    void setUpTable();
    void setUpEmptyStates();
    void setUpConnections();

    void beginRequest(QWidget* covered, const QString& text);
    void endRequest();
    void search(WhenEmpty whenEmpty);
    /// Asks for the same span again, with nothing covered; filter and page stay.
    void refresh();
    void refreshWhenIdle();
    /// Brings the index in line with the folders, and shows what that changed.
    void rescan();
    void takeRescan(const VCOMMON::LocalRescanResult& result);
    void showSummary();
    void takeRecordings(const QString& requestId, const QList<VCOMMON::LocalRecordingIndexInfo>& records);

    void filterRecordings();
    void showPage(int page, WhenEmpty whenEmpty, LocalRecordingRows::Place place);
    void tellNone();
    void showContent();

    void connectOperWt(LocalRecordingOperWt* widget);
    void openFile(const QString& filePath, QWidget* asker);
    void openFolder(const QString& filePath, QWidget* asker);
    void whenThere(const QString& filePath, QWidget* asker, const std::function<void()>& act);
    void play(const QString& filePath);
    void openRowMenu(int row, const QPoint& globalPos);

    void deleteOne(int row);
    void deleteRows(const QList<int>& rows, const QString& question);
    void takeDeletion(const QString& requestId, const QStringList& filePaths, bool success);
    void removeFiles(const QStringList& filePaths);

    std::unique_ptr<Ui::LocalRecordingsMgrPage> m_ui;
    vemo_base::PageHeader* m_header = nullptr;
    vemo_base::TableOperWtStyle* m_tableStyle = nullptr;
    LocalRecordingsData* m_data;
    LocalRecordingRows* m_rows = nullptr;
    LocalFilesSaveAs* m_saveAs;
    QTimer* m_noHitTimer;                                ///< runs while the person types a filter
    QPointer<vemo_base::LocalPlaybackDlg> m_playbackDlg; ///< made when a file is first played
    QString m_reqId;                                     ///< of the request in flight: its waiting widget's
    QList<int> m_selectedRows;                           ///< which the deletion in flight covers
    WhenEmpty m_whenEmpty = WhenEmpty::Tell;             ///< of the search in flight
    bool m_keepsPlace = false;                           ///< the search in flight keeps filter and page
    bool m_isClearingFilter = false;
    bool m_hasSearched = false;
    bool m_hasAskedRescan = false; ///< the person has, not the page by itself
    bool m_isCut = false;          ///< the index has more than it answered
};

} // namespace vemo_filesCenter
