#pragma once

#include "ModulePages.h"
#include "QueueWatch.h"

#include <QHash>
#include <QWidget>

#include <functional>

class QStackedWidget;

namespace vemo_base {
class BaseForm;
} // namespace vemo_base

namespace vemo_client {

class RecorderLogins;
class StatusBar;
class TopBar;

/// The client as a user sees it who has logged in: top bar, the modules' pages one upon another, status bar, toasts. A
/// page that the user has no power for is not offered; the others are made when they are shown for the first time. It
/// owns the forms that it is given, and remembers the page that was shown. GUI thread.
class ShellWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ShellWt)

public:
    explicit ShellWt(RecorderLogins* logins, QWidget* parent = nullptr);
    ~ShellWt() override;

    void placeForm(vemo_base::BaseForm* form);
    /// The page that was shown last, or else the first one that helps.
    void showFirstPage();
    /// Does nothing when the page is not offered, or when the person wants to stay on the one that is shown.
    void showModule(const QString& key);
    void showDownloads();
    /// Leads to the devices and looks for some on the network.
    void findRecorders();
    /// So many of the asked downloads are in the queue now; the others were in it before.
    void tellQueued(int added, int asked);

    /// Asked before the page is left and before the client ends; false: the person wants to stay.
    void setLeaveCheck(const QString& key, const std::function<bool()>& mayLeave);
    /// Tells what would be lost or cut off if the client ended now, as a sentence; empty: nothing.
    void addQuitConcern(const std::function<QString()>& concern);
    /// Asks the person where something would be lost; true: the client may end.
    bool mayQuit();
    /// Keeps the page for the next start and has the pages keep theirs.
    void remember();

    QueueWatch* queue() { return &m_queue; }
    TopBar* topBar() { return m_topBar; }

signals:
    void signalAboutToClose();
    void signalRecordersWanted();
    /// The person wants to see this recorder.
    void signalRecorderAsked(const QString& devId);

private:
    void addWidget(const QString& key, QWidget* page);
    void showOffline();
    void tellEmptied(int done, int failed);
    /// F6: the first focusable widget of the next area.
    void nextArea();
    QList<QWidget*> areas() const;

    RecorderLogins* m_logins;
    QueueWatch m_queue;
    TopBar* m_topBar = nullptr;
    QStackedWidget* m_forms = nullptr;
    StatusBar* m_statusBar = nullptr;
    QVector<ModulePage> m_offered;
    QHash<QString, QWidget*> m_pageByKey; ///< those that were made
    QHash<QString, std::function<bool()>> m_leaveChecks;
    QVector<std::function<QString()>> m_quitConcerns;
    QString m_currentKey;
};

} // namespace vemo_client
