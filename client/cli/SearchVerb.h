#pragma once

#include "CliCommand.h"
#include "RecorderSession.h"
#include "RecordingSearch.h"
#include "VerbExit.h"

#include <memory>
#include <vector>

namespace vemo_client {

/// `vemo_client search`: lists the recordings of the channels in a span. GUI thread, no window needed. run() starts;
/// the event loop is left with the exit code when the last answer is there.
class SearchVerb final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SearchVerb)

public:
    explicit SearchVerb(const CliCommand& command, QObject* parent = nullptr);
    ~SearchVerb() override;

    void run();
    void interrupt();

private:
    void searchAll();
    void printAll();
    void leave(ExitCode code, const QString& sentence = {}) { m_exit.leave(code, sentence); }

    const CliCommand m_command;
    RecorderSession m_session;
    std::vector<std::unique_ptr<RecordingSearch>> m_searches;
    VerbExit m_exit;
};

} // namespace vemo_client
