#pragma once

#include <QWidget>

namespace vemo_client {

class RecorderLogins;
class RecorderTree;

/// The leading column of the live page: filter, recorders with their channels, what to do with them. GUI thread.
class LiveColumn final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LiveColumn)

public:
    explicit LiveColumn(RecorderLogins* logins, QWidget* parent = nullptr);

    RecorderTree* tree() const { return m_tree; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    RecorderTree* m_tree;
};

} // namespace vemo_client
