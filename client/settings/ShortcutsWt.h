#pragma once

#include <QWidget>

namespace vemo_client {

/// The keys of the client: what each does, by the place where it holds. GUI thread.
class ShortcutsWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ShortcutsWt)

public:
    enum class Place : int { Unknown = 0, Window, Tables, Cards, Player };

    ShortcutsWt(Place place, QWidget* parent = nullptr);
};

} // namespace vemo_client
