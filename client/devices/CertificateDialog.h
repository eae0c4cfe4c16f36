#pragma once

#include "TitledDialog.h"

#include <QByteArray>

namespace vemo_client {

class RecorderLogins;

/// Asks whether the key that a recorder shows is to be trusted: whom its certificate is for, by whom, how long, what is
/// wrong with it, and the key's fingerprint beside the trusted one where there is one. The safe answer is the default.
/// The answer holds for the key that is shown and for no other. GUI thread.
class CertificateDialog final : public TitledDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CertificateDialog)

public:
    /// For a recorder in the phase CertificateUnknown.
    CertificateDialog(RecorderLogins* logins, const QString& devId, QWidget* parent);

private:
    RecorderLogins* m_logins;
    QByteArray m_shownKey;
};

} // namespace vemo_client
