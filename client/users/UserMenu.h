#pragma once

#include <QAbstractButton>

class QMenu;

namespace vemo_client {

/// The current user in the top bar: a round with the initials, the name, and a menu to change the own password and to
/// log out. GUI thread.
class UserMenu final : public QAbstractButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UserMenu)

public:
    explicit UserMenu(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The program is to end as if it were closed, and to start anew at the login.
    void signalLogOut();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void open();
    void refresh();

    QMenu* m_menu;
    QString m_name;
};

} // namespace vemo_client
