#pragma once

#include "DayAxis.h"
#include "SpanPick.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTimeEdit;

namespace vemo_client {

/// The marked span as two fields of clock time, its length in words, and the button that takes the mark away. An end of
/// 00:00:00 means the end of the day; in a doubled hour the begin means its first pass and the end its last. GUI
/// thread.
class SpanBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SpanBar)

public:
    explicit SpanBar(QWidget* parent = nullptr);

    void setAxis(const DayAxis& axis);
    void setSpan(const std::optional<TimeSpan>& span);

    /// The span that two clock times of a day mean; nothing when the end does not lie behind the begin.
    static std::optional<TimeSpan> spanOf(const DayAxis& axis, const QTime& begin, const QTime& end);

signals:
    /// By the fields or the button. Nothing: none is marked, or the fields hold none.
    void signalSpanMarked(const std::optional<vemo_client::TimeSpan>& span);

protected:
    /// A click into a field takes the number under the pointer, so that typing replaces it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QTimeEdit* addField(const QString& name);
    void takeFields();
    void showWords(const QString& words, bool isWrong);

    DayAxis m_axis;
    QTimeEdit* m_begin = nullptr;
    QTimeEdit* m_end = nullptr;
    QLabel* m_words = nullptr;
    QPushButton* m_clear = nullptr;
};

} // namespace vemo_client
