#pragma once

#include <QToolButton>

namespace vemo_client {

class NoticesPopup;

/// The bell of the top bar. It carries the number of failures that nobody has read yet, a dot while there is only other
/// news, and opens the list of kept notices. GUI thread.
class NoticeBell final : public QToolButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NoticeBell)

public:
    explicit NoticeBell(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();
    void open();

    NoticesPopup* m_popup = nullptr; ///< made when it is first asked for
};

} // namespace vemo_client
