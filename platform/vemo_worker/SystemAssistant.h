#pragma once

#include "vemo_worker_global.h"

#include <QObject>
#include <QString>

#include <functional>

namespace vemo_worker {

/// Alerts to the person. How they are shown is the host's: a window installs a presenter that opens a message box;
/// without one they go to the standard error stream. One object a process, on the GUI thread.
class VEMO_WORKER_EXPORT SystemAssistant final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SystemAssistant)

public:
    using Presenter = std::function<void(const QString& title, const QString& text)>;

    static SystemAssistant& instance();

    void messageAlert(const QString& title, const QString& text);
    void setPresenter(Presenter presenter); ///< an empty one: the standard error stream

private:
    SystemAssistant();

    Presenter m_presenter;
};

} // namespace vemo_worker
