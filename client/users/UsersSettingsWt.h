#pragma once

#include <UserRecord.h>

#include <QWidget>

class QVBoxLayout;

namespace vemo_client {

class MessageLine;

/// The section "Users" of the settings: for administrators all users with what they may do; for everybody the own
/// password. Changes are stored at once, each by its own dialog or question. GUI thread.
class UsersSettingsWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UsersSettingsWt)

public:
    explicit UsersSettingsWt(QWidget* parent = nullptr);

private:
    void refresh();
    void remove(const vemo_worker::UserRecord& user);
    void tell(const QString& problem);

    QVBoxLayout* m_rows;
    MessageLine* m_message = nullptr; ///< administrators only
};

} // namespace vemo_client
