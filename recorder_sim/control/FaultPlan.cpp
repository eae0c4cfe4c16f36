#include "control/FaultPlan.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace recorder_sim {
namespace {

enum class Kind { Flag, Number, Real, Choice, NumberOrTime };

struct KnownFault
{
    const char* name;
    Kind kind;
    const char* choices; ///< with blanks around each
    const char* help;
};

constexpr KnownFault knownFaults[] = {
    {"wrong-password", Kind::Flag, "", "every login is refused"},
    {"auth-loop", Kind::Flag, "", "every request is answered with a fresh challenge, for ever"},
    {"no-replay", Kind::Flag, "", "GetReplayUri answers with a fault"},
    {"session-limit", Kind::Flag, "", "SETUP is answered with 453"},
    {"busy", Kind::Flag, "", "DESCRIBE is answered with 503"},
    {"not-found", Kind::Flag, "", "DESCRIBE is answered with 404"},
    {"redirect-loop", Kind::Flag, "", "RTSP requests are redirected to the same server, for ever"},
    {"rubbish", Kind::Flag, "", "random bytes instead of every RTSP and SOAP answer"},
    {"endless-line", Kind::Flag, "", "an answer whose first header line never ends"},
    {"many-headers", Kind::Number, "", "that many headers in every answer"},
    {"xml-bomb", Kind::Choice, " dtd entities depth attributes ",
     "SOAP answers with a DTD, nested entities, a million levels or attributes"},
    {"slow-soap", Kind::Number, "", "milliseconds before every SOAP answer"},
    {"slow-search", Kind::Number, "", "the first so many requests for search results get none"},
    {"clock-skew", Kind::Number, "", "seconds by which the device's clock is ahead"},
    {"drop-after", Kind::Number, "", "cut the connection after that many bytes of stream"},
    {"drop-kind", Kind::Choice, " rst fin silence ", "how drop-after cuts (default rst)"},
    {"stall-after", Kind::Number, "", "send no more stream after that many bytes, answer requests still"},
    {"rate", Kind::Number, "", "bytes of stream per second at most"},
    {"one-byte-a-second", Kind::Flag, "", "everything on RTSP connections and every SOAP answer comes a byte a second"},
    {"torn-packet", Kind::Number, "", "the RTP packet of that number stops half way"},
    {"wrong-length", Kind::Number, "", "the interleaved length of the packet of that number is wrong"},
    {"rtp-trap", Kind::Number, "", "every so many packets one with lying padding, extension or CSRC count"},
    {"loss", Kind::Real, "", "share of RTP packets that are left out, 0 to 1"},
    {"reorder", Kind::Number, "", "every so many RTP packets, two change places"},
    {"duplicate", Kind::Number, "", "every so many RTP packets, one comes twice"},
    {"seed", Kind::Number, "", "of the random choices of loss"},
    {"seq-start", Kind::Number, "", "first RTP sequence number"},
    {"ts-start", Kind::Number, "", "first RTP time"},
    {"clock-step", Kind::Number, "",
     "ten seconds into a range, the footage's NTP times step by so many seconds (RTP time does not)"},
    {"ext", Kind::Choice, " none first all au ",
     "replay header extension on no packet, the first, all, or each access unit's first"},
    {"sr", Kind::Choice, " media wall zero none ", "time in RTCP sender reports, or none of them (default media)"},
    {"end", Kind::Choice, " bye close silence ", "what follows the last packet of a range (default bye)"},
    {"parameter-set-change", Kind::NumberOrTime, "",
     "other parameter sets so many seconds into the range, or each day from HH:MM:SS on"},
    {"extra-gap", Kind::NumberOrTime, "",
     "10 s are missing so many seconds into the range, or each day from HH:MM:SS on"},
    {"early-end", Kind::Number, "", "the replay ends so many seconds before the asked end"},
    {"earlier-key", Kind::Number, "", "the replay begins so many key frames earlier"},
    {"offline", Kind::Number, "", "for so many seconds connections are cut and refused (ONVIF and RTSP)"},
};

const KnownFault* known(const std::string& name)
{
    const auto at = std::find_if(std::begin(knownFaults), std::end(knownFaults),
                                 [&](const KnownFault& f) { return name == f.name; });
    return at == std::end(knownFaults) ? nullptr : at;
}

bool isNumber(const std::string& text)
{
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return !text.empty() && error == std::errc() && end == text.data() + text.size();
}

bool isTime(const std::string& text)
{
    int hour = 0;
    int minute = 0;
    int second = 0;
    char rest = 0;
    return std::sscanf(text.c_str(), "%2d:%2d:%2d%c", &hour, &minute, &second, &rest) == 3 && hour < 24 &&
           minute < 60 && second < 60;
}

bool isReal(const std::string& text)
{
    char* end = nullptr;
    std::strtod(text.c_str(), &end);
    return !text.empty() && *end == '\0';
}

bool fits(const KnownFault& fault, const std::string& value)
{
    switch (fault.kind) {
    case Kind::Flag:
        return true;
    case Kind::Number:
        return isNumber(value);
    case Kind::Real:
        return isReal(value);
    case Kind::NumberOrTime:
        return isNumber(value) || isTime(value);
    case Kind::Choice:
        return !value.empty() && std::string(fault.choices).find(" " + value + " ") != std::string::npos;
    }
    return false;
}

} // namespace

