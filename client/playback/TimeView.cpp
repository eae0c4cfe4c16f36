#include "TimeView.h"

#include <QtGlobal>

#include <cmath>

namespace vemo_client {

namespace {

constexpr int minutesADay = 24 * 60;
constexpr int minutesAnHour = 60;
constexpr int steps[] = {1, 2, 5, 10, 15, 30, 60, 120, 180, 360, 720};
constexpr double hourRoom = 24;  ///< "24"
constexpr double clockRoom = 56; ///< "23:45"
constexpr double tickRoom = 7;
constexpr double lead = 0.1;

bool divides(int step, int minute)
{
    return minute % step == 0;
}

} // namespace

void TimeView::bound()
{
    m_length = qBound(least, m_length, 1.0);
    m_from = qBound(0.0, m_from, 1 - m_length);
}

void TimeView::zoom(double factor, double place)
{
    if (factor <= 0)
        return;
    const double position = positionAt(place);
    m_length = qBound(least, m_length / factor, 1.0);
    m_from = position - place * m_length;
    bound();
}

void TimeView::pan(double places)
{
    m_from += places * m_length;
    bound();
}

void TimeView::reveal(double position)
{
    if (position >= m_from && position <= to())
        return;
    m_from = position - lead * m_length;
    bound();
}

void TimeView::showAll()
{
    *this = TimeView();
}

QVector<TimeView::Mark> TimeView::marks(double pixels) const
{
    const double pixelsAMinute = pixels / (m_length * minutesADay);
    int tickStep = minutesAnHour;
    int labelStep = 0;
    for (auto step = std::rbegin(steps); step != std::rend(steps); ++step) {
        if (*step * pixelsAMinute >= (*step >= minutesAnHour ? hourRoom : clockRoom))
            labelStep = *step;
        if (*step <= minutesAnHour && *step * pixelsAMinute >= tickRoom && divides(*step, tickStep))
            tickStep = *step;
    }
    // Every label stands on a tick.
    if (labelStep > 0 && !divides(tickStep, labelStep))
        tickStep = labelStep;
    QVector<Mark> marks;
    const int first = int(std::ceil(m_from * minutesADay / tickStep - 1e-9)) * tickStep;
    for (int minute = first; minute <= to() * minutesADay + 1e-6; minute += tickStep) {
        Mark mark{double(minute) / minutesADay, {}};
        if (labelStep > 0 && divides(labelStep, minute)) {
            const int hour = minute / minutesAnHour;
            mark.text = labelStep >= minutesAnHour ? QString::number(hour)
                                                   : QStringLiteral("%1:%2")
                                                         .arg(hour, 2, 10, QLatin1Char('0'))
                                                         .arg(minute % minutesAnHour, 2, 10, QLatin1Char('0'));
        }
        marks.append(mark);
    }
    return marks;
}

} // namespace vemo_client
