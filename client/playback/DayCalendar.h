#pragma once

#include <QCalendarWidget>

namespace vemo_client {

/// The month by which a day is picked, in the client's look: today ringed, the picked day filled, days to come dimmed
/// and not to be picked. GUI thread.
class DayCalendar final : public QCalendarWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DayCalendar)

public:
    explicit DayCalendar(QWidget* parent = nullptr);

protected:
    void paintCell(QPainter* painter, const QRect& rect, const QDate& date) const override;
    void changeEvent(QEvent* event) override;

private:
    void dress();
};

} // namespace vemo_client
