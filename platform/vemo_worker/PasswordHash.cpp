#include "PasswordHash.h"

#include <sodium.h>

namespace vemo_worker {

namespace {

/// The least that the library calls good for a person who waits.
constexpr unsigned long long passes = crypto_pwhash_OPSLIMIT_INTERACTIVE;
constexpr size_t memoryBytes = crypto_pwhash_MEMLIMIT_INTERACTIVE;

bool isReady()
{
    static const bool ready = sodium_init() >= 0;
    return ready;
}

QByteArray bytesOf(const QString& password)
{
    return password.normalized(QString::NormalizationForm_C).toUtf8();
}

} // namespace

QByteArray PasswordHash::make(const QString& password)
{
    const QByteArray text = bytesOf(password);
    QByteArray hash(crypto_pwhash_STRBYTES, '\0');
    const bool isMade = isReady() && crypto_pwhash_str_alg(hash.data(), text.constData(), quint64(text.size()), passes,
                                                           memoryBytes, crypto_pwhash_ALG_ARGON2ID13) == 0;
    return isMade ? QByteArray(hash.constData()) : QByteArray();
}

bool PasswordHash::matches(const QString& password, const QByteArray& hash)
{
    const QByteArray text = bytesOf(password);
    return isReady() && hash.size() < int(crypto_pwhash_STRBYTES) &&
           crypto_pwhash_str_verify(hash.constData(), text.constData(), quint64(text.size())) == 0;
}

void PasswordHash::matchNobody(const QString& password)
{
    static const QByteArray nobody = make(QString());
    matches(password + QLatin1Char('x'), nobody);
}

} // namespace vemo_worker
