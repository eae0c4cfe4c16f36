#pragma once

#include "vemo_base_global.h"

#include <QWidget>

namespace vemo_base {

/// The picture of a key with its name, beside the words that tell what it does. GUI thread.
class VEMO_BASE_EXPORT KeyCap final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(KeyCap)

public:
    KeyCap(const QString& key, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_key;
};

} // namespace vemo_base
