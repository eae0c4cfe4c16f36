#pragma once

#include "vemo_base_global.h"

#include <QDate>
#include <QLineEdit>
#include <QPointer>

namespace vemo_base {

class DatePopup;

/// A field that shows a day in the person's format and opens a calendar to pick another one: by a click, Space, Enter
/// or Down. Page Up and Page Down go a day back and on. The calendar can mark days of the month that it shows. GUI
/// thread.
class VEMO_BASE_EXPORT DateSelectLineEdit final : public QLineEdit
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DateSelectLineEdit)

public:
    explicit DateSelectLineEdit(QWidget* parent = nullptr);

    QDate date() const { return m_date; }
    /// Announces nothing; an invalid date changes nothing.
    void setDate(const QDate& date);
    /// Marks days, 1 to 31, of the month that was announced last.
    void setHotDays(const QList<int>& days);
    /// What the marks mean, told below the month; empty: nothing is told.
    void setHotDaysMeaning(const QString& meaning) { m_meaning = meaning; }

    void showCalendar();
    QSize sizeHint() const override;

signals:
    /// The person picked another day.
    void signalDateChanged(const QDate& date);
    /// The calendar shows this month and wants its marks.
    void signalMonthShown(int year, int month);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void pick(const QDate& date);

    QDate m_date;
    QString m_meaning;
    QPointer<DatePopup> m_popup; ///< only while it is open
};

} // namespace vemo_base
