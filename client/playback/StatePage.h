#pragma once

#include <QString>
#include <QWidget>

#include <functional>

namespace vemo_base {
class EmptyStateWt;
}

namespace vemo_client {

/// What stands in place of the playback page's pictures and recordings while there are none: changes what it says
/// without flicker, and lets a person do what helps. GUI thread.
class StatePage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StatePage)

public:
    explicit StatePage(QWidget* parent = nullptr);

    /// `deed` empty: no button.
    void say(const QString& icon, const QString& missing, const QString& advice, const QString& deed = QString(),
             const std::function<void()>& act = {});

private:
    vemo_base::EmptyStateWt* m_state = nullptr;
    QString m_key; ///< what it says, so that it is made anew only when that changes
};

} // namespace vemo_client
