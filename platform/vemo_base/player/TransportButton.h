#pragma once

#include "vemo_base_global.h"

#include <QAbstractButton>

namespace vemo_base {

/// A button of the player with an icon alone: 32 px and quiet, or 40 px, round and filled for playing; soft where
/// another button of the page is primary. A quiet one that is checked stays tinted. The tool tip, with its key, is the
/// accessible name. Focus comes by keyboard only, so that the player's keys go on working after a click.
class VEMO_BASE_EXPORT TransportButton final : public QAbstractButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TransportButton)

public:
    enum class Kind : int { Unknown = 0, Quiet, Round, SoftRound };

    TransportButton(Kind kind, const QString& iconName, const QString& tip, QWidget* parent = nullptr);

    void setFace(const QString& iconName, const QString& tip);
    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    const Kind m_kind;
    QString m_iconName;
    bool m_ring = false;
};

} // namespace vemo_base
