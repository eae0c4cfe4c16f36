#pragma once

#include "ChannelDay.h"
#include "DaySearch.h"
#include "QueueRequests.h"

#include <axis/DayAxis.h>

#include <QTimer>
#include <QVector>
#include <QWidget>

#include <functional>
#include <optional>

class QLabel;
class QPushButton;
class QSplitter;
class QStackedLayout;

namespace vemo_base {
class EmptyStateWt;
class PageHeader;
} // namespace vemo_base

namespace vemo_client {

class DayAxisWt;
class FirstRecorderWt;
class RecorderColumn;
class RecorderLogins;
class RecordingsTable;
class SpanBar;

/// The page on which a person picks what is to be downloaded: recorders and channels, a day, its recordings on a time
/// axis and in a table; a choice of recordings or a marked span goes to the download queue. The choice and the mark
/// exclude each other, so that the words beside the button tell all that it will do. Remembers day, channels and the
/// splitter. GUI thread; searches run elsewhere and are cancelled when something else is picked.
class PlaybackPage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PlaybackPage)

public:
    explicit PlaybackPage(RecorderLogins* logins, QWidget* parent = nullptr);
    ~PlaybackPage() override;

    void showRecorder(const QString& devId);
    void setDay(const QDate& day);
    void search();
    /// Puts what is chosen into the queue.
    void download();
    /// Keeps day, channels and sizes for the next start.
    void remember() const;

signals:
    /// So many of the asked downloads are in the queue now; the others were in it before.
    void signalQueued(int added, int asked);

private:
    QWidget* makeContent();
    QWidget* makeDayBar();
    void restore();

    void takeRecorders();
    void takeChannels();
    void takeDay(const QDate& day);
    void takeFound(const ChannelRef& channel, const QList<vms_sdk::VideoRecording>& recordings);
    void takeFailed(const ChannelRef& channel, const vms_sdk::Error& error);
    void takeMark(const std::optional<vemo_base::TimeSpan>& span);
    void takeChosen();

    void searchFor(const QVector<ChannelRef>& channels);
    void searchMissing();
    ChannelDay* dayOf(const ChannelRef& channel);

    void showDays();
    void showBody();
    void showState(const QString& icon, const QString& missing, const QString& advice, const QString& deed = QString(),
                   const std::function<void()>& act = {});
    bool showFailedRecorder();
    void showSummary();
    void showWhatIsChosen();

    RecorderLogins* m_logins;
    QStackedLayout* m_pages = nullptr;
    FirstRecorderWt* m_first = nullptr; ///< only while it is shown
    QSplitter* m_splitter = nullptr;
    RecorderColumn* m_column = nullptr;
    vemo_base::PageHeader* m_header = nullptr;
    QLabel* m_dayLabel = nullptr;
    QPushButton* m_search = nullptr;
    QLabel* m_chosenWords = nullptr;
    QPushButton* m_download = nullptr;
    DayAxisWt* m_axisWt = nullptr;
    SpanBar* m_spanBar = nullptr;
    QStackedLayout* m_body = nullptr;
    RecordingsTable* m_table = nullptr;
    vemo_base::EmptyStateWt* m_state = nullptr;
    QString m_stateKey; ///< what the empty state says, so that it is made anew only when that changes

    vemo_base::DayAxis m_axis;
    QVector<ChannelDay> m_days; ///< in the order of the tree
    std::optional<vemo_base::TimeSpan> m_span;
    bool m_hasSearched = false;
    DaySearch m_daySearch;
    QVector<ChannelRef> m_searched; ///< what m_daySearch was given
    QueueRequests m_requests;
    QTimer m_missingTimer; ///< a search follows what is picked after a moment
};

} // namespace vemo_client
