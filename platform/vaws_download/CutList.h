#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vaws {

/// A local recording file and the span that it is said to hold, UTC in ns.
struct CutRecord
{
    std::string path; ///< UTF-8
    std::int64_t beginNs = 0;
    std::int64_t endNs = 0;
};

/// What to cut out of local files, read from JSON: {"begin_time", "end_time", "play_time", "records": [{"file_path",
/// "begin_time", "end_time"}]}, times "yyyyMMddhhmmss". "records" may be missing.
struct CutList
{
    std::int64_t beginNs = 0;
    std::int64_t endNs = 0;
    std::vector<CutRecord> records; ///< in the order of their begins

    /// False, with a sentence in `error`, where the text is not such a list.
    bool parse(const std::string& text, std::string& error);
};

} // namespace vaws
