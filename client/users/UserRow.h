#pragma once

#include <UserRecord.h>

#include <QWidget>

class QHBoxLayout;
class QToolButton;

namespace vemo_client {

/// One user in the list of the settings: who it is, what the user may do, when the last login was, and buttons for
/// what can be done. GUI thread.
class UserRow final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UserRow)

public:
    /// `isOwn`: the current user.
    UserRow(const vemo_worker::UserRecord& user, bool isOwn, QWidget* parent);

    QSize sizeHint() const override;

signals:
    void signalPowers();
    void signalPassword();
    void signalToggleEnabled();
    void signalRemove();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QToolButton* addButton(const QString& icon, const QString& tip);
    QString secondLine() const;

    const vemo_worker::UserRecord m_user;
    const bool m_isOwn;
    QHBoxLayout* m_layout;
};

} // namespace vemo_client
