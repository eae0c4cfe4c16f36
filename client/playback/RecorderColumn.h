#pragma once

#include <QDate>
#include <QWidget>

class QLineEdit;
class QPushButton;

namespace vemo_base {
class DayCalendar;
}

namespace vemo_client {

class RecorderLogins;
class RecorderTree;

/// The leading column of the playback page: filter, recorders with their channels, calendar, search. Asks before it
/// removes a recorder. GUI thread.
class RecorderColumn final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecorderColumn)

public:
    explicit RecorderColumn(RecorderLogins* logins, QWidget* parent = nullptr);

    RecorderTree* tree() const { return m_tree; }
    QDate day() const;
    void setDay(const QDate& day);

    vemo_base::DayCalendar* calendar() const { return m_calendar; }
    /// What the button below the calendar does: search, or cancel the search that runs.
    void setSearching(bool searching, bool canSearch);

    void addRecorder();
    void changeRecorder(const QString& devId);

signals:
    void signalDayPicked(const QDate& day);
    void signalSearchClicked();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void removeRecorder(const QString& devId);

    RecorderLogins* m_logins;
    RecorderTree* m_tree;
    vemo_base::DayCalendar* m_calendar;
    QLineEdit* m_filter;
    QPushButton* m_search;
};

} // namespace vemo_client
