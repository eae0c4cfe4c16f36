#pragma once

#include <QString>
#include <QVector>

namespace vemo_client {

/// The part of a day that a time line shows: all of it, or a window of at least four minutes. Positions are fractions
/// of the day as those of DayAxis; places are fractions of the shown width. A value, no pixels.
class TimeView final
{
public:
    struct Mark
    {
        double position = 0;
        QString text; ///< empty: a tick alone
    };

    static constexpr double least = 4.0 / (24 * 60);

    double from() const { return m_from; }
    double length() const { return m_length; }
    double to() const { return m_from + m_length; }
    bool isWhole() const { return m_length >= 1; }
    bool isClosest() const { return m_length <= least; }

    double placeOf(double position) const { return (position - m_from) / m_length; }
    double positionAt(double place) const { return m_from + place * m_length; }

    /// `factor` above 1 comes closer; what lies at `place` stays there.
    void zoom(double factor, double place);
    /// Shows what lies `places` further on.
    void pan(double places);
    /// Turns to the position when it is out of view, with a tenth of the width ahead of it.
    void reveal(double position);
    void showAll();

    /// Ticks and labels of the shown part, hours or minutes as they fit on so many pixels.
    QVector<Mark> marks(double pixels) const;

private:
    void bound();

    double m_from = 0;
    double m_length = 1;
};

} // namespace vemo_client
