#pragma once

#include "vemo_worker_global.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class QThreadPool;

namespace vemo_worker {

/// Alerts to the person, and the removal of files for them. How alerts are shown is the host's: a window installs a
/// presenter that opens a message box; without one they go to the standard error stream. Files are removed on a thread
/// of its own, in the order of asking. One object a process, on the GUI thread.
class VEMO_WORKER_EXPORT SystemAssistant final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SystemAssistant)

public:
    using Presenter = std::function<void(const QString& title, const QString& text)>;
    using Removed = std::function<void(const QStringList& remaining)>;

    static SystemAssistant& instance();
    ~SystemAssistant() override;

    void messageAlert(const QString& title, const QString& text);
    void setPresenter(Presenter presenter); ///< an empty one: the standard error stream

    /// Moves the files to the recycle bin where the disk has one and the settings want it, else removes them. A folder
    /// or a link's target is never touched. `removed` is called on the GUI thread, unless `context` has gone, with the
    /// files that are still there.
    void removeFiles(const QStringList& paths, QObject* context = nullptr, const Removed& removed = {});
    /// Removes the index files that lie beside media files: the same name with ".vdx" instead of the suffix.
    void removeVdxFiles(const QStringList& mediaPaths);
    static QString vdxPath(const QString& mediaPath);

    /// Waits for the removals that were asked for; for the end of the program.
    void finishRemovals();

private:
    SystemAssistant();

    Presenter m_presenter;
    std::unique_ptr<QThreadPool> m_disk; ///< one thread
};

} // namespace vemo_worker
