#pragma once

#include <QWidget>

namespace vemo_client {

/// A dark panel with the time lines of a made-up day and a sentence below them: what stands beside the form of a first
/// start. The same in both themes. GUI thread.
class TimelinesWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TimelinesWt)

public:
    TimelinesWt(const QString& sentence, const QString& more, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintLines(QPainter* painter) const;

    QString m_sentence;
    QString m_more;
};

} // namespace vemo_client
