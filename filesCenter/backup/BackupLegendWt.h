#pragma once

#include <QDate>
#include <QTimer>
#include <QWidget>

namespace vemo_filesCenter {

/// One line that names what the colours and lines of a backup axis mean and, today, tells the time of the now-line. GUI
/// thread.
class BackupLegendWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupLegendWt)

public:
    explicit BackupLegendWt(QWidget* parent = nullptr);

    void setDay(const QDate& day);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QDate m_day;
    QTimer m_nowTimer;
};

} // namespace vemo_filesCenter
