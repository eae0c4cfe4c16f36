#pragma once

#include "devices/TitledDialog.h"

#include <UserRecord.h>

class QLineEdit;
class QPushButton;

namespace vemo_client {

class MessageLine;
class PasswordEdit;
class PowersEdit;
class StrengthBar;

/// Asks for what one change of a user needs, stores it, and closes once that is done. Open it with open(); it deletes
/// itself. GUI thread.
class UserDialog final : public TitledDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UserDialog)

public:
    enum class Deed : int { Unknown = 0, Add, ChangePowers, ResetPassword, ChangeOwnPassword };

    /// `user` is the one to change; with Add it says nothing.
    UserDialog(Deed deed, const vemo_worker::UserRecord& user, QWidget* parent);

private:
    bool asksPassword() const { return m_deed != Deed::ChangePowers; }
    static QString titleOf(Deed deed, const QString& name);
    static QString sentenceOf(Deed deed, const QString& name);
    void addFields();
    void addField(const QString& label, QWidget* field);
    void check();
    /// What is wrong with what was typed so far; empty when it can be stored.
    QString problem() const;
    void submit();
    void take(const QString& problem);
    bool isAdministrator() const;

    const Deed m_deed;
    const vemo_worker::UserRecord m_user;
    QLineEdit* m_name = nullptr;
    PasswordEdit* m_current = nullptr;
    PasswordEdit* m_password = nullptr;
    StrengthBar* m_strength = nullptr;
    PasswordEdit* m_repeat = nullptr;
    PowersEdit* m_powers = nullptr;
    MessageLine* m_message = nullptr;
    QPushButton* m_submit = nullptr;
    bool m_isBusy = false;
};

} // namespace vemo_client
