#pragma once

#include "AuthForm.h"

#include <UserStore.h>

#include <QTimer>

class QCheckBox;
class QComboBox;

namespace vemo_client {

class MessageLine;
class NoticeCard;
class PasswordEdit;

/// The login. Done once the person's user is the current one. GUI thread.
class LoginPage final : public AuthForm
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LoginPage)

public:
    explicit LoginPage(QWidget* parent = nullptr);

    /// "4 min 12 s"
    static QString remainingWords(qint64 ms);

private:
    void showUser();
    void submit();
    void take(const vemo_worker::LoginResult& result);
    void tellLock();
    void setBusy(bool isBusy);

    QLabel* m_lastLogin = nullptr;
    QComboBox* m_name;
    PasswordEdit* m_password;
    QCheckBox* m_stay;
    MessageLine* m_message = nullptr;
    QPushButton* m_submit = nullptr;
    NoticeCard* m_capsLock;
    MessageLine* m_waiting = nullptr;
    QTimer m_lockTimer;
    qint64 m_lockEndMs = 0; ///< of a clock that can't be set
    QString m_lockedName;
    bool m_isBusy = false;
};

} // namespace vemo_client
