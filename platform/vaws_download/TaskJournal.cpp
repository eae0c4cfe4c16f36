#include "TaskJournal.h"

#include "JsonText.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

namespace vaws {
namespace {

constexpr const char* journalSuffix = ".vjournal";
constexpr int journalVersion = 1;
constexpr std::size_t maxJournalBytes = 64 * 1024;
constexpr std::size_t maxJournals = 100'000;

std::string hex(std::uint64_t value)
{
    std::array<char, 20> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(value));
    return text.data();
}

/// Takes a journal's members as they are read, without making the library's objects of them (see JsonText).
class JournalReader final : public nlohmann::json_sax<nlohmann::json>
{
public:
    explicit JournalReader(JournalEntry& entry)
        : m_entry(entry)
    {}

    /// All that an entry needs came, each of its kind.
    bool complete() const { return m_version == journalVersion && m_seen == (1u << std::size(names)) - 1; }

    bool null() override { return false; }
    bool boolean(bool value) override
    {
        if (m_key == "whole_seconds")
            m_entry.wholeSeconds = value;
        return true;
    }
    bool number_integer(number_integer_t value) override { return take(m_key, value); }
    bool number_unsigned(number_unsigned_t value) override { return take(m_key, value); }
    bool number_float(number_float_t, const string_t&) override { return false; }
    bool string(string_t& value) override
    {
        for (const auto& [name, text] :
             {std::pair{"task", &m_entry.task}, std::pair{"path", &m_entry.path},
              std::pair{"channel", &m_entry.channelName}, std::pair{"recorder", &m_entry.deviceName}}) {
            if (m_key == name) {
                *text = value;
                return see();
            }
        }
        return true; // of a newer program
    }
    bool binary(binary_t&) override { return false; }
    bool start_object(std::size_t) override { return ++m_depth == 1; }
    bool key(string_t& value) override
    {
        m_key = value;
        return true;
    }
    bool end_object() override { return true; }
    bool start_array(std::size_t) override { return false; }
    bool end_array() override { return true; }
    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override { return false; }

private:
    static constexpr const char* names[] = {"version", "task",        "path",      "token",   "volume",
                                            "file",    "asked_begin", "asked_end", "channel", "recorder"};

    bool see()
    {
        for (std::size_t index = 0; index < std::size(names); ++index) {
            if (m_key == names[index])
                m_seen |= 1u << index;
        }
        return true;
    }

    template <class Number>
    bool take(const std::string& name, Number value)
    {
        if (name == "version")
            m_version = static_cast<std::int64_t>(value);
        else if (name == "token")
            m_entry.token = static_cast<std::uint64_t>(value);
        else if (name == "volume")
            m_entry.identity.volume = static_cast<std::uint64_t>(value);
        else if (name == "file")
            m_entry.identity.number = static_cast<std::uint64_t>(value);
        else if (name == "asked_begin")
            m_entry.askedBeginNs = static_cast<std::int64_t>(value);
        else if (name == "asked_end")
            m_entry.askedEndNs = static_cast<std::int64_t>(value);
        else
            return true; // of a newer program
        return see();
    }

    JournalEntry& m_entry;
    std::string m_key;
    std::int64_t m_version = 0;
    unsigned m_seen = 0; ///< a bit for each of `names`
    int m_depth = 0;
};

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
    return replaceSmallFile(m_path, JsonText()
                                        .number("version", journalVersion)
                                        .text("task", entry.task)
                                        .text("path", entry.path)
                                        .number("token", entry.token)
                                        .number("volume", entry.identity.volume)
                                        .number("file", entry.identity.number)
                                        .number("asked_begin", entry.askedBeginNs)
                                        .number("asked_end", entry.askedEndNs)
                                        .flag("whole_seconds", entry.wholeSeconds)
                                        .text("channel", entry.channelName)
                                        .text("recorder", entry.deviceName)
                                        .object());
}

int TaskJournal::addIdentity(const FileIdentity& identity)
{
    const std::string json = JsonText().number("volume", identity.volume).number("file", identity.number).object();
    return appendToSmallFile(m_path, '\n' + json + '\n');
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
    JournalReader reader(entry);
    if (!nlohmann::json::sax_parse(text.substr(0, lineEnd), &reader) || !reader.complete())
        return false;
    if (lineEnd != std::string::npos) {
        JournalEntry known;
        JournalReader added(known);
        if (nlohmann::json::sax_parse(text.substr(lineEnd), &added))
            entry.identity = known.identity;
    }
    return !entry.path.empty();
}

std::vector<TaskJournal::Left> TaskJournal::leftIn(const std::filesystem::path& folder)
{
    std::vector<Left> found;
    std::error_code error;
    for (const std::filesystem::path& path : entriesOf(folder, maxJournals)) {
        if (path.extension() == ".part" && path.stem().extension() == journalSuffix) {
            std::error_code ignored;
            std::filesystem::remove(path, ignored);
            continue;
        }
        if (path.extension() != journalSuffix || !std::filesystem::is_regular_file(path, error))
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
