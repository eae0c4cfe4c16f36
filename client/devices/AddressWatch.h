#pragma once

#include "NetworkSearch.h"

#include <QObject>
#include <QSet>
#include <QTimer>

namespace vemo_client {

class RecorderLogins;

/// Looks for recorders that can't be reached where they were: a known one that answers elsewhere is told of by a
/// notice, with a button that takes the new address; nothing is changed without it. Asks the network while one is away,
/// at most every five minutes, and once for recorders whose endpoint is not known yet. GUI thread; as long as the
/// window.
class AddressWatch final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AddressWatch)

public:
    explicit AddressWatch(RecorderLogins* logins, QObject* parent = nullptr);

private:
    bool hasReason();
    void look();
    void takeFound();
    void tell(const NetworkSearch::Found& found);

    RecorderLogins* m_logins;
    NetworkSearch m_search;
    QTimer m_timer;
    QSet<QString> m_told; ///< recorder and address of which a notice was made
    bool m_hasLooked = false;
};

} // namespace vemo_client
