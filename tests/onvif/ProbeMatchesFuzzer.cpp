#include "onvif/ProbeMatches.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace vms_sdk::onvif;

/// A datagram from anywhere in the network.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray datagram(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QHostAddress sender(QStringLiteral("192.168.1.20"));
    const auto found = readProbeMatches(datagram, sender, {QString(), QStringLiteral("urn:uuid:1")});
    if (found.size() > maxMatchesAnAnswer)
        std::abort();
    for (const ProbeMatch& match : found) {
        if (match.endpoint.isEmpty() || match.endpoint.size() > 201 || match.name.size() > 65 ||
            match.model.size() > 65 || match.addresses.isEmpty() || match.addresses.size() > 8)
            std::abort();
        for (const QUrl& address : match.addresses) {
            if (!address.userInfo().isEmpty() || QHostAddress(address.host()).isLoopback())
                std::abort();
        }
    }
    return 0;
}
