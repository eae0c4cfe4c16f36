#pragma once

#include <QVector>
#include <QWidget>

class QCheckBox;

namespace vemo_client {

/// Check boxes for what a user may do. An administrator has every power, so the others then show as checked and can't
/// be changed. GUI thread.
class PowersEdit final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PowersEdit)

public:
    explicit PowersEdit(QWidget* parent = nullptr);

    void setPowers(int powers);
    int powers() const;
    bool isAdministrator() const;

signals:
    void signalChanged();

private:
    void followAdministrator();

    QCheckBox* m_administrator;
    QVector<QCheckBox*> m_boxes; ///< as PowerWords::all()
    int m_single = 0;            ///< what is checked one by one
};

} // namespace vemo_client
