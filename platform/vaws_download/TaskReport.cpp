#include "TaskReport.h"

#include "ClockText.h"

#include <nlohmann/json.hpp>

namespace vaws {
namespace {

std::string dumped(const nlohmann::ordered_json& json)
{
    return json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

} // namespace

std::string TaskReport::json() const
{
    nlohmann::ordered_json gapList = nlohmann::ordered_json::array();
    for (const Gap& gap : gaps)
        gapList.push_back(
            {{"begin", isoUtcText(gap.beginNs)}, {"end", isoUtcText(gap.endNs)}, {"cause", gapCauseText(gap.cause)}});
    return dumped({
        {"task", task},
        {"status", status},
        {"event", event},
        {"error", error},
        {"path", path},
        {"files", files},
        {"bytes", bytes},
        {"begin", isoUtcText(beginNs)},
        {"end", isoUtcText(endNs)},
        {"asked_begin", isoUtcText(askedBeginNs)},
        {"asked_end", isoUtcText(askedEndNs)},
        {"progress", progress},
        {"frames", frames},
        {"lost", lost},
        {"gaps", gapList},
        {"video", video},
        {"audio", audio},
        {"width", width},
        {"height", height},
        {"verified", verified},
        {"errno", errnoValue},
    });
}

std::string repairJson(const std::vector<RepairRecord>& records)
{
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const RepairRecord& record : records) {
        list.push_back({{"task", record.task},
                        {"path", record.path},
                        {"outcome", repairOutcomeText(record.outcome)},
                        {"bytes", record.bytes},
                        {"begin", isoUtcText(record.beginNs)},
                        {"end", isoUtcText(record.endNs)},
                        {"asked_end", isoUtcText(record.askedEndNs)},
                        {"error", record.error}});
    }
    return dumped(list);
}

} // namespace vaws
