#pragma once

#include <QDate>
#include <QWidget>

class QLineEdit;

namespace vemo_client {

class DayCalendar;
class RecorderLogins;
class RecorderTree;

/// The leading column of the playback page: filter, recorders with their channels, calendar. Asks before it removes a
/// recorder. GUI thread.
class RecorderColumn final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecorderColumn)

public:
    explicit RecorderColumn(RecorderLogins* logins, QWidget* parent = nullptr);

    RecorderTree* tree() const { return m_tree; }
    QDate day() const;
    void setDay(const QDate& day);

    void addRecorder();
    void changeRecorder(const QString& devId);

signals:
    void signalDayPicked(const QDate& day);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void removeRecorder(const QString& devId);

    RecorderLogins* m_logins;
    RecorderTree* m_tree;
    DayCalendar* m_calendar;
    QLineEdit* m_filter;
};

} // namespace vemo_client
