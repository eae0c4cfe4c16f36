#include "Sha256.h"

#include <openssl/evp.h>

namespace VCOMMON {

struct Sha256::Context
{
    EVP_MD_CTX* const digest = EVP_MD_CTX_new();
    bool ok = digest && EVP_DigestInit_ex(digest, EVP_sha256(), nullptr) == 1;

    Context() = default;
    ~Context() { EVP_MD_CTX_free(digest); }
    Q_DISABLE_COPY_MOVE(Context)

    QByteArray end()
    {
        QByteArray sum(bytes, Qt::Uninitialized);
        unsigned length = bytes;
        ok = ok && EVP_DigestFinal_ex(digest, reinterpret_cast<unsigned char*>(sum.data()), &length) == 1;
        return ok ? sum : QByteArray();
    }
};

Sha256::Sha256()
    : m_context(std::make_unique<Context>())
{}

Sha256::~Sha256() = default;

void Sha256::add(const char* data, qint64 size)
{
    Context& context = *m_context;
    context.ok = context.ok && EVP_DigestUpdate(context.digest, data, static_cast<std::size_t>(size)) == 1;
}

QByteArray Sha256::soFar() const
{
    Context copy;
    copy.ok = copy.ok && m_context->ok && EVP_MD_CTX_copy_ex(copy.digest, m_context->digest) == 1;
    return copy.end();
}

QByteArray Sha256::result()
{
    return m_context->end();
}

} // namespace VCOMMON
