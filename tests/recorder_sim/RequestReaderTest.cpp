#include "net/RequestReader.h"

#include <gtest/gtest.h>

using namespace recorder_sim;
using namespace std::string_literals;

namespace {

std::string described(const TextRequest& request)
{
    return request.method + " " + request.target + " " + std::string(request.header("cseq")) + " " + request.body;
}

/// All requests of a byte stream that comes in two pieces.
std::vector<std::string> readAll(const std::string& bytes, std::size_t split, bool& failed)
{
    RequestReader reader;
    std::vector<std::string> out;
    failed = false;
    for (const std::string& part : {bytes.substr(0, split), bytes.substr(split)}) {
        reader.feed(part.data(), part.size());
        TextRequest request;
        RequestReader::State state;
        while ((state = reader.next(request)) == RequestReader::State::Request)
            out.push_back(described(request));
        failed = failed || state == RequestReader::State::Failed;
    }
    return out;
}

} // namespace

TEST(RequestReader, readsRequestsBetweenInterleavedFramesAtEverySplit)
{
    const std::string bytes = "OPTIONS * RTSP/1.0\r\nCSeq: 1\r\n\r\n"s + "$\1\0\5abcde"s +
                              "SET_PARAMETER rtsp://h/ RTSP/1.0\r\ncseq:2\r\nContent-Length: 4\r\n\r\n$\r\n\r"s +
                              "$\0\0\0"s + "\r\nPLAY x RTSP/1.0\r\nCSEQ:  3 \r\n\r\n";
    const std::vector<std::string> wanted = {"OPTIONS * 1 ", "SET_PARAMETER rtsp://h/ 2 $\r\n\r", "PLAY x 3 "};
    for (std::size_t split = 0; split <= bytes.size(); ++split) {
        bool failed = false;
        ASSERT_EQ(readAll(bytes, split, failed), wanted) << "split at " << split;
        ASSERT_FALSE(failed);
    }
}

TEST(RequestReader, endsAtItsLimits)
{
    std::string manyHeaders = "GET / HTTP/1.1\r\n";
    for (int i = 0; i < 200; ++i)
        manyHeaders += "a: b\r\n";
    const struct
    {
        const char* what;
        std::string bytes;
    } rows[] = {
        {"an endless line", std::string(70'000, 'a')},
        {"too many headers", manyHeaders + "\r\n"},
        {"a huge body", "GET / HTTP/1.1\r\nContent-Length: 99999999999\r\n\r\n"},
        {"a negative length", "GET / HTTP/1.1\r\nContent-Length: -1\r\n\r\n"},
        {"no request line", "GET\r\n\r\n"},
        {"a header without colon", "GET / HTTP/1.1\r\nabc\r\n\r\n"},
    };
    for (const auto& row : rows) {
        bool failed = false;
        EXPECT_TRUE(readAll(row.bytes, row.bytes.size() / 2, failed).empty()) << row.what;
        EXPECT_TRUE(failed) << row.what;
    }
}

TEST(RequestReader, findsQuotedParameters)
{
    EXPECT_EQ(parameterValue("a=\"x, y\", B = z", "b", ','), "z");
    EXPECT_EQ(parameterValue("a=\"x, y\", B = z", "a", ','), "x, y");
    EXPECT_EQ(parameterValue("RTP/AVP/TCP;unicast;interleaved=0-1", "interleaved", ';'), "0-1");
    EXPECT_EQ(parameterValue("abc", "a", ','), "");
}
