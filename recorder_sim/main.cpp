#include "Options.h"
#include "Simulator.h"

#include <QCoreApplication>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <thread>

namespace {

std::atomic<bool> stopRequested{false};

void requestStop(int)
{
    stopRequested = true;
}

} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGTERM, requestStop);
    std::signal(SIGINT, requestStop);
#ifdef SIGPIPE
    // A peer that is gone shows as an error of the write, also where OpenSSL writes.
    std::signal(SIGPIPE, SIG_IGN);
#endif
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("recorder_sim"));

    recorder_sim::Options options;
    int exitCode = 0;
    if (!recorder_sim::Options::parse(QCoreApplication::arguments(), options, exitCode))
        return exitCode;
    recorder_sim::Simulator simulator(options);
    if (!simulator.start()) {
        std::fprintf(stderr, "recorder_sim: %s\n", qPrintable(simulator.error()));
        return 1;
    }
    std::printf("%s\n", simulator.addresses().constData());
    std::fflush(stdout);
    while (!stopRequested)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    return 0;
}
