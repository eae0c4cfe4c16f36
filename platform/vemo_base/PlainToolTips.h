#pragma once

#include "vemo_base_global.h"

#include <QObject>

class QHelpEvent;
class QWidget;

namespace vemo_base {

/// Shows the tool tips of widgets and of the items of views as the plain text that they are: names of devices, people
/// and files stand in them, and Qt would take what looks like markup for it and open the pictures it names. One object
/// for the application, made by the style. What calls QToolTip::showText() itself uses shown() for such names.
class VEMO_BASE_EXPORT PlainToolTips final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PlainToolTips)

public:
    explicit PlainToolTips(QObject* parent = nullptr);
    ~PlainToolTips() override;

    /// The text such that a tool tip or a label shows every letter of it.
    static QString shown(const QString& text);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static bool show(QWidget* widget, const QHelpEvent& event);
};

} // namespace vemo_base
