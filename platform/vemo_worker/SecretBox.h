#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace vemo_worker {

/// Sealing of small secrets: AES-256-GCM with a fresh 96-bit nonce a message, keys from passwords by
/// PBKDF2-HMAC-SHA256. Pure functions, any thread.
class SecretBox final
{
public:
    SecretBox() = delete;

    static constexpr int keyBytes = 32;
    static constexpr int saltBytes = 16;
    static constexpr int passwordRounds = 600'000;

    /// From the operating system's generator; empty when that fails.
    static QByteArray randomBytes(int count);
    /// Takes a good part of a second: that is its purpose.
    static QByteArray keyFromPassword(const QString& password, const QByteArray& salt, int rounds);

    /// Nonce, ciphertext and tag in one piece; empty when it fails. `context` is not kept, but must be the same at
    /// open().
    static QByteArray seal(const QByteArray& key, const QByteArray& plain, const QByteArray& context);
    /// Nothing when the key is another one or a bit was changed.
    static std::optional<QByteArray> open(const QByteArray& key, const QByteArray& sealed, const QByteArray& context);
};

} // namespace vemo_worker
