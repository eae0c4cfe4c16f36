#include "JsonText.h"

#include <nlohmann/json.hpp>

namespace vaws {

JsonText& JsonText::raw(const char* key, const std::string& json)
{
    if (!m_members.empty())
        m_members += ',';
    m_members += quoted(key) + ':' + json;
    return *this;
}

std::string JsonText::quoted(const std::string& value)
{
    return nlohmann::json(value).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string JsonText::list(const std::vector<std::string>& values)
{
    std::string text = "[";
    for (const std::string& value : values)
        text += (text.size() > 1 ? "," : "") + value;
    return text + ']';
}

} // namespace vaws
