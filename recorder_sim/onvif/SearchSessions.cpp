#include "onvif/SearchSessions.h"

#include <algorithm>
#include <utility>

namespace recorder_sim {
namespace {

constexpr std::size_t maxSearches = 64;
constexpr std::int64_t maxKeepAliveMs = 10 * 60 * 1000;

} // namespace

void SearchSessions::forgetOld()
{
    const auto now = Clock::now();
    for (auto at = m_searches.begin(); at != m_searches.end();)
        at = now - at->second.lastUsed > at->second.keepAlive ? m_searches.erase(at) : std::next(at);
    if (m_searches.size() < maxSearches)
        return;
    m_searches.erase(std::min_element(m_searches.begin(), m_searches.end(), [](const auto& a, const auto& b) {
        return a.second.lastUsed < b.second.lastUsed;
    }));
}

QString SearchSessions::begin(Kind kind, std::vector<SearchItem> items, std::int64_t keepAliveMs)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    forgetOld();
    Search search;
    search.kind = kind;
    search.items = std::move(items);
    search.keepAlive = std::chrono::milliseconds(std::clamp<std::int64_t>(keepAliveMs, 1000, maxKeepAliveMs));
    search.lastUsed = Clock::now();
    const QString token = QStringLiteral("search_%1").arg(++m_count);
    m_searches.emplace(token, std::move(search));
    return token;
}

bool SearchSessions::take(const QString& token, Kind kind, std::size_t max, Page& page)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    forgetOld();
    const auto at = m_searches.find(token);
    if (at == m_searches.end() || at->second.kind != kind)
        return false;
    Search& search = at->second;
    search.lastUsed = Clock::now();
    const std::size_t count = std::min(max, search.items.size() - search.taken);
    const auto first = search.items.begin() + static_cast<std::ptrdiff_t>(search.taken);
    page.items.assign(first, first + static_cast<std::ptrdiff_t>(count));
    search.taken += count;
    page.completed = search.taken == search.items.size();
    return true;
}

int SearchSessions::asked(const QString& token)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    const auto at = m_searches.find(token);
    return at == m_searches.end() ? 0 : ++at->second.asked;
}

bool SearchSessions::end(const QString& token)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_searches.erase(token) > 0;
}

} // namespace recorder_sim
