#pragma once

#include "RecorderForm.h"
#include "TitledDialog.h"

namespace vemo_client {

/// Adds a recorder, or changes a stored one. Closes by itself once the recorder is online. GUI thread.
class RecorderDialog final : public TitledDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecorderDialog)

public:
    /// An empty `devId`: a new recorder.
    RecorderDialog(RecorderLogins* logins, const QString& devId, QWidget* parent);

    void reject() override;

private:
    void showStage();

    bool m_isNew;
    RecorderForm* m_form;
    QPushButton* m_submit;
    QPushButton* m_keep;
};

} // namespace vemo_client
