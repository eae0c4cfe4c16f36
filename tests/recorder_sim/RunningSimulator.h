#pragma once

#include "Simulator.h"
#include "sink/RtspReader.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace recorder_sim {

/// A line of /samples, or the same learnt from what came over RTSP.
struct Sample
{
    int track = 0;
    std::int64_t utcNs = 0;
    bool key = false;
    std::size_t size = 0;
    std::string md5;

    bool operator==(const Sample& other) const;
};
std::ostream& operator<<(std::ostream& out, const Sample& sample);

/// What a replay gave, taken apart by the tests' own depacketizer.
struct Received
{
    std::vector<Sample> samples[2];
    std::uint8_t lastFlags[2] = {0, 0};
    std::vector<std::int64_t> discontinuities; ///< times of video units with the D bit
    std::vector<std::int64_t> sectionEnds;     ///< times of video units with the E bit
    int byes = 0;
    bool sound = true; ///< framing, sequence numbers and payloads were all right
};

/// A simulator in the test's process, started once for all tests of the program, on 2026-01-10 in UTC, password "pw".
class RunningSimulator : public testing::Test
{
protected:
    static void SetUpTestSuite();
    void SetUp() override;
    void TearDown() override;

    static std::uint16_t port(const char* which);
    static RtspReader reader(const std::string& path, const std::string& password = "pw");
    /// GET (or another method) at the control address; the body, de-chunked.
    static std::string control(const std::string& target, const std::string& method = "GET");
    static void fault(const std::string& query) { control("/fault?" + query, "POST"); }
    static std::string http(std::uint16_t port, const std::string& request);

    static std::vector<Sample> truth(int channel, const char* begin, const char* end, int track);
    /// Plays without rate control and takes apart; the times are of the form 20260110T080000Z.
    static Received replay(int channel, const std::string& begin, const std::string& end);
};

} // namespace recorder_sim
