#pragma once

#include "vemo_worker_global.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace vemo_worker {

class Keyring;

/// Passwords of devices by device id: in the desktop's keyring when one answers, else in the file "secrets" of the
/// config folder, encrypted (see SecretsFile). Never in the database, the settings or a log. One object a process, on
/// the GUI thread. Every function returns at once and answers later by the event loop; a keyring that does not answer
/// within seconds, as when it waits to be unlocked, counts as not there until it does. `context` gone: no answer.
class VEMO_WORKER_EXPORT PasswordStore final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PasswordStore)

public:
    using Found = std::function<void(const QString& password, bool found)>;
    using Kept = std::function<void(bool kept)>;

    static PasswordStore& instance();
    ~PasswordStore() override;

    /// Replaces what was kept for the device. Not kept: neither place could be written.
    void put(const QString& devId, const QString& password, QObject* context = nullptr, Kept kept = {});
    void get(const QString& devId, QObject* context, Found found);
    void remove(const QString& devId);

    /// A keyring is there and can't be read: it is locked, or does not answer.
    bool isKeyringClosed() const;

    /// A keyring does not answer. Its libraries may then wait for it in their own clean-up, so the program
    /// ends without that.
    static bool hasHungKeyring();

    /// Takes another keyring than the desktop's; null: none, passwords go to the file.
    void setKeyring(std::unique_ptr<Keyring> keyring);

signals:
    /// The keyring answers again: what was not found may be found now.
    void signalKeyringOpened();

private:
    PasswordStore();

    class Private;
    std::unique_ptr<Private> d;
};

} // namespace vemo_worker
