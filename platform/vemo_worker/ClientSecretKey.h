#pragma once

#include "vemo_worker_global.h"

#include <QByteArray>
#include <QMutex>
#include <QString>

namespace vemo_worker {

/// The key under which this client keeps secrets at rest, and the question whether the current user is above the rules.
///
/// The key is random, made at first use, and lies in "secrets.key" of the config folder, readable by its owner alone.
/// When a password is set for it (the environment variable VEMO_SECRETS_PASSWORD, read once and then taken out of the
/// environment), the file holds the key sealed under that password instead, and without the password nothing can be
/// opened. One object a process. isAllPowerful() on the GUI thread; key() on any thread, since it waits for the disk.
class VEMO_WORKER_EXPORT ClientSecretKey final
{
public:
    ClientSecretKey(const ClientSecretKey&) = delete;
    ClientSecretKey& operator=(const ClientSecretKey&) = delete;

    static ClientSecretKey& instance();

    /// The current user has every power there is.
    bool isAllPowerful() const;

    /// 32 bytes; empty with `error` as a sentence when there is none to be had.
    QByteArray key(QString* error);
    /// Puts the password back into the environment, for a program that takes the place of this one.
    void giveBackPassword();
    /// Reads the key file anew at the next use, in the then current config folder.
    void reset();

private:
    ClientSecretKey();

    QByteArray load(const QString& path, QString* error);
    QByteArray make(const QString& path, QString* error);
    bool write(const QString& path, const QByteArray& key, QString* error);
    QString password();

    QMutex m_mutex; ///< guards what follows
    QByteArray m_key;
    QString m_password;
    bool m_passwordTaken = false;
};

} // namespace vemo_worker
