#pragma once

#include <QLineEdit>

class QAction;

namespace vemo_client {

/// A field for a password: hidden until the eye is pressed, and never longer than a password may be. Tells when what is
/// typed looks as if Caps Lock were on. GUI thread.
class PasswordEdit final : public QLineEdit
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PasswordEdit)

public:
    explicit PasswordEdit(const QString& accessibleName, QWidget* parent = nullptr);

    /// Red outline.
    void setInvalid(bool isInvalid);

signals:
    void signalCapsLock(bool isOn);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void toggle();

    QAction* m_eye;
    bool m_isCapsLock = false;
};

} // namespace vemo_client
