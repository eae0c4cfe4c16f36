#include "CutList.h"

#include "ClockText.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace vaws {
namespace {

constexpr std::size_t maxTextBytes = 16u * 1024 * 1024;
constexpr std::size_t maxRecords = 100'000;
constexpr std::size_t maxPathBytes = 4096;

std::string textOf(const nlohmann::json& object, const char* name)
{
    const auto found = object.find(name);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

bool timeOf(const nlohmann::json& object, const char* name, std::int64_t& timeNs)
{
    return parseClockText(textOf(object, name), timeNs);
}

/// Deep nesting is refused while it is read; a list needs three levels.
bool parseShallow(const std::string& text, nlohmann::json& json)
{
    bool tooDeep = false;
    const auto watch = [&](int depth, nlohmann::json::parse_event_t, nlohmann::json&) {
        tooDeep = tooDeep || depth > 8;
        return !tooDeep;
    };
    json = nlohmann::json::parse(text, watch, false);
    return !tooDeep && json.is_object();
}

} // namespace

bool CutList::parse(const std::string& text, std::string& error)
{
    *this = CutList();
    nlohmann::json json;
    if (text.size() > maxTextBytes || !parseShallow(text, json)) {
        error = "The list of files to cut is not readable JSON.";
        return false;
    }
    if (!timeOf(json, "begin_time", beginNs) || !timeOf(json, "end_time", endNs) || endNs <= beginNs) {
        error = "The list of files to cut has no begin and end in order.";
        return false;
    }
    const auto list = json.find("records");
    if (list == json.end())
        return true;
    if (!list->is_array() || list->size() > maxRecords) {
        error = "The list of files to cut is not a list, or longer than " + std::to_string(maxRecords) + " files.";
        return false;
    }
    for (const nlohmann::json& item : *list) {
        CutRecord record;
        if (item.is_object())
            record.path = textOf(item, "file_path");
        if (record.path.empty() || record.path.size() > maxPathBytes || record.path.find('\0') != std::string::npos ||
            !timeOf(item, "begin_time", record.beginNs) || !timeOf(item, "end_time", record.endNs)) {
            error = "The list of files to cut has an entry without file, begin or end.";
            return false;
        }
        records.push_back(std::move(record));
    }
    std::stable_sort(records.begin(), records.end(),
                     [](const CutRecord& one, const CutRecord& other) { return one.beginNs < other.beginNs; });
    return true;
}

} // namespace vaws
