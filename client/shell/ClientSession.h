#pragma once

#include <QObject>
#include <QPointer>

#include <memory>

namespace vemo_client {

class Language;
class MainWindow;
class QueueTray;
class RecorderLogins;
class ShellWt;
class TransferSettings;

/// What the program is at one time: first somebody logs in, unless one stays logged in, then the module, the recorders'
/// logins and the shell stand until the window is closed. Made before any text is shown, since it brings the language;
/// outlives the window. GUI thread.
class ClientSession final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ClientSession)

public:
    explicit ClientSession(QObject* parent = nullptr);
    ~ClientSession() override;

    /// Fills the window.
    void start(MainWindow* window);
    /// The window is closed: what runs is kept and goes on at the next start. Call it while the window still stands.
    void end();
    /// The window was closed by logging out: the program is to start anew.
    bool isLoggedOut() const { return m_isLoggedOut; }

private:
    void showLogin(MainWindow* window);
    void begin(MainWindow* window, bool wantsRecorders);
    void tellWhenHandedOut();

    std::unique_ptr<Language> m_language;
    std::unique_ptr<RecorderLogins> m_logins;
    QPointer<ShellWt> m_shell; ///< owned by the window
    std::unique_ptr<TransferSettings> m_transfer;
    std::unique_ptr<QueueTray> m_tray;
    bool m_isHandedOut = false;
    bool m_isLoggedOut = false;
};

} // namespace vemo_client
