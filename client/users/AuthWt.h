#pragma once

#include <UserRecord.h>

#include <QWidget>

class QStackedWidget;

namespace vemo_client {

/// What fills the window before anybody is logged in: the first start in three steps (administrator, folders, first
/// recorder), else the login, else why the accounts can't be opened. UserAccounts must be open. GUI thread.
class AuthWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AuthWt)

public:
    explicit AuthWt(QWidget* parent = nullptr);

    /// The last step of a first start asked for recorders: the window is to open where they are found.
    bool wantsRecorders() const { return m_wantsRecorders; }

signals:
    /// Once. The user is the current one already.
    void signalLoggedIn(const vemo_worker::UserRecord& user);

private:
    void showStart();
    void showFolders();
    void showRecorders();
    void show(QWidget* page);
    void finish(bool wantsRecorders);

    QStackedWidget* m_pages;
    bool m_wantsRecorders = false;
};

} // namespace vemo_client
