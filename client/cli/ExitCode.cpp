#include "ExitCode.h"

#include <algorithm>
#include <array>

namespace vemo_client {

ExitCode worse(ExitCode one, ExitCode other)
{
    constexpr std::array<ExitCode, 10> rising{
        ExitCode::Done,        ExitCode::Incomplete,   ExitCode::NoRecording, ExitCode::Failed, ExitCode::LimitReached,
        ExitCode::Unreachable, ExitCode::LoginRefused, ExitCode::Disk,        ExitCode::Usage,  ExitCode::Interrupted};
    const auto rank = [&rising](ExitCode code) { return std::find(rising.begin(), rising.end(), code); };
    return rank(one) < rank(other) ? other : one;
}

} // namespace vemo_client
