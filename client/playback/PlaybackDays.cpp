#include "PlaybackDays.h"

#include "devices/RecorderAddress.h"

#include <BaseTools.h>
#include <DevsMgrData.h>

namespace vemo_client {

namespace {

constexpr int missingMs = 300;

} // namespace

PlaybackDays::PlaybackDays(QObject* parent)
    : QObject(parent)
{
    m_missingTimer.setSingleShot(true);
    m_missingTimer.setInterval(missingMs);
    connect(&m_missingTimer, &QTimer::timeout, this, &PlaybackDays::searchMissing);
    connect(&m_search, &DaySearch::signalFound, this,
            [this](int index, const QList<vms_sdk::VideoRecording>& recordings) {
                takeFound(m_searched.at(index), recordings);
            });
    connect(&m_search, &DaySearch::signalFailed, this,
            [this](int index, const vms_sdk::Error& error) { takeFailed(m_searched.at(index), error); });
    connect(&m_search, &DaySearch::signalFinished, this, &PlaybackDays::signalFinished);
    connect(&m_own, &OwnFootage::signalChanged, this, [this] {
        takeOwned();
        emit signalChanged();
    });
}

bool PlaybackDays::isDirect(const ChannelRef& channel)
{
    return RecorderAddress::isDirect(vemo_data::DevsMgrData::instance().devRecord(channel.devId).address);
}

void PlaybackDays::setAxis(const vemo_base::DayAxis& axis)
{
    m_search.cancel();
    m_axis = axis;
    for (ChannelDay& day : m_days) {
        day.state = ChannelDay::State::Unknown;
        day.recordings.clear();
        day.chosen.clear();
    }
    takeOwned();
    emit signalChanged();
    if (m_hasSearched)
        m_missingTimer.start();
}

void PlaybackDays::setChannels(const QVector<ChannelRef>& channels)
{
    QVector<ChannelDay> days;
    for (const ChannelRef& channel : channels) {
        const ChannelDay* known = dayOf(channel);
        ChannelDay day = known ? *known : ChannelDay();
        day.channel = channel;
        day.name = vemo_base::BaseTools::instance().getChannelName(channel.devId, channel.channelNo);
        days.append(day);
    }
    m_days = days;
    takeOwned();
    for (const ChannelDay& day : qAsConst(m_days))
        emit signalDayChanged(day);
    emit signalChanged();
    if (m_hasSearched)
        m_missingTimer.start();
}

QVector<ChannelRef> PlaybackDays::channels() const
{
    QVector<ChannelRef> channels;
    for (const ChannelDay& day : m_days)
        channels.append(day.channel);
    return channels;
}

ChannelDay* PlaybackDays::dayOf(const ChannelRef& channel)
{
    for (ChannelDay& day : m_days) {
        if (day.channel == channel)
            return &day;
    }
    return nullptr;
}

void PlaybackDays::search()
{
    searchFor(channels());
}

void PlaybackDays::searchMissing()
{
    QVector<ChannelRef> channels;
    for (const ChannelDay& day : qAsConst(m_days)) {
        if (day.state == ChannelDay::State::Unknown || day.state == ChannelDay::State::Searching)
            channels.append(day.channel);
    }
    if (!channels.isEmpty())
        searchFor(channels);
}

void PlaybackDays::searchFor(const QVector<ChannelRef>& channels)
{
    m_missingTimer.stop();
    if (channels.isEmpty() || !m_axis.isValid())
        return;
    m_hasSearched = true;
    m_own.start();
    for (const ChannelRef& channel : channels) {
        ChannelDay* day = dayOf(channel);
        day->state = ChannelDay::State::Searching;
        day->recordings.clear();
        day->chosen.clear();
    }
    m_searched = channels;
    m_search.start(channels, {m_axis.beginMs(), m_axis.endMs()});
    for (const ChannelRef& channel : channels)
        emit signalDayChanged(*dayOf(channel));
    emit signalChanged();
}

void PlaybackDays::cancel()
{
    m_search.cancel();
    for (ChannelDay& day : m_days) {
        if (day.state != ChannelDay::State::Searching)
            continue;
        day.state = ChannelDay::State::Unknown;
        emit signalDayChanged(day);
    }
    emit signalChanged();
}

void PlaybackDays::takeFound(const ChannelRef& channel, const QList<vms_sdk::VideoRecording>& recordings)
{
    ChannelDay* day = dayOf(channel);
    if (!day)
        return;
    day->state = ChannelDay::State::Found;
    day->recordings = recordings;
    emit signalDayChanged(*day);
    emit signalChanged();
}

void PlaybackDays::takeFailed(const ChannelRef& channel, const vms_sdk::Error& error)
{
    ChannelDay* day = dayOf(channel);
    if (!day)
        return;
    day->state = ChannelDay::State::Failed;
    day->error = error;
    if (isDirect(channel))
        day->error.message = tr("No list of recordings: click on a time to play, or mark a span");
    emit signalDayChanged(*day);
    emit signalChanged();
}

void PlaybackDays::takeOwned()
{
    for (ChannelDay& day : m_days)
        day.owned =
            m_own.spans(vemo_base::BaseTools::instance().formatChannelId(day.channel.devId, day.channel.channelNo),
                        {m_axis.beginMs(), m_axis.endMs()});
}

void PlaybackDays::choose(const QVector<RecordingsTable::Place>& places)
{
    for (ChannelDay& day : m_days)
        day.chosen.clear();
    for (const RecordingsTable::Place& place : places) {
        if (place.day >= 0 && place.day < m_days.size())
            m_days[place.day].chosen.insert(place.recording);
    }
}

} // namespace vemo_client
