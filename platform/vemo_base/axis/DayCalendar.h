#pragma once

#include "ThemeTokens.h"
#include "vemo_base_global.h"

#include <QCalendarWidget>
#include <QSet>

namespace vemo_base {

/// The month by which a day is picked, in the client's look: today ringed, the picked day filled, marked days with a
/// dot, days that can't be picked dimmed. GUI thread.
class VEMO_BASE_EXPORT DayCalendar final : public QCalendarWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DayCalendar)

public:
    explicit DayCalendar(QWidget* parent = nullptr);

    /// Days of the month shown, 1 to 31; what follows the month is the caller's, by currentPageChanged().
    void setMarkedDays(const QSet<int>& days);
    const QSet<int>& markedDays() const { return m_markedDays; }
    /// The widget's ground: the surface of a column at first.
    void setGround(Token ground);

protected:
    void paintCell(QPainter* painter, const QRect& rect, const QDate& date) const override;
    void changeEvent(QEvent* event) override;

private:
    void dress();

    QSet<int> m_markedDays;
    Token m_ground = Token::Surface;
};

} // namespace vemo_base
