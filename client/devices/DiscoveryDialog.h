#pragma once

#include "NetworkSearch.h"
#include "TitledDialog.h"

#include <QTimer>

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QStackedLayout;

namespace vemo_base {
class TableWidget;
}

namespace vemo_client {

class NoticeCard;
class RecorderLogins;

/// Looks for recorders on the network and adds those that are chosen, all with one login. Says when nothing answered
/// and what to check, and asks about a known recorder that answers at a new address. GUI thread.
class DiscoveryDialog final : public TitledDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DiscoveryDialog)

public:
    DiscoveryDialog(RecorderLogins* logins, QWidget* parent);
    ~DiscoveryDialog() override;

    void accept() override;

signals:
    /// The person rather types an address.
    void signalAddByAddress();

private:
    QWidget* makeTable();
    QWidget* makeLogin();
    void search();
    void showFound();
    void showProgress();
    void showMoved();
    void showChosen();
    void takeFinished(const vms_sdk::Error& error);

    RecorderLogins* m_logins;
    NetworkSearch m_search;
    QTimer m_progressTimer;
    QLabel* m_words;
    QProgressBar* m_progress;
    QStackedLayout* m_content;
    QLabel* m_nothing;
    vemo_base::TableWidget* m_table;
    NoticeCard* m_moved;
    int m_movedIndex = -1; ///< of what the notice asks about
    QLineEdit* m_user = nullptr;
    QLineEdit* m_password = nullptr;
    QPushButton* m_again;
    QPushButton* m_add;
};

} // namespace vemo_client
