#pragma once

#include "RecorderForm.h"

#include <QDialog>

class QPushButton;

namespace vemo_client {

/// Adds a recorder, or changes a stored one. Closes by itself once the recorder is online. Open it with open(); it
/// deletes itself. GUI thread.
class RecorderDialog final : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecorderDialog)

public:
    /// An empty `devId`: a new recorder.
    RecorderDialog(RecorderLogins* logins, const QString& devId, QWidget* parent);

    void reject() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showStage();

    bool m_isNew;
    RecorderForm* m_form;
    QPushButton* m_submit;
    QPushButton* m_keep;
};

} // namespace vemo_client
