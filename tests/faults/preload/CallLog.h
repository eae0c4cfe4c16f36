#pragma once

#include "FaultPlan.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace faults {

std::uint64_t monotonicNs();

/// One call that went through, for replaying what a disk saw.
struct LoggedCall
{
    std::uint64_t beganNs = monotonicNs();
    Call call = Call::None;
    std::uint64_t number = 0;
    std::uint64_t inode = 0; ///< of the file, 0 where the call has none
    bool isFolder = false;   ///< fsync of a folder
    bool created = false;    ///< open made the file
    bool truncated = false;  ///< open emptied it
    std::int64_t offset = 0;
    std::uint64_t length = 0; ///< bytes written, or the new length for ftruncate and fallocate
    std::string path;
    std::string secondPath; ///< target of rename and link
    const void* data = nullptr;
};

/// Writes the two records that FaultPlan names, past the interposed calls, so that they survive a SIGKILL of the
/// process. The binary record, little-endian: u32 magic "VFLG", u32 call, u64 number, u64 monotonic ns of its
/// beginning and u64 of its end, u64 inode, u32 flags (1 folder, 2 created, 4 truncated), i64 offset, u64 length, u16
/// path bytes, u16 second path bytes, u32 data bytes; then the three texts. The caller serialises the calls.
class CallLog
{
public:
    static CallLog& instance();

    void trace(const Decision& decision, Call call, const std::string& path, std::int64_t offset, std::uint64_t length);
    void note(const char* text);
    void write(const LoggedCall& entry);
    bool keepsData() const { return m_logFile >= 0; }

private:
    CallLog();

    int m_traceFile = -1;
    int m_logFile = -1;
};

} // namespace faults
