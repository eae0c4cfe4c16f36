#pragma once

#include "RecorderForm.h"

#include <QWidget>

class QPushButton;

namespace vemo_client {

/// The page of a client that knows no recorder yet: what the client is for, and the form by which the first recorder is
/// added. GUI thread.
class FirstRecorderWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FirstRecorderWt)

public:
    explicit FirstRecorderWt(RecorderLogins* logins, QWidget* parent = nullptr);

signals:
    /// The recorder is in the list, online or kept as it is.
    void signalAdded();

private:
    void showStage();

    RecorderForm* m_form;
    QPushButton* m_submit;
    QPushButton* m_keep;
};

} // namespace vemo_client
