#pragma once

#include "RecorderForm.h"

#include <QWidget>

class QPushButton;

namespace vemo_client {

/// The page of a client that knows no recorder yet: what the client is for, and the form by which the first recorder is
/// added, or the way to find it on the network. Who may not add recorders is told so. GUI thread.
class FirstRecorderWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FirstRecorderWt)

public:
    explicit FirstRecorderWt(RecorderLogins* logins, QWidget* parent = nullptr);

signals:
    /// The recorder is in the list, online or kept as it is; it may have been added elsewhere.
    void signalAdded();

private:
    void findOnNetwork();
    void showStage();

    RecorderLogins* m_logins;
    RecorderForm* m_form;
    QPushButton* m_submit;
    QPushButton* m_find;
    QPushButton* m_keep;
};

} // namespace vemo_client
