#pragma once

#include <QScrollArea>

namespace vemo_filesCenter {

/// The panel in which the groups of snapshots are scrolled: dark in both themes, with round corners. GUI thread.
class LocalSnapImagesArea final : public QScrollArea
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalSnapImagesArea)

public:
    explicit LocalSnapImagesArea(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
};

} // namespace vemo_filesCenter
