#pragma once

#include <QObject>

#include <memory>

namespace vemo_client {

/// Turns Ctrl-C and the request to terminate into a signal on the thread that made the object. One object a process.
/// The first request is signalled; a second one ends the process at once, for a person who will not wait.
class Interrupt final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Interrupt)

public:
    explicit Interrupt(QObject* parent = nullptr);
    ~Interrupt() override;

signals:
    void signalInterrupted();

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace vemo_client
