#include "net/TlsContext.h"

#include "net/TcpStream.h"

#include <openssl/err.h>
#include <openssl/ssl.h>

#include <algorithm>
#include <chrono>
#include <climits>
#include <utility>

namespace recorder_sim {
namespace {

constexpr int handshakeTimeoutMs = 10'000;

class TlsStream final : public ByteStream
{
public:
    TlsStream(NativeSocket socket, SSL* ssl)
        : m_socket(std::move(socket))
        , m_ssl(ssl)
    {}

    ~TlsStream() override { SSL_free(m_ssl); }

    bool handshake(const std::atomic<bool>& stopping)
    {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(handshakeTimeoutMs);
        while (std::chrono::steady_clock::now() < deadline && !stopping) {
            ERR_clear_error();
            const int done = SSL_accept(m_ssl);
            if (done == 1)
                return true;
            const int why = SSL_get_error(m_ssl, done);
            if (why == SSL_ERROR_WANT_READ)
                m_socket.wait(Readable, 100);
            else if (why == SSL_ERROR_WANT_WRITE)
                m_socket.wait(Writable, 100);
            else
                return false;
        }
        return false;
    }

    IoResult read(char* data, std::size_t size) override
    {
        ERR_clear_error();
        const int got = SSL_read(m_ssl, data, static_cast<int>(std::min<std::size_t>(size, INT_MAX)));
        return result(got);
    }

    IoResult write(const char* data, std::size_t size) override
    {
        if (size == 0)
            return {IoStatus::Done, 0};
        ERR_clear_error();
        const int sent = SSL_write(m_ssl, data, static_cast<int>(std::min<std::size_t>(size, INT_MAX)));
        return result(sent);
    }

    unsigned wait(unsigned wanted, int timeoutMs) override
    {
        if (!m_socket.isValid())
            return wanted;
        if ((wanted & Readable) && SSL_pending(m_ssl) > 0)
            return Readable | (m_socket.wait(wanted, 0) & wanted);
        return m_socket.wait(wanted, timeoutMs);
    }

    void drain(int timeoutMs) override
    {
        if (m_socket.isValid())
            drainSocket(m_socket, timeoutMs);
    }

    void finish() override
    {
        if (!m_socket.isValid())
            return;
        SSL_shutdown(m_ssl);
        m_socket.finish();
    }

    void reset() override
    {
        if (m_socket.isValid())
            m_socket.reset();
    }

    bool isEncrypted() const override { return true; }
    std::string localHost() const override { return m_socket.isValid() ? m_socket.localAddress() : std::string(); }
    std::string peer() const override { return m_socket.isValid() ? m_socket.peerAddress() : std::string(); }

private:
    IoResult result(int done)
    {
        if (done > 0)
            return {IoStatus::Done, static_cast<std::size_t>(done)};
        const int why = SSL_get_error(m_ssl, done);
        const bool later = why == SSL_ERROR_WANT_READ || why == SSL_ERROR_WANT_WRITE;
        return {later ? IoStatus::WouldBlock : IoStatus::Closed, 0};
    }

    NativeSocket m_socket;
    SSL* m_ssl;
};

} // namespace

std::shared_ptr<TlsContext> TlsContext::load(const std::string& certificateFile, const std::string& keyFile,
                                             std::string& error)
{
    std::shared_ptr<TlsContext> made(new TlsContext);
    made->m_context = SSL_CTX_new(TLS_server_method());
    if (!made->m_context) {
        error = "OpenSSL cannot make a server context";
        return nullptr;
    }
    SSL_CTX_set_min_proto_version(made->m_context, TLS1_2_VERSION);
    SSL_CTX_set_mode(made->m_context, SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);
    if (SSL_CTX_use_certificate_chain_file(made->m_context, certificateFile.c_str()) != 1) {
        error = "cannot use the certificate " + certificateFile;
        return nullptr;
    }
    if (SSL_CTX_use_PrivateKey_file(made->m_context, keyFile.c_str(), SSL_FILETYPE_PEM) != 1 ||
        SSL_CTX_check_private_key(made->m_context) != 1) {
        error = "cannot use the key " + keyFile + " with the certificate " + certificateFile;
        return nullptr;
    }
    return made;
}

TlsContext::~TlsContext()
{
    SSL_CTX_free(m_context);
}

ByteStreamPtr TlsContext::accept(NativeSocket socket, const std::atomic<bool>& stopping) const
{
    SSL* ssl = SSL_new(m_context);
    if (!ssl)
        return nullptr;
    SSL_set_fd(ssl, static_cast<int>(socket.handle()));
    auto made = std::make_unique<TlsStream>(std::move(socket), ssl);
    if (!made->handshake(stopping))
        return nullptr;
    return made;
}

} // namespace recorder_sim
