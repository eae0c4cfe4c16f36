#pragma once

#include "ChannelDay.h"
#include "DaySearch.h"
#include "OwnFootage.h"
#include "RecordingsTable.h"

#include <axis/DayAxis.h>

#include <QObject>
#include <QTimer>
#include <QVector>

namespace vemo_client {

/// The chosen channels and what each has of the chosen day: searched at their recorders when somebody asks, and after
/// the first time by itself when something else is picked, after a moment. GUI thread; searches run elsewhere and are
/// cancelled when the day changes.
class PlaybackDays final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PlaybackDays)

public:
    explicit PlaybackDays(QObject* parent = nullptr);

    void setAxis(const vemo_base::DayAxis& axis);
    const vemo_base::DayAxis& axis() const { return m_axis; }
    /// In their order; what is known of those that were there before stays.
    void setChannels(const QVector<ChannelRef>& channels);
    const QVector<ChannelDay>& days() const { return m_days; }
    QVector<ChannelRef> channels() const;

    void search();
    /// What was picked since the last search, and what that search did not come to.
    void searchMissing();
    /// From now on what is picked is searched by itself.
    void searchFromNowOn() { m_hasSearched = true; }
    void cancel();
    bool isSearching() const { return m_search.isRunning(); }
    bool hasSearched() const { return m_hasSearched; }

    void choose(const QVector<RecordingsTable::Place>& places);

    /// A recorder behind a bare replay address has no list of recordings.
    static bool isDirect(const ChannelRef& channel);

signals:
    /// Of one of the days more or less is known.
    void signalDayChanged(const vemo_client::ChannelDay& day);
    /// Anything.
    void signalChanged();
    /// Nothing is searched any more.
    void signalFinished();

private:
    ChannelDay* dayOf(const ChannelRef& channel);
    void searchFor(const QVector<ChannelRef>& channels);
    void takeFound(const ChannelRef& channel, const QList<vms_sdk::VideoRecording>& recordings);
    void takeFailed(const ChannelRef& channel, const vms_sdk::Error& error);
    void takeOwned();

    vemo_base::DayAxis m_axis;
    QVector<ChannelDay> m_days;
    bool m_hasSearched = false;
    DaySearch m_search;
    QVector<ChannelRef> m_searched; ///< what m_search was given
    OwnFootage m_own;
    QTimer m_missingTimer;
};

} // namespace vemo_client
