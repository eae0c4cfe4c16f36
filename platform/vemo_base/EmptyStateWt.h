#pragma once

#include "vemo_base_global.h"

#include <QWidget>

class QPushButton;

namespace vemo_base {

/// What a page shows when it has nothing: an icon, one sentence what is missing, one what to do and, where there is
/// something that does it, a button. GUI thread.
class VEMO_BASE_EXPORT EmptyStateWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(EmptyStateWt)

public:
    /// `iconName` is a name of Icons or the path of a picture; `buttonText` empty: no button.
    EmptyStateWt(const QString& iconName, const QString& missing, const QString& advice,
                 const QString& buttonText = QString(), QWidget* parent = nullptr);

    /// For pages that have a primary button already.
    void setButtonSecondary();

signals:
    void signalButtonClicked();

private:
    QPushButton* m_button = nullptr;
};

} // namespace vemo_base
