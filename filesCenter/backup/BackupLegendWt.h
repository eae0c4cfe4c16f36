#pragma once

#include <QWidget>

namespace vemo_filesCenter {

/// One line that names what the colours and lines of a backup axis mean. GUI thread.
class BackupLegendWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupLegendWt)

public:
    explicit BackupLegendWt(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vemo_filesCenter
