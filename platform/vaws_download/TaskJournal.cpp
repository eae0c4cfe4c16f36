#include "TaskJournal.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <system_error>

namespace vaws {
namespace {

constexpr const char* journalSuffix = ".vjournal";
constexpr int journalVersion = 1;
constexpr std::size_t maxJournalBytes = 64 * 1024;

std::string hex(std::uint64_t value)
{
    std::array<char, 20> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(value));
    return text.data();
}

} // namespace

std::filesystem::path pathFromUtf8(const std::string& text)
{
    return std::filesystem::u8path(text);
}

std::string utf8FromPath(const std::filesystem::path& path)
{
    return path.u8string();
}

TaskJournal::TaskJournal(const std::filesystem::path& folder, std::uint64_t token)
    : m_path(folder / (hex(token) + journalSuffix))
{}

int TaskJournal::write(const JournalEntry& entry)
{
    const nlohmann::json json = {
        {"version", journalVersion},
        {"task", entry.task},
        {"path", entry.path},
        {"token", entry.token},
        {"volume", entry.identity.volume},
        {"file", entry.identity.number},
        {"asked_begin", entry.askedBeginNs},
        {"asked_end", entry.askedEndNs},
        {"whole_seconds", entry.wholeSeconds},
        {"channel", entry.channelName},
        {"recorder", entry.deviceName},
    };
    return replaceSmallFile(m_path, json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

int TaskJournal::addIdentity(const FileIdentity& identity)
{
    const nlohmann::json json = {{"volume", identity.volume}, {"file", identity.number}};
    return appendToSmallFile(m_path, '\n' + json.dump() + '\n');
}

int TaskJournal::sync()
{
    const int error = syncFile(m_path);
    return error == 0 ? syncFolder(m_path.parent_path()) : error;
}

int TaskJournal::drop()
{
    std::error_code error;
    std::filesystem::remove(m_path, error);
    return error ? error.value() : 0;
}

bool TaskJournal::parse(const std::string& text, JournalEntry& entry)
{
    const std::size_t lineEnd = text.find('\n');
    const nlohmann::json json = nlohmann::json::parse(text.substr(0, lineEnd), nullptr, false);
    if (!json.is_object())
        return false;
    const nlohmann::json identity =
        nlohmann::json::parse(lineEnd == std::string::npos ? "" : text.substr(lineEnd), nullptr, false);
    try {
        if (json.at("version").get<int>() != journalVersion)
            return false;
        entry.task = json.at("task").get<std::string>();
        entry.path = json.at("path").get<std::string>();
        entry.token = json.at("token").get<std::uint64_t>();
        const nlohmann::json& known = identity.is_object() ? identity : json;
        entry.identity.volume = known.at("volume").get<std::uint64_t>();
        entry.identity.number = known.at("file").get<std::uint64_t>();
        entry.askedBeginNs = json.at("asked_begin").get<std::int64_t>();
        entry.askedEndNs = json.at("asked_end").get<std::int64_t>();
        entry.wholeSeconds = json.value("whole_seconds", false);
        entry.channelName = json.at("channel").get<std::string>();
        entry.deviceName = json.at("recorder").get<std::string>();
    } catch (const nlohmann::json::exception&) {
        return false;
    }
    return !entry.path.empty();
}

std::vector<TaskJournal::Left> TaskJournal::leftIn(const std::filesystem::path& folder)
{
    std::vector<Left> found;
    std::error_code error;
    for (std::filesystem::directory_iterator item(folder, error), end; !error && item != end; item.increment(error)) {
        const std::filesystem::path path = item->path();
        if (path.extension() == ".part" && path.stem().extension() == journalSuffix) {
            std::error_code ignored;
            std::filesystem::remove(path, ignored);
            continue;
        }
        if (path.extension() != journalSuffix || !item->is_regular_file(error))
            continue;
        Left left;
        left.journal.m_path = path;
        std::ifstream file(path, std::ios::binary);
        std::string text(maxJournalBytes, '\0');
        file.read(text.data(), static_cast<std::streamsize>(text.size()));
        text.resize(static_cast<std::size_t>(file.gcount()));
        left.readable = parse(text, left.entry);
        found.push_back(std::move(left));
    }
    return found;
}

} // namespace vaws
