#pragma once

#include <QString>

#include <functional>

class QObject;

namespace vemo_client {

/// A notification of the desktop, outside the window. GUI thread; returns at once.
class DesktopNotification final
{
public:
    DesktopNotification() = delete;

    /// `otherwise` is called, later, where the desktop has no service for notifications; not when `context` is gone by
    /// then.
    static void show(const QString& title, const QString& text, QObject* context,
                     const std::function<void()>& otherwise);
};

} // namespace vemo_client
