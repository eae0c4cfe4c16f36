#include "FaultPlan.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace faults {
namespace {

constexpr std::array<std::pair<Call, const char*>, 18> callNames{{
    {Call::Write, "write"},
    {Call::Pwrite, "pwrite"},
    {Call::Writev, "writev"},
    {Call::Ftruncate, "ftruncate"},
    {Call::Fsync, "fsync"},
    {Call::Fdatasync, "fdatasync"},
    {Call::SyncFileRange, "sync_file_range"},
    {Call::Rename, "rename"},
    {Call::Unlink, "unlink"},
    {Call::Open, "open"},
    {Call::OpenRead, "openread"},
    {Call::Mkdir, "mkdir"},
    {Call::Link, "link"},
    {Call::Fallocate, "fallocate"},
    {Call::CopyFileRange, "copy_file_range"},
    {Call::Clone, "clone"},
    {Call::Futimens, "futimens"},
    {Call::Read, "read"},
}};

constexpr std::array<std::pair<std::string_view, int>, 6> errnoNames{{
    {"ENOSPC", ENOSPC},
    {"EIO", EIO},
    {"EROFS", EROFS},
    {"EDQUOT", EDQUOT},
    {"EACCES", EACCES},
    {"ENODEV", ENODEV},
}};

std::atomic<std::uint64_t> callCount{0};

[[noreturn]] void refuse(const char* variable, std::string_view value)
{
    std::fprintf(stderr, "vemo_faults: cannot read %s=%.*s\n", variable, static_cast<int>(value.size()), value.data());
    std::_Exit(99);
}

std::string_view environment(const char* variable)
{
    const char* value = std::getenv(variable);
    return value ? std::string_view(value) : std::string_view();
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        const auto end = text.find(separator);
        parts.push_back(text.substr(0, end));
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    }
    return parts;
}

std::uint64_t number(const char* variable, std::string_view text)
{
    std::uint64_t value = 0;
    if (text.empty() || text.size() > 18) {
        refuse(variable, text);
    }
    for (const char digit : text) {
        if (digit < '0' || digit > '9') {
            refuse(variable, text);
        }
        value = value * 10 + static_cast<std::uint64_t>(digit - '0');
    }
    return value;
}

int errnoOf(std::string_view name)
{
    for (const auto& [known, value] : errnoNames) {
        if (known == name) {
            return value;
        }
    }
    refuse("VEMO_FAULTS_FAIL", name);
}

} // namespace

const char* nameOf(Call call)
{
    for (const auto& [known, name] : callNames) {
        if (known == call) {
            return name;
        }
    }
    return "none";
}

FaultPlan& FaultPlan::instance()
{
    // Never destroyed: calls still come while the process ends.
    static auto* plan = new FaultPlan;
    return *plan;
}

FaultPlan::FaultPlan()
{
    for (const auto root : split(environment("VEMO_FAULTS_ROOT"), ':')) {
        m_roots.emplace_back(root);
    }
    const auto ops = environment("VEMO_FAULTS_OPS");
    for (const auto& [call, name] : callNames) {
        bool wanted = ops.empty() && call != Call::OpenRead && call != Call::Read;
        for (const auto op : split(ops, ',')) {
            wanted = wanted || op == name;
        }
        m_ops |= std::uint64_t{wanted} << static_cast<unsigned>(call);
    }
    if (const auto upTo = environment("VEMO_FAULTS_UPTO"); !upTo.empty()) {
        m_upToBytes = number("VEMO_FAULTS_UPTO", upTo);
    }
    if (const auto kill = environment("VEMO_FAULTS_KILL"); !kill.empty()) {
        m_killAt = number("VEMO_FAULTS_KILL", kill);
    }
    if (const auto fail = environment("VEMO_FAULTS_FAIL"); !fail.empty()) {
        const auto parts = split(fail, ':');
        if (parts.size() < 2 || parts.size() > 3 || (parts.size() == 3 && parts[2] != "ever")) {
            refuse("VEMO_FAULTS_FAIL", fail);
        }
        m_failAt = number("VEMO_FAULTS_FAIL", parts[0]);
        m_failWith = errnoOf(parts[1]);
        m_failEver = parts.size() == 3;
    }
    if (const auto cut = environment("VEMO_FAULTS_SHORT"); !cut.empty()) {
        const auto parts = split(cut, ':');
        if (parts.size() < 2 || parts.size() > 3 || (parts.size() == 3 && parts[2] != "kill")) {
            refuse("VEMO_FAULTS_SHORT", cut);
        }
        m_shortAt = number("VEMO_FAULTS_SHORT", parts[0]);
        m_shortTo = static_cast<std::size_t>(number("VEMO_FAULTS_SHORT", parts[1]));
        m_shortKills = parts.size() == 3;
    }
    if (const auto swap = environment("VEMO_FAULTS_SWAP"); !swap.empty()) {
        const auto parts = split(swap, ':');
        if (parts.size() != 3) {
            refuse("VEMO_FAULTS_SWAP", swap);
        }
        m_swapAt = number("VEMO_FAULTS_SWAP", parts[0]);
        m_swapA = parts[1];
        m_swapB = parts[2];
    }
    m_tracePath = environment("VEMO_FAULTS_TRACE");
    m_logPath = environment("VEMO_FAULTS_LOG");
}

bool FaultPlan::covers(const std::string& absolutePath) const
{
    for (const auto& root : m_roots) {
        if (absolutePath.compare(0, root.size(), root) == 0 &&
            (absolutePath.size() == root.size() || absolutePath[root.size()] == '/')) {
            return true;
        }
    }
    return false;
}

void FaultPlan::swapFolders() const
{
    const long done = syscall(SYS_renameat2, AT_FDCWD, m_swapA.c_str(), AT_FDCWD, m_swapB.c_str(), RENAME_EXCHANGE);
    if (done != 0) {
        refuse("VEMO_FAULTS_SWAP", m_swapA);
    }
}

Decision FaultPlan::decide()
{
    Decision decision;
    decision.number = ++callCount;
    decision.killBefore = decision.number == m_killAt;
    decision.swapBefore = decision.number == m_swapAt;
    if (m_failAt != 0 && (decision.number == m_failAt || (m_failEver && decision.number > m_failAt))) {
        decision.failWith = m_failWith;
    }
    if (decision.number == m_shortAt) {
        decision.shortTo = m_shortTo;
        decision.killAfter = m_shortKills;
    }
    return decision;
}

} // namespace faults
