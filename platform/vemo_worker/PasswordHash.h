#pragma once

#include "vemo_worker_global.h"

#include <QByteArray>
#include <QString>

namespace vemo_worker {

/// Proof of a password without the password: Argon2id (RFC 9106) over its NFC form, 64 MiB and two passes, with a salt
/// of its own; the text that comes out carries parameters and salt. Making and checking take a tenth of a second or so:
/// that is their purpose. Pure functions, any thread but the GUI's.
class VEMO_WORKER_EXPORT PasswordHash final
{
public:
    PasswordHash() = delete;

    /// Empty when the system has not the memory for it.
    static QByteArray make(const QString& password);
    /// Compares in constant time.
    static bool matches(const QString& password, const QByteArray& hash);
    /// Takes as long as a check, and never matches: for names that nobody has.
    static void matchNobody(const QString& password);
};

} // namespace vemo_worker
