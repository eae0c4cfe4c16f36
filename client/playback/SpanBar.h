#pragma once

#include "SpanPick.h"

#include <axis/DayAxis.h>

#include <QWidget>

class QLabel;
class QTimeEdit;

namespace vemo_base {
class TransportButton;
}

namespace vemo_client {

/// The marked span as two fields of clock time, whether dragging on the time line marks one, words, and the button that
/// takes the mark away. An end of 00:00:00 means the end of the day; in a doubled hour the begin means its first pass
/// and the end its last. GUI thread.
class SpanBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SpanBar)

public:
    explicit SpanBar(QWidget* parent = nullptr);

    void setAxis(const vemo_base::DayAxis& axis);
    void setSpan(const std::optional<vemo_base::TimeSpan>& span);
    /// What Download would fetch, or what is to be done first. While the fields hold no span they say why instead.
    void setWords(const QString& words);

    /// The span that two clock times of a day mean; nothing when the end does not lie behind the begin.
    static std::optional<vemo_base::TimeSpan> spanOf(const vemo_base::DayAxis& axis, const QTime& begin,
                                                     const QTime& end);

signals:
    /// By the fields or the button. Nothing: none is marked, or the fields hold none.
    void signalSpanMarked(const std::optional<vemo_base::TimeSpan>& span);
    void signalMarkingChosen(bool marking);

protected:
    /// A click into a field takes the number under the pointer, so that typing replaces it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QTimeEdit* addField(const QString& name);
    void takeFields();
    void showWrong(bool isWrong);

    vemo_base::DayAxis m_axis;
    QTimeEdit* m_begin = nullptr;
    QTimeEdit* m_end = nullptr;
    QLabel* m_words = nullptr;
    QString m_summary;
    bool m_isWrong = false;
    vemo_base::TransportButton* m_clear = nullptr;
};

} // namespace vemo_client
