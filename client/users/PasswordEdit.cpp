#include "PasswordEdit.h"

#include <Icons.h>
#include <UserRules.h>

#include <QAction>
#include <QKeyEvent>
#include <QVariant>

namespace vemo_client {

PasswordEdit::PasswordEdit(const QString& accessibleName, QWidget* parent)
    : QLineEdit(parent)
    , m_eye(addAction(vemo_base::Icons::icon(QStringLiteral("eye")), QLineEdit::TrailingPosition))
{
    setAccessibleName(accessibleName);
    setMaxLength(vemo_worker::UserRules::longestPassword);
    setEchoMode(QLineEdit::Password);
    addAction(vemo_base::Icons::icon(QStringLiteral("lock")), QLineEdit::LeadingPosition);
    m_eye->setText(tr("Show the password"));
    m_eye->setToolTip(m_eye->text());
    connect(m_eye, &QAction::triggered, this, &PasswordEdit::toggle);
}

void PasswordEdit::setInvalid(bool isInvalid)
{
    if (property("invalid").toBool() == isInvalid)
        return;
    setProperty("invalid", isInvalid);
    update();
}

void PasswordEdit::toggle()
{
    const bool isShown = echoMode() == QLineEdit::Normal;
    setEchoMode(isShown ? QLineEdit::Password : QLineEdit::Normal);
    m_eye->setText(isShown ? tr("Show the password") : tr("Hide the password"));
    m_eye->setToolTip(m_eye->text());
}

/// No toolkit call tells the lock key's state; a capital without Shift, or a small letter with it, does.
void PasswordEdit::keyPressEvent(QKeyEvent* event)
{
    const QString text = event->text();
    bool isOn = m_isCapsLock;
    if (event->key() == Qt::Key_CapsLock)
        isOn = false;
    else if (text.size() == 1 && text.at(0).toLower() != text.at(0).toUpper())
        isOn = text.at(0).isUpper() != event->modifiers().testFlag(Qt::ShiftModifier);
    if (isOn != m_isCapsLock) {
        m_isCapsLock = isOn;
        emit signalCapsLock(isOn);
    }
    QLineEdit::keyPressEvent(event);
}

} // namespace vemo_client