std::string FaultPlan::listOfNames()
{
    std::string out;
    for (const KnownFault& fault : knownFaults) {
        std::string name = fault.name;
        if (fault.kind == Kind::Number)
            name += "=N";
        else if (fault.kind == Kind::Real)
            name += "=X";
        else if (fault.kind == Kind::NumberOrTime)
            name += "=N|HH:MM:SS";
        else if (fault.kind == Kind::Choice)
            name += "=KIND";
        name.resize(std::max<std::size_t>(name.size() + 1, 34), ' ');
        out += "  " + name + fault.help;
        if (fault.kind == Kind::Choice)
            out += " (" + std::string(fault.choices + 1, std::string(fault.choices).size() - 2) + ")";
        out += '\n';
    }
    return out;
}

bool FaultPlan::set(const Fault& fault, std::string& error)
{
    const KnownFault* kind = known(fault.name);
    if (!kind) {
        error = "unknown fault: " + fault.name;
        return false;
    }
    if (!fits(*kind, fault.value)) {
        error = "the fault " + fault.name + " does not take the value '" + fault.value + "'";
        return false;
    }
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_faults.erase(std::remove_if(m_faults.begin(), m_faults.end(),
                                  [&](const Fault& f) { return f.name == fault.name && f.channel == fault.channel; }),
                   m_faults.end());
    m_faults.push_back(fault);
    ++m_revision;
    return true;
}

bool FaultPlan::setFromArgument(const std::string& nameAndValue, std::string& error)
{
    const std::size_t equal = nameAndValue.find('=');
    Fault fault;
    fault.name = nameAndValue.substr(0, equal);
    fault.value = equal == std::string::npos ? std::string() : nameAndValue.substr(equal + 1);
    return set(fault, error);
}

void FaultPlan::clear(const std::string& name)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_faults.erase(std::remove_if(m_faults.begin(), m_faults.end(), [&](const Fault& f) { return f.name == name; }),
                   m_faults.end());
    ++m_revision;
}

void FaultPlan::reset()
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_faults.clear();
    ++m_revision;
}

std::vector<Fault> FaultPlan::all() const
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_faults;
}

const Fault* FaultPlan::find(const std::string& name, int channel) const
{
    const Fault* found = nullptr;
    for (const Fault& fault : m_faults) {
        if (fault.name != name)
            continue;
        // One for this channel goes before one for all.
        if (fault.channel == channel && channel != 0)
            return &fault;
        if (fault.channel == 0)
            found = &fault;
    }
    return found;
}

std::optional<std::string> FaultPlan::value(const std::string& name, int channel) const
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    const Fault* fault = find(name, channel);
    return fault ? std::optional<std::string>(fault->value) : std::nullopt;
}

std::optional<std::int64_t> FaultPlan::number(const std::string& name, int channel) const
{
    const std::optional<std::string> text = value(name, channel);
    if (!text || !isNumber(*text))
        return std::nullopt;
    return std::strtoll(text->c_str(), nullptr, 10);
}

std::optional<double> FaultPlan::real(const std::string& name, int channel) const
{
    const std::optional<std::string> text = value(name, channel);
    return text ? std::optional<double>(std::strtod(text->c_str(), nullptr)) : std::nullopt;
}

std::optional<std::string> FaultPlan::strike(const std::string& name, int channel)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    const Fault* found = find(name, channel);
    if (!found)
        return std::nullopt;
    const std::string value = found->value;
    Fault& fault = m_faults[static_cast<std::size_t>(found - m_faults.data())];
    if (fault.count > 0 && --fault.count == 0) {
        m_faults.erase(m_faults.begin() + (found - m_faults.data()));
        ++m_revision;
    }
    return value;
}

std::optional<std::int64_t> FaultPlan::strikeNumber(const std::string& name, int channel)
{
    const std::optional<std::string> text = strike(name, channel);
    if (!text || !isNumber(*text))
        return std::nullopt;
    return std::strtoll(text->c_str(), nullptr, 10);
}

} // namespace recorder_sim
