#pragma once

#include "axis/DayCalendar.h"
#include "vemo_base_global.h"

#include <QFrame>

namespace vemo_base {

/// A month in a card of its own below the field that asked for it; closes by a pick, Esc or a click elsewhere, and
/// deletes itself. GUI thread.
class VEMO_BASE_EXPORT DatePopup final : public QFrame
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DatePopup)

public:
    /// `meaning` of the marked days; empty: no line for it.
    DatePopup(const QDate& date, const QString& meaning, QWidget* parent);

    DayCalendar* calendar() const { return m_calendar; }
    /// Below `field` with their leading edges in line, above it where the screen ends.
    void showBelow(const QWidget* field);

signals:
    void signalPicked(const QDate& date);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    DayCalendar* m_calendar;
};

} // namespace vemo_base
