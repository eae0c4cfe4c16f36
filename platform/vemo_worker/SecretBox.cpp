#include "SecretBox.h"

#include <openssl/evp.h>
#include <openssl/rand.h>

#include <memory>

namespace vemo_worker {

namespace {

constexpr int nonceBytes = 12;
constexpr int tagBytes = 16;

using Cipher = std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)>;

Cipher newCipher()
{
    return Cipher(EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free);
}

unsigned char* bytes(QByteArray& data)
{
    return reinterpret_cast<unsigned char*>(data.data());
}

const unsigned char* bytes(const QByteArray& data)
{
    return reinterpret_cast<const unsigned char*>(data.constData());
}

} // namespace

QByteArray SecretBox::randomBytes(int count)
{
    QByteArray result(count, '\0');
    return RAND_bytes(bytes(result), count) == 1 ? result : QByteArray();
}

QByteArray SecretBox::keyFromPassword(const QString& password, const QByteArray& salt, int rounds)
{
    const QByteArray text = password.toUtf8();
    QByteArray key(keyBytes, '\0');
    const int ok = PKCS5_PBKDF2_HMAC(text.constData(), text.size(), bytes(salt), salt.size(), rounds, EVP_sha256(),
                                     keyBytes, bytes(key));
    return ok == 1 ? key : QByteArray();
}

QByteArray SecretBox::seal(const QByteArray& key, const QByteArray& plain, const QByteArray& context)
{
    const QByteArray nonce = randomBytes(nonceBytes);
    const Cipher cipher = newCipher();
    if (key.size() != keyBytes || nonce.isEmpty() || !cipher)
        return {};
    QByteArray text(plain.size(), '\0');
    QByteArray tag(tagBytes, '\0');
    int length = 0;
    const bool ok = EVP_EncryptInit_ex(cipher.get(), EVP_aes_256_gcm(), nullptr, bytes(key), bytes(nonce)) == 1 &&
                    EVP_EncryptUpdate(cipher.get(), nullptr, &length, bytes(context), context.size()) == 1 &&
                    EVP_EncryptUpdate(cipher.get(), bytes(text), &length, bytes(plain), plain.size()) == 1 &&
                    EVP_EncryptFinal_ex(cipher.get(), nullptr, &length) == 1 &&
                    EVP_CIPHER_CTX_ctrl(cipher.get(), EVP_CTRL_GCM_GET_TAG, tagBytes, bytes(tag)) == 1;
    return ok ? nonce + text + tag : QByteArray();
}

std::optional<QByteArray> SecretBox::open(const QByteArray& key, const QByteArray& sealed, const QByteArray& context)
{
    const Cipher cipher = newCipher();
    if (key.size() != keyBytes || sealed.size() < nonceBytes + tagBytes || !cipher)
        return std::nullopt;
    const QByteArray nonce = sealed.left(nonceBytes);
    const QByteArray text = sealed.mid(nonceBytes, sealed.size() - nonceBytes - tagBytes);
    QByteArray tag = sealed.right(tagBytes);
    QByteArray plain(text.size(), '\0');
    int length = 0;
    const bool ok = EVP_DecryptInit_ex(cipher.get(), EVP_aes_256_gcm(), nullptr, bytes(key), bytes(nonce)) == 1 &&
                    EVP_DecryptUpdate(cipher.get(), nullptr, &length, bytes(context), context.size()) == 1 &&
                    EVP_DecryptUpdate(cipher.get(), bytes(plain), &length, bytes(text), text.size()) == 1 &&
                    EVP_CIPHER_CTX_ctrl(cipher.get(), EVP_CTRL_GCM_SET_TAG, tagBytes, bytes(tag)) == 1 &&
                    EVP_DecryptFinal_ex(cipher.get(), nullptr, &length) == 1;
    return ok ? std::optional<QByteArray>(plain) : std::nullopt;
}

} // namespace vemo_worker
