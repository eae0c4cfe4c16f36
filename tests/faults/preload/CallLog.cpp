#include "CallLog.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace faults {
namespace {

struct [[gnu::packed]] Record
{
    std::uint32_t magic = 0x474c4656u;
    std::uint32_t call = 0;
    std::uint64_t number = 0;
    std::uint64_t beganNs = 0;
    std::uint64_t timeNs = 0;
    std::uint64_t inode = 0;
    std::uint32_t flags = 0;
    std::int64_t offset = 0;
    std::uint64_t length = 0;
    std::uint16_t pathBytes = 0;
    std::uint16_t secondPathBytes = 0;
    std::uint32_t dataBytes = 0;
};

// System calls straight away: the wrappers of the C library are the interposed ones here.
int openForAppending(const std::string& path)
{
    if (path.empty()) {
        return -1;
    }
    const auto file = syscall(SYS_openat, AT_FDCWD, path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0) {
        std::fprintf(stderr, "vemo_faults: cannot open %s\n", path.c_str());
        std::_Exit(99);
    }
    return static_cast<int>(file);
}

} // namespace

std::uint64_t monotonicNs()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000u + static_cast<std::uint64_t>(now.tv_nsec);
}

CallLog& CallLog::instance()
{
    static auto* log = new CallLog;
    return *log;
}

CallLog::CallLog()
    : m_traceFile(openForAppending(FaultPlan::instance().tracePath()))
    , m_logFile(openForAppending(FaultPlan::instance().logPath()))
{}

void CallLog::trace(const Decision& decision, Call call, const std::string& path, std::int64_t offset,
                    std::uint64_t length)
{
    if (m_traceFile < 0) {
        return;
    }
    char line[4500];
    const int size = std::snprintf(line, sizeof(line), "%llu\t%s\t%llu\t%.4096s\t%lld\t%llu\n",
                                   static_cast<unsigned long long>(decision.number), nameOf(call),
                                   static_cast<unsigned long long>(monotonicNs()), path.c_str(),
                                   static_cast<long long>(offset), static_cast<unsigned long long>(length));
    (void)syscall(SYS_write, m_traceFile, line, static_cast<std::size_t>(size));
}

void CallLog::note(const char* text)
{
    if (m_traceFile < 0) {
        return;
    }
    char line[200];
    const int size = std::snprintf(line, sizeof(line), "0\t%s\t%llu\t\t0\t0\n", text,
                                   static_cast<unsigned long long>(monotonicNs()));
    (void)syscall(SYS_write, m_traceFile, line, static_cast<std::size_t>(size));
}

void CallLog::write(const LoggedCall& entry)
{
    if (m_logFile < 0) {
        return;
    }
    Record record;
    record.call = static_cast<std::uint32_t>(entry.call);
    record.number = entry.number;
    record.beganNs = entry.beganNs;
    record.timeNs = monotonicNs();
    record.inode = entry.inode;
    record.flags = (entry.isFolder ? 1u : 0u) | (entry.created ? 2u : 0u) | (entry.truncated ? 4u : 0u);
    record.offset = entry.offset;
    record.length = entry.length;
    record.pathBytes = static_cast<std::uint16_t>(entry.path.size());
    record.secondPathBytes = static_cast<std::uint16_t>(entry.secondPath.size());
    record.dataBytes = entry.data ? static_cast<std::uint32_t>(entry.length) : 0;
    iovec parts[4] = {{&record, sizeof(record)},
                      {const_cast<char*>(entry.path.data()), entry.path.size()},
                      {const_cast<char*>(entry.secondPath.data()), entry.secondPath.size()},
                      {const_cast<void*>(entry.data), record.dataBytes}};
    (void)syscall(SYS_writev, m_logFile, parts, 4);
}

} // namespace faults
