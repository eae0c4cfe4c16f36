#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vaws {

/// Writes one JSON object, member by member. Of the JSON library it takes the escaping alone: the library's objects ask
/// for memory while they are destroyed, and a process that has none left would end there.
class JsonText final
{
public:
    JsonText& text(const char* key, const std::string& value) { return raw(key, quoted(value)); }
    JsonText& flag(const char* key, bool value) { return raw(key, value ? "true" : "false"); }
    template <class Number>
    JsonText& number(const char* key, Number value)
    {
        return raw(key, std::to_string(value));
    }
    /// `json` is a value that is written already.
    JsonText& raw(const char* key, const std::string& json);

    std::string object() const { return '{' + m_members + '}'; }

    /// What is no UTF-8 in it is replaced.
    static std::string quoted(const std::string& value);
    static std::string list(const std::vector<std::string>& values);

private:
    std::string m_members;
};

} // namespace vaws
