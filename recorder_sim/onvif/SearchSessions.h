#pragma once

#include <QString>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <vector>

namespace recorder_sim {

/// One result of a search: a recording, or an event of one of its tracks or of its alarm.
struct SearchItem
{
    int channel = 0;
    std::int64_t utcNs = 0;
    int track = -1; ///< of recordingTracks; -1 for an alarm
    bool value = false;
    bool startState = false;
};

/// The searches that clients have begun and not ended. A search is forgotten when nobody asked for it during its
/// keep-alive time, and the oldest one when there are too many. Safe from any thread.
class SearchSessions final
{
public:
    enum class Kind { Recordings, Events };

    struct Page
    {
        std::vector<SearchItem> items;
        bool completed = false;
    };

    QString begin(Kind kind, std::vector<SearchItem> items, std::int64_t keepAliveMs);
    /// The next results, `max` at most. False when there is no such search of that kind.
    bool take(const QString& token, Kind kind, std::size_t max, Page& page);
    bool end(const QString& token);
    /// How often this search was asked for results, the present time included.
    int asked(const QString& token);

private:
    using Clock = std::chrono::steady_clock;

    struct Search
    {
        Kind kind = Kind::Recordings;
        std::vector<SearchItem> items;
        std::size_t taken = 0;
        int asked = 0;
        std::chrono::milliseconds keepAlive{0};
        Clock::time_point lastUsed;
    };

    void forgetOld();

    std::mutex m_mutex;
    std::map<QString, Search> m_searches; ///< under m_mutex
    unsigned m_count = 0;                 ///< under m_mutex
};

} // namespace recorder_sim
