#include "DigestAuthenticator.h"

#include <cstddef>
#include <cstdint>

using namespace vms_sdk::rtsp;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // Lines are the WWW-Authenticate headers of successive answers.
    DigestAuthenticator login(QStringLiteral("user"), QStringLiteral("secret"), size % 2 == 0,
                              [] { return QByteArrayLiteral("0123456789abcdef"); });
    for (const QByteArray& line : QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)).split('\n')) {
        if (login.challenged({line}) != DigestAuthenticator::Verdict::Retry)
            continue;
        const QByteArray value = login.authorization("PLAY", "rtsp://host/path");
        if (value.contains('\n') || value.contains("secret"))
            __builtin_trap();
        if (line.size() % 3 == 0)
            login.accepted();
    }
    return 0;
}
