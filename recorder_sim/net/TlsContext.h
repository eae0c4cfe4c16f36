#pragma once

#include "net/ByteStream.h"
#include "net/NativeSocket.h"

#include <atomic>
#include <memory>
#include <string>

struct ssl_ctx_st;

namespace recorder_sim {

/// The server's certificate and key, loaded once; wraps accepted sockets into TLS 1.2 or 1.3. Threads may share it.
class TlsContext final
{
public:
    /// Null and a sentence in `error` when the PEM files can't be used.
    static std::shared_ptr<TlsContext> load(const std::string& certificateFile, const std::string& keyFile,
                                            std::string& error);
    ~TlsContext();
    TlsContext(const TlsContext&) = delete;
    TlsContext& operator=(const TlsContext&) = delete;

    /// Does the handshake (10 s at most); null when it fails or `stopping` becomes true.
    ByteStreamPtr accept(NativeSocket socket, const std::atomic<bool>& stopping) const;

private:
    TlsContext() = default;

    ssl_ctx_st* m_context = nullptr;
};

} // namespace recorder_sim
