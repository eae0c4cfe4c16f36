#include "RtspReader.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

using namespace vms_sdk::rtsp;

namespace {

/// Feeds `bytes` in pieces: the first of `first` bytes, then `step` bytes each.
std::vector<std::string> feed(const std::string& bytes, std::size_t first, std::size_t step)
{
    RtspReader reader;
    std::vector<std::string> events;
    std::size_t at = 0;
    std::size_t size = first;
    while (true) {
        switch (reader.next()) {
        case RtspReader::Event::Packet:
            events.push_back("packet " + std::to_string(reader.channel()) + ' ' +
                             std::string(reinterpret_cast<const char*>(reader.packet()), reader.packetBytes()));
            continue;
        case RtspReader::Event::Message: {
            const RtspMessage message = reader.takeMessage();
            std::string text = message.isResponse() ? std::to_string(message.status) : message.method.toStdString();
            for (const auto& header : message.headers)
                text += '|' + header.first.toStdString() + '=' + header.second.toStdString();
            events.push_back(text + '|' + message.body.toStdString());
            continue;
        }
        case RtspReader::Event::Failed:
            events.push_back("failed " + std::to_string(static_cast<int>(reader.failure())));
            return events;
        case RtspReader::Event::NeedMore:
            break;
        }
        if (at == bytes.size())
            return events;
        const std::size_t part = std::min({size, bytes.size() - at, reader.writeRoom()});
        std::memcpy(reader.writeArea(), bytes.data() + at, part);
        reader.commit(part);
        at += part;
        size = step;
    }
}

std::string failure(RtspReader::Failure failure)
{
    return "failed " + std::to_string(static_cast<int>(failure));
}

} // namespace

TEST(RtspReader, readsTheSameAtEverySplitPoint)
{
    const std::string stream =
        "RTSP/1.0 200 OK\r\nCSeq: 1\r\nContent-Length: 5\r\n\r\nv=0\r\n"
        "$\x01" +
        std::string("\0\x03", 2) + "abc" +
        "\r\n\r\n"
        "RTSP/1.0 401 Unauthorized\nCSeq:2\nWWW-Authenticate: Digest realm=\"a\",\n  nonce=\"b\"\n\n"
        "$" +
        std::string("\0\0\0", 3) +
        "ANNOUNCE rtsp://h/s RTSP/1.0\r\nCSeq: 7\r\n\r\n"
        "$" +
        std::string("\0\0\x02", 3) + "$$" + "RTSP/1.0 204 No Content\r\n\r\n";
    const std::vector<std::string> expected = {
        "200|CSeq=1|Content-Length=5|v=0\r\n",
        "packet 1 abc",
        "401|CSeq=2|WWW-Authenticate=Digest realm=\"a\", nonce=\"b\"|",
        "packet 0 ",
        "ANNOUNCE|CSeq=7|",
        "packet 0 $$",
        "204|",
    };
    for (std::size_t first = 1; first <= stream.size(); ++first)
        ASSERT_EQ(feed(stream, first, stream.size()), expected) << "first piece of " << first << " bytes";
    for (std::size_t step = 1; step <= 7; ++step)
        ASSERT_EQ(feed(stream, step, step), expected) << "pieces of " << step << " bytes";
}

TEST(RtspReader, keepsPacketsWholeWhereTheBufferTurnsOver)
{
    std::string stream;
    std::vector<std::string> expected;
    for (int i = 0; i < 40; ++i) {
        const std::string payload(static_cast<std::size_t>(65'535 - i * 97), static_cast<char>('a' + i % 26));
        stream +=
            std::string("$\x02") + static_cast<char>(payload.size() >> 8) + static_cast<char>(payload.size()) + payload;
        expected.push_back("packet 2 " + payload);
    }
    for (const std::size_t step : {1'000u, 65'539u, 131'071u, 600'000u})
        ASSERT_TRUE(feed(stream, step, step) == expected) << "pieces of " << step << " bytes";
}

TEST(RtspReader, refusesWhatIsBeyondItsLimits)
{
    using Failure = RtspReader::Failure;
    const std::string head = "RTSP/1.0 200 OK\r\n";
    std::string manyHeaders = head;
    for (int i = 0; i <= RtspReader::maxHeaders; ++i)
        manyHeaders += "X-" + std::to_string(i) + ": y\r\n";
    std::string folded = head + "X: y\r\n";
    for (int i = 0; i < 3; ++i)
        folded += ' ' + std::string(4'000, 'z') + "\r\n";
    const struct
    {
        std::string bytes;
        std::string expected;
    } rows[] = {
        {std::string(9'000, 'A'), failure(Failure::LineTooLong)},
        {head + std::string(9'000, 'A'), failure(Failure::LineTooLong)},
        {folded, failure(Failure::LineTooLong)},
        {manyHeaders, failure(Failure::TooManyHeaders)},
        {head + "Content-Length: 131073\r\n\r\n", failure(Failure::BodyTooLong)},
        {head + "Content-Length: 99999999999999999999\r\n\r\n", failure(Failure::BadContentLength)},
        {head + "Content-Length: -1\r\n\r\n", failure(Failure::BadContentLength)},
        {head + "Content-Length: ten\r\n\r\n", failure(Failure::BadContentLength)},
        {head + "no colon\r\n", failure(Failure::BadHeader)},
        {head + " continued\r\n", failure(Failure::BadHeader)},
        {"HTTP/1.1 200 OK\r\n\r\n", failure(Failure::BadStartLine)},
        {"RTSP/1.0 20x OK\r\n\r\n", failure(Failure::BadStartLine)},
        {"RTSP/1.0 999 OK\r\n\r\n", failure(Failure::BadStartLine)},
        {std::string("\0\0\0\n", 4), failure(Failure::BadStartLine)},
    };
    for (const auto& row : rows) {
        for (const std::size_t step : {std::size_t{1}, row.bytes.size()}) {
            const std::vector<std::string> events = feed(row.bytes, step, step);
            ASSERT_EQ(events, std::vector<std::string>{row.expected}) << row.bytes.substr(0, 80);
        }
    }
}
