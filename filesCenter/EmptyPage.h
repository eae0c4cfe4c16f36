#pragma once

#include <QWidget>

namespace vemo_filesCenter {

/// A page that shows its title and, in the middle, why there is nothing on it.
class EmptyPage : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(EmptyPage)

public:
    EmptyPage(const QString& title, const QString& iconPath, const QString& missing, QWidget* parent);
};

} // namespace vemo_filesCenter
