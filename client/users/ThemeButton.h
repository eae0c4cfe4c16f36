#pragma once

#include <QToolButton>

namespace vemo_client {

/// The button by which the theme is chosen: dark, light, or as the desktop has it. GUI thread.
class ThemeButton final : public QToolButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ThemeButton)

public:
    explicit ThemeButton(QWidget* parent = nullptr);
};

} // namespace vemo_client
