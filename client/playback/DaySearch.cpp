#include "DaySearch.h"

#include "cli/RecordingSearch.h"

#include <algorithm>

namespace vemo_client {

using vemo_base::TimeSpan;

namespace {

/// A recorder answers one search after another anyway; more would only wait for their time-out.
constexpr int atOnce = 3;

QList<vms_sdk::VideoRecording> inOrder(QList<vms_sdk::VideoRecording> recordings)
{
    std::stable_sort(
        recordings.begin(), recordings.end(),
        [](const vms_sdk::VideoRecording& a, const vms_sdk::VideoRecording& b) { return a.begin < b.begin; });
    const auto isSame = [](const vms_sdk::VideoRecording& a, const vms_sdk::VideoRecording& b) {
        return a.fileName == b.fileName && a.begin == b.begin && a.end == b.end;
    };
    recordings.erase(std::unique(recordings.begin(), recordings.end(), isSame), recordings.end());
    return recordings;
}

} // namespace

DaySearch::DaySearch(QObject* parent)
    : QObject(parent)
{}

DaySearch::~DaySearch() = default;

void DaySearch::start(const QVector<ChannelRef>& channels, const TimeSpan& span)
{
    cancel();
    m_channels = channels;
    m_span = span;
    m_next = 0;
    m_left = channels.size();
    for (int i = 0; i < atOnce; ++i)
        startNext();
}

void DaySearch::cancel()
{
    m_left = 0;
    m_next = m_channels.size();
    const QVector<RecordingSearch*> running = std::move(m_running);
    m_running.clear();
    for (RecordingSearch* search : running) {
        search->disconnect(this);
        delete search; // cancels its request
    }
}

void DaySearch::startNext()
{
    if (m_next >= m_channels.size())
        return;
    const int index = m_next++;
    const ChannelRef& channel = m_channels.at(index);
    auto* search = new RecordingSearch(
        channel.devId, channel.channelNo,
        Span{QDateTime::fromMSecsSinceEpoch(m_span.beginMs), QDateTime::fromMSecsSinceEpoch(m_span.endMs)}, this);
    m_running.append(search);
    connect(search, &RecordingSearch::signalFinished, this, [this, search, index] { take(search, index); });
    search->start();
}

void DaySearch::take(RecordingSearch* search, int index)
{
    m_running.removeOne(search);
    search->deleteLater(); // this runs in its signal
    --m_left;
    startNext();
    const bool isLast = m_left == 0;
    if (search->error())
        emit signalFailed(index, search->error());
    else
        emit signalFound(index, inOrder(search->recordings()));
    // A receiver may have begun another search meanwhile.
    if (isLast && m_left == 0)
        emit signalFinished();
}

} // namespace vemo_client
