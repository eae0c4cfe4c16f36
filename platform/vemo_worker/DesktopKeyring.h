#pragma once

#include "Keyring.h"
#include "vemo_worker_global.h"

#include <memory>

class QObject;
class QThread;

namespace vemo_worker {

/// The desktop's own keyring: Secret Service or KWallet over D-Bus, the credential store on Windows. Calls go to a
/// thread of their own, because the services' libraries block; a service that hangs there does not hold up the end of
/// the program.
class VEMO_WORKER_EXPORT DesktopKeyring final : public Keyring
{
public:
    /// Null where none can be: no session bus, or the environment variable VEMO_KEYRING is "off".
    static std::unique_ptr<Keyring> find();

    DesktopKeyring();
    ~DesktopKeyring() override;

    void read(const QString& name, Answer answer) override;
    void write(const QString& name, const QString& text, Answer answer) override;
    void remove(const QString& name, Answer answer) override;

private:
    template <typename Job, typename Prepare>
    void carryOut(const QString& name, Prepare prepare, Answer answer);

    QThread* m_thread = nullptr;
    QObject* m_there = nullptr;      ///< lives on m_thread
    std::shared_ptr<QObject> m_here; ///< lives on the caller's thread; gone: nobody waits for an answer
};

} // namespace vemo_worker
