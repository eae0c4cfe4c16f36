#pragma once

#include "vemo_base_global.h"

#include <QWidget>

class QButtonGroup;
class QHBoxLayout;

namespace vemo_base {

/// A few choices of which one holds, side by side in one outline. Tab reaches the bar, arrows change the choice, as
/// with radio buttons. GUI thread.
class VEMO_BASE_EXPORT SegmentedBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SegmentedBar)

public:
    explicit SegmentedBar(const QString& accessibleName, QWidget* parent = nullptr);

    /// `value` tells it from the others; the first one added holds until another is chosen.
    void addChoice(int value, const QString& text);
    int value() const;
    /// Without signalChosen.
    void setValue(int value);

signals:
    /// By the person.
    void signalChosen(int value);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QHBoxLayout* m_layout;
    QButtonGroup* m_group;
};

} // namespace vemo_base
