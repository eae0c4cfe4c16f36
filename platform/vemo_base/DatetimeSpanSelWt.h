#pragma once

#include "vemo_base_global.h"

#include <QDateTime>
#include <QWidget>

class QBoxLayout;
class QGridLayout;
class QLabel;
class QPushButton;
class QTimeEdit;

namespace vemo_base {

class DayCalendar;

/// A pop-up in which a span of time is chosen: two months with a clock time each, and spans that people often want.
/// A span whose end does not lie behind its begin, or that is too long, can't be taken; words say why. Enter takes, Esc
/// or a click outside closes. Owned by its parent, hidden until it is asked for. GUI thread.
class VEMO_BASE_EXPORT DatetimeSpanSelWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DatetimeSpanSelWt)

public:
    enum class Fault : int { None = 0, NoTime, EndNotBehindBegin, TooLong };
    enum class QuickSpan : int { Unknown = 0, Today, Yesterday, Last7Days, Last30Days };

    explicit DatetimeSpanSelWt(QWidget* parent = nullptr);

    void setInitDateTime(const QDateTime& begin, const QDateTime& end);
    /// 31 days unless this says otherwise.
    void setMaxSpanSeconds(qint64 seconds);
    /// Shows it below the widget, on the same screen.
    void showBelow(const QWidget* widget);

    static Fault faultOf(const QDateTime& begin, const QDateTime& end, qint64 maxSeconds);
    /// The first and the last second of a span that ends on `today` (Yesterday: the day before).
    static QPair<QDateTime, QDateTime> quickSpan(QuickSpan span, const QDate& today);

signals:
    void signalDatetimeSpanSelected(const QDateTime& begin, const QDateTime& end);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Side
    {
        DayCalendar* calendar = nullptr;
        QTimeEdit* clock = nullptr;
    };

    Side addSide(const QString& name, QGridLayout* grid, int column);
    void addQuickSpan(const QString& text, QuickSpan span, QBoxLayout* column);
    static QDateTime timeOf(const Side& side);
    void check();
    void take();

    Side m_begin;
    Side m_end;
    QLabel* m_words;
    QPushButton* m_take;
    qint64 m_maxSeconds;
};

} // namespace vemo_base
