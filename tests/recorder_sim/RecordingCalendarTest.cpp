#include "media/RecordingCalendar.h"

#include "media/MediaLoop.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <limits>

using namespace recorder_sim;

namespace {

const QTimeZone berlin("Europe/Berlin");
constexpr TimeSpan always{0, std::numeric_limits<std::int64_t>::max()};

std::int64_t ns(const char* local, const QTimeZone& zone = berlin)
{
    const QDateTime time = QDateTime::fromString(QLatin1String(local), Qt::ISODate);
    return QDateTime(time.date(), time.time(), zone).toMSecsSinceEpoch() * 1'000'000;
}

std::int64_t recordedNs(const RecordingCalendar& calendar)
{
    std::int64_t sum = 0;
    for (const TimeSpan& segment : calendar.segments())
        sum += segment.endNs - segment.beginNs;
    return sum;
}

bool coveredWhole(const RecordingCalendar& calendar, std::int64_t begin, std::int64_t end)
{
    for (const TimeSpan& segment : calendar.segments()) {
        if (segment.beginNs <= begin && segment.endNs >= end)
            return true;
    }
    return false;
}

} // namespace

TEST(RecordingCalendar, keepsItsPromisesOnEveryChannelAndDay)
{
    for (int channel = 1; channel <= 64; ++channel) {
        // Two weeks over the night in which summer time begins.
        const RecordingCalendar calendar(QDate(2026, 3, 23), 14, berlin, channel);
        std::int64_t before = std::numeric_limits<std::int64_t>::min();
        for (const TimeSpan& segment : calendar.segments()) {
            ASSERT_LT(before, segment.beginNs) << "segments in order, a gap between them";
            ASSERT_LT(segment.beginNs, segment.endNs);
            ASSERT_EQ((segment.endNs - segment.beginNs) % MediaLoop::gopNs, 0) << "a whole number of GOPs";
            before = segment.endNs;
        }
        EXPECT_EQ(calendar.whole().beginNs, ns("2026-03-23T00:00:00"));
        EXPECT_EQ(calendar.whole().endNs, ns("2026-04-06T00:00:00"));
        const bool has830 = channel == 1;
        const bool has840 = channel == 2;
        EXPECT_EQ(coveredWhole(calendar, ns("2026-03-29T08:00:00"), ns("2026-03-29T09:00:00")), !has830 && !has840);
        EXPECT_EQ(coveredWhole(calendar, ns("2026-03-29T08:29:59"), ns("2026-03-29T08:30:01")), !has830);
        EXPECT_EQ(coveredWhole(calendar, ns("2026-03-29T08:39:59"), ns("2026-03-29T08:40:01")), !has840);
        EXPECT_TRUE(coveredWhole(calendar, ns("2026-03-29T01:00:00"), ns("2026-03-29T04:00:00")))
            << "the night of the change";
    }
}

TEST(RecordingCalendar, daysHaveTheHoursOfTheirZone)
{
    const struct
    {
        const char* what;
        QDate day;
        int hours;
    } rows[] = {
        {"a plain day", QDate(2026, 1, 10), 24},
        {"summer time begins", QDate(2026, 3, 29), 23},
        {"summer time ends", QDate(2026, 10, 25), 25},
    };
    const std::int64_t gaps = 24 * 3600 * nsPerSecond - recordedNs(RecordingCalendar(rows[0].day, 1, berlin, 3));
    EXPECT_GT(gaps, 0);
    for (const auto& row : rows) {
        const RecordingCalendar calendar(row.day, 1, berlin, 3);
        EXPECT_EQ(recordedNs(calendar) + gaps, row.hours * 3600 * nsPerSecond) << row.what;
    }
}

TEST(RecordingCalendar, spansAreCutAtAlarms)
{
    const RecordingCalendar calendar(QDate(2026, 1, 10), 1, berlin, 1);
    const std::vector<RecordedSpan> spans = calendar.spans({ns("2026-01-10T08:16:00"), ns("2026-01-10T08:31:00")});
    ASSERT_EQ(spans.size(), 3u);
    EXPECT_TRUE(spans[0].alarm);
    EXPECT_EQ(spans[0].span.beginNs, ns("2026-01-10T08:15:00"));
    EXPECT_EQ(spans[1].span.beginNs, ns("2026-01-10T08:20:00"));
    EXPECT_EQ(spans[1].span.endNs, ns("2026-01-10T08:30:00"));
    EXPECT_EQ(spans[2].span.beginNs, ns("2026-01-10T08:30:20"));

    std::int64_t sum = 0;
    for (const RecordedSpan& span : calendar.spans(always))
        sum += span.span.endNs - span.span.beginNs;
    EXPECT_EQ(sum, recordedNs(calendar)) << "the spans are the segments, each moment once";
}
