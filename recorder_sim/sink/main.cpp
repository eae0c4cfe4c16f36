// Reads a replay as fast as it comes, throws it away and prints the rate: the measure of what the simulated recorder
// gives.
#include "sink/RtspReader.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

int main(int argc, char** argv)
{
    if (argc < 7) {
        std::fprintf(stderr, "usage: recorder_sim_sink HOST PORT PATH USER PASSWORD_FILE CLOCK_RANGE [BYTES]\n"
                             "such as: recorder_sim_sink 127.0.0.1 8001 /replay/1 admin password "
                             "clock=20260110T084500Z-20260110T090000Z\n");
        return 2;
    }
    recorder_sim::RtspReader::Target target;
    target.host = argv[1];
    target.port = static_cast<std::uint16_t>(std::atoi(argv[2]));
    target.path = argv[3];
    target.user = argv[4];
    std::ifstream(argv[5]) >> target.password;
    const std::int64_t limit = argc > 7 ? std::atoll(argv[7]) : INT64_MAX;

    recorder_sim::RtspReader reader(target);
    const std::string headers = std::string("Require: onvif-replay\r\nRate-Control: no\r\nRange: ") + argv[6] + "\r\n";
    if (!reader.connect() || !reader.play(headers)) {
        std::fprintf(stderr, "recorder_sim_sink: %s\n", reader.error().c_str());
        return 1;
    }
    constexpr int silenceMs = 500;
    const auto begin = std::chrono::steady_clock::now();
    const std::int64_t bytes = reader.discard(limit, silenceMs);
    double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    if (bytes < limit && !reader.atEnd())
        seconds -= silenceMs / 1000.0;
    std::printf("%lld bytes in %.3f s: %.3f GB/s\n", static_cast<long long>(bytes), seconds,
                static_cast<double>(bytes) / seconds / 1e9);
    return 0;
}
