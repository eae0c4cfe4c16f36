// P0, the floor under every download: the bytes of the stream read from the socket and written to a file, nothing else.
// usage: p0_sink HOST PORT PATH USER PASSWORD_FILE RANGE OUT BYTES [sync]
// OUT "-" discards; with "sync" the bytes are on the disk at the end, as those of a finished download. Prints one JSON
// line. platform file: measuring runs on Linux.
#include "RtspProbe.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    const bool isSynced = argc == 10 && std::strcmp(argv[9], "sync") == 0;
    if (argc != 9 && !isSynced) {
        std::fprintf(stderr, "usage: p0_sink HOST PORT PATH USER PASSWORD_FILE RANGE OUT BYTES [sync]\n");
        return 2;
    }
    RtspProbe::Target target;
    target.host = argv[1];
    target.port = static_cast<std::uint16_t>(std::atoi(argv[2]));
    target.path = argv[3];
    target.user = argv[4];
    std::ifstream(argv[5]) >> target.password;
    target.range = argv[6];
    const std::string out = argv[7];
    const long long limitBytes = std::atoll(argv[8]);

    RtspProbe probe;
    const auto begin = std::chrono::steady_clock::now();
    if (!probe.play(target)) {
        std::fprintf(stderr, "p0_sink: %s\n", probe.error().c_str());
        return 1;
    }
    const int file = out == "-" ? -1 : ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    std::vector<char> buffer(1024 * 1024);
    long long total = 0;
    while (limitBytes == 0 || total < limitBytes) {
        const auto got = ::recv(probe.socket(), buffer.data(), buffer.size(), 0);
        if (got <= 0)
            break;
        for (ssize_t done = 0; file >= 0 && done < got;) {
            const auto wrote = ::write(file, buffer.data() + done, static_cast<std::size_t>(got - done));
            if (wrote <= 0) {
                std::perror("write");
                return 1;
            }
            done += wrote;
        }
        total += got;
    }
    if (isSynced && ::fdatasync(file) != 0) {
        std::perror("fdatasync");
        return 1;
    }
    if (file >= 0)
        ::close(file);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto cpu = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
    };
    std::printf("{\"bytes\": %lld, \"seconds\": %.4f, \"cpu\": %.4f}\n", total, seconds.count(),
                cpu(usage.ru_utime) + cpu(usage.ru_stime));
    return 0;
}
