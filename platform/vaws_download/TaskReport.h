#pragma once

#include "MediaTypes.h"
#include "Mp4Repair.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vaws {

/// What is known of a task, as vaws_download_get_report tells it. A plain value.
struct TaskReport
{
    std::string task;
    int status = 0;
    int event = 0;
    std::string error;
    int errnoValue = 0;
    std::string path;
    std::vector<std::string> files;
    std::uint64_t bytes = 0;
    std::int64_t beginNs = 0;
    std::int64_t endNs = 0;
    std::int64_t askedBeginNs = 0;
    std::int64_t askedEndNs = 0;
    int progress = 0;
    std::uint64_t frames = 0;
    std::uint64_t lost = 0;
    std::vector<Gap> gaps;
    std::string video;
    std::string audio;
    int width = 0;
    int height = 0;
    bool verified = false;

    std::string json() const;
};

std::string repairJson(const std::vector<RepairRecord>& records);

} // namespace vaws
