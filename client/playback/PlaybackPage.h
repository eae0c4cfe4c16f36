#pragma once

#include "PlaybackDays.h"
#include "QueueRequests.h"

#include <axis/DayAxis.h>

#include <QTimer>
#include <QVector>
#include <QWidget>

#include <optional>

class QLabel;
class QSplitter;
class QStackedLayout;

namespace vemo_base {
class TransportButton;
}

namespace vemo_client {

class DayAxisWt;
class DownloadBar;
class FirstRecorderWt;
class MonthDays;
class PlaybackStage;
class RecorderColumn;
class RecorderLogins;
class SpanBar;
class StatePage;

/// The page on which recordings are played and picked for download: recorders and channels, a day, up to four channels
/// as video, all of them on a time line and in a table; a choice of recordings or a marked span goes to the download
/// queue. The choice and the mark exclude each other, so that the words beside the button tell all that it will do.
/// Remembers day, channels and the splitter. GUI thread; searches and playback run elsewhere and end when something
/// else is picked or the page is left.
class PlaybackPage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PlaybackPage)

public:
    explicit PlaybackPage(RecorderLogins* logins, QWidget* parent = nullptr);
    ~PlaybackPage() override;

    void showRecorder(const QString& devId);
    void setDay(const QDate& day);
    void search() { m_days.search(); }
    /// Puts what is chosen into the queue.
    void download();
    /// Keeps day, channels and sizes for the next start.
    void remember() const;

signals:
    /// So many of the asked downloads are in the queue now; the others were in it before.
    void signalQueued(int added, int asked);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeContent();
    QWidget* makePanel();
    void connectColumn();
    void connectStage();
    void restore();

    void takeRecorders();
    void takeChannels();
    void takeDay(const QDate& day);
    void takeMark(const std::optional<vemo_base::TimeSpan>& span);
    void takeChosen();
    void markRecording(const RecordingsTable::Place& place);
    void placeChannel(const ChannelRef& channel, const std::optional<ChannelRef>& before);
    void closeChannel(const ChannelRef& channel);

    void showDays();
    void showBody();
    void showState();
    QString failedRecorder() const;
    bool showFailedRecorder();
    void tellStage(const ChannelDay& day);
    void showSummary();
    void showWhatIsChosen();
    void showTiles();

    RecorderLogins* m_logins;
    QStackedLayout* m_pages = nullptr;
    FirstRecorderWt* m_first = nullptr; ///< only while it is shown
    QSplitter* m_splitter = nullptr;
    RecorderColumn* m_column = nullptr;
    QLabel* m_summary = nullptr;
    QLabel* m_told = nullptr;
    vemo_base::TransportButton* m_list = nullptr; ///< checked: recordings as a table
    DownloadBar* m_downloads = nullptr;
    DayAxisWt* m_axisWt = nullptr;
    SpanBar* m_spanBar = nullptr;
    QStackedLayout* m_body = nullptr;
    PlaybackStage* m_stage = nullptr;
    QWidget* m_tablePage = nullptr;
    RecordingsTable* m_table = nullptr;
    StatePage* m_state = nullptr;

    PlaybackDays m_days; ///< in the order of the tree
    std::optional<vemo_base::TimeSpan> m_span;
    bool m_playsNext = false; ///< a channel was activated: what is searched next is played
    QueueRequests m_requests;
    MonthDays* m_months = nullptr;
    QTimer m_toldTimer;
};

} // namespace vemo_client
