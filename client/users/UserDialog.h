#pragma once

#include <UserRecord.h>

#include <QDialog>

class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace vemo_client {

class MessageLine;
class PasswordEdit;
class PowersEdit;
class StrengthBar;

/// Asks for what one change of a user needs, stores it, and closes once that is done. Open it with open(); it deletes
/// itself. GUI thread.
class UserDialog final : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UserDialog)

public:
    enum class Deed : int { Unknown = 0, Add, ChangePowers, ResetPassword, ChangeOwnPassword };

    /// `user` is the one to change; with Add it says nothing.
    UserDialog(Deed deed, const vemo_worker::UserRecord& user, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool asksPassword() const { return m_deed != Deed::ChangePowers; }
    void addWords();
    void addFields();
    void addField(QVBoxLayout* layout, const QString& label, QWidget* field);
    void check();
    /// What is wrong with what was typed so far; empty when it can be stored.
    QString problem() const;
    void submit();
    void take(const QString& problem);
    bool isAdministrator() const;

    const Deed m_deed;
    const vemo_worker::UserRecord m_user;
    QVBoxLayout* m_layout;
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
