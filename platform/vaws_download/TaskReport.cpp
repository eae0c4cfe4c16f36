#include "TaskReport.h"

#include "ClockText.h"
#include "JsonText.h"

namespace vaws {

std::string TaskReport::json() const
{
    std::vector<std::string> fileList;
    for (const std::string& file : files)
        fileList.push_back(JsonText::quoted(file));
    std::vector<std::string> gapList;
    for (const Gap& gap : gaps)
        gapList.push_back(JsonText()
                              .text("begin", isoUtcText(gap.beginNs))
                              .text("end", isoUtcText(gap.endNs))
                              .text("cause", gapCauseText(gap.cause))
                              .object());
    return JsonText()
        .text("task", task)
        .number("status", status)
        .number("event", event)
        .text("error", error)
        .text("path", path)
        .raw("files", JsonText::list(fileList))
        .number("bytes", bytes)
        .text("begin", isoUtcText(beginNs))
        .text("end", isoUtcText(endNs))
        .text("asked_begin", isoUtcText(askedBeginNs))
        .text("asked_end", isoUtcText(askedEndNs))
        .number("progress", progress)
        .number("frames", frames)
        .number("lost", lost)
        .raw("gaps", JsonText::list(gapList))
        .text("video", video)
        .text("audio", audio)
        .number("width", width)
        .number("height", height)
        .flag("verified", verified)
        .number("errno", errnoValue)
        .object();
}

std::string repairJson(const std::vector<RepairRecord>& records)
{
    std::vector<std::string> list;
    for (const RepairRecord& record : records) {
        list.push_back(JsonText()
                           .text("task", record.task)
                           .text("path", record.path)
                           .text("outcome", repairOutcomeText(record.outcome))
                           .number("bytes", record.bytes)
                           .text("begin", isoUtcText(record.beginNs))
                           .text("end", isoUtcText(record.endNs))
                           .text("asked_end", isoUtcText(record.askedEndNs))
                           .text("error", record.error)
                           .object());
    }
    return JsonText::list(list);
}

} // namespace vaws
