#pragma once

#include "AuthForm.h"

class QLineEdit;

namespace vemo_base {
class SegmentedBar;
}

namespace vemo_client {

class MessageLine;
class PasswordEdit;
class StrengthBar;

/// The first step of a first start: the administrator's name and password, and how the client looks. Done once the
/// account is stored and its user is the current one. GUI thread.
class AdministratorPage final : public AuthForm
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AdministratorPage)

public:
    explicit AdministratorPage(QWidget* parent = nullptr);

private:
    void check();
    void submit();
    void setBusy(bool isBusy);
    void logIn();

    QLineEdit* m_name;
    PasswordEdit* m_password;
    StrengthBar* m_strength;
    PasswordEdit* m_repeat;
    MessageLine* m_message;
    vemo_base::SegmentedBar* m_theme;
    QPushButton* m_submit = nullptr;
    bool m_isBusy = false;
};

} // namespace vemo_client
