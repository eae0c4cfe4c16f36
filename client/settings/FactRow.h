#pragma once

#include <QWidget>

class QGridLayout;

namespace vemo_client {

/// Something that is told and not changed here, in the columns of the settings: label, value, and a button that leads
/// to where it lies. GUI thread.
class FactRow final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FactRow)

public:
    FactRow(const QString& label, const QString& value, QWidget* parent = nullptr);

    /// At most one; a click is told by signalClicked.
    void setButton(const QString& icon, const QString& text);

signals:
    void signalClicked();

private:
    QGridLayout* m_layout;
    QString m_label;
};

} // namespace vemo_client
