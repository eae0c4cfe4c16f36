#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace recorder_sim {

/// One thing that goes wrong on purpose.
struct Fault
{
    std::string name;
    std::string value;
    int channel = 0; ///< 0: all
    int count = 0;   ///< how many times it still strikes; 0: always
};

/// The faults that are switched on, from the command line and from the control address. Safe from any thread.
class FaultPlan final
{
public:
    /// False with a sentence when the name is unknown or the value is not of its kind. Replaces a fault of that name
    /// and channel.
    bool set(const Fault& fault, std::string& error);
    bool setFromArgument(const std::string& nameAndValue, std::string& error); ///< NAME=VALUE or NAME
    void clear(const std::string& name);
    void reset();
    std::vector<Fault> all() const;

    /// Whether the fault is on for a channel (0: not bound to one), without using up a stroke.
    std::optional<std::string> value(const std::string& name, int channel = 0) const;
    bool isOn(const std::string& name, int channel = 0) const { return value(name, channel).has_value(); }
    std::optional<std::int64_t> number(const std::string& name, int channel = 0) const;
    std::optional<double> real(const std::string& name, int channel = 0) const;

    /// The same, and uses up one stroke of a counted fault.
    std::optional<std::string> strike(const std::string& name, int channel = 0);
    std::optional<std::int64_t> strikeNumber(const std::string& name, int channel = 0);

    /// Changes with every change; lets a sender look whether it must ask again.
    std::uint64_t revision() const { return m_revision; }

    static std::string listOfNames(); ///< for --help: a line each, with the kind of value

private:
    const Fault* find(const std::string& name, int channel) const;

    std::atomic<std::uint64_t> m_revision{0};
    mutable std::mutex m_mutex;
    std::vector<Fault> m_faults; ///< under m_mutex
};

} // namespace recorder_sim
