#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace faults {

/// The calls that the preload library sees. OpenRead is an open that neither creates nor writes, Clone an ioctl that
/// shares a file's blocks; calls that copy count on the file that they write.
enum class Call : std::uint32_t {
    None = 0,
    Write = 1,
    Pwrite = 2,
    Writev = 3,
    Ftruncate = 4,
    Fsync = 5,
    Fdatasync = 6,
    SyncFileRange = 7,
    Rename = 8,
    Unlink = 9,
    Open = 10,
    OpenRead = 11,
    Mkdir = 12,
    Link = 13,
    Fallocate = 14,
    CopyFileRange = 15,
    Clone = 16,
    Futimens = 17,
    Read = 18,
};

const char* nameOf(Call call);

/// What is to happen to one call.
struct Decision
{
    std::uint64_t number = 0;      ///< of the call, from 1
    bool killBefore = false;       ///< the process dies instead of calling
    bool killAfter = false;        ///< it dies behind the (shortened) call
    bool swapBefore = false;       ///< the plan's two folders change places first
    int failWith = 0;              ///< errno, 0: the call goes through
    std::size_t shortTo = noLimit; ///< a write carries at most so many bytes

    static constexpr std::size_t noLimit = static_cast<std::size_t>(-1);
};

/// Reads from the environment, once a process, which calls count and what happens to which of them:
///
///     VEMO_FAULTS_ROOT   folders, separated by colons; only calls on paths below them count
///     VEMO_FAULTS_OPS    names separated by commas; only these calls count (default: all but openread, read)
///     VEMO_FAULTS_UPTO   n: writes of more than n bytes do not count (0: all do)
///     VEMO_FAULTS_KILL   k: SIGKILL in place of call k
///     VEMO_FAULTS_FAIL   k:ERRNO or k:ERRNO:ever
///     VEMO_FAULTS_SHORT  k:n or k:n:kill: call k, a write, carries n bytes at most; then the process dies
///     VEMO_FAULTS_SWAP   k:A:B: before call k the folders A and B change places, as when a disk is pulled and another
///     one
///                        takes its path
///     VEMO_FAULTS_TRACE  file that gets one line a counted call: number, name, monotonic ns, path, offset, length
///     VEMO_FAULTS_LOG    file that gets every counted call that went through, with its data (see CallLog)
///
/// Thread-safe after construction. A value that cannot be read ends the process with a message: a test must not run
/// without the fault that it asked for.
class FaultPlan
{
public:
    static FaultPlan& instance();

    bool isActive() const { return !m_roots.empty(); }
    bool covers(const std::string& absolutePath) const;
    bool counts(Call call, std::uint64_t length) const
    {
        return ((m_ops >> static_cast<unsigned>(call)) & 1u) != 0 && (m_upToBytes == 0 || length <= m_upToBytes);
    }
    /// Numbers a call that counts, and says what becomes of it.
    Decision decide();

    /// Lets the two folders of SWAP change places.
    void swapFolders() const;

    const std::string& tracePath() const { return m_tracePath; }
    const std::string& logPath() const { return m_logPath; }

private:
    FaultPlan();

    std::vector<std::string> m_roots;
    std::uint64_t m_ops = 0;
    std::uint64_t m_upToBytes = 0;
    std::uint64_t m_killAt = 0;
    std::uint64_t m_failAt = 0;
    int m_failWith = 0;
    bool m_failEver = false;
    std::uint64_t m_shortAt = 0;
    std::size_t m_shortTo = Decision::noLimit;
    bool m_shortKills = false;
    std::uint64_t m_swapAt = 0;
    std::string m_swapA;
    std::string m_swapB;
    std::string m_tracePath;
    std::string m_logPath;
};

} // namespace faults
