#pragma once

#include "vemo_base_global.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace vemo_base {

/// The line below a table: what is checked, or a note with its icon, leading; the keys that do something trailing. It
/// keeps its height when it is empty. GUI thread.
class VEMO_BASE_EXPORT TableFooter final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TableFooter)

public:
    explicit TableFooter(QWidget* parent = nullptr);

    void setText(const QString& text);
    QString text() const;
    /// An icon ahead of the text; empty: none.
    void setIcon(const QString& iconName);
    /// A key cap and what the key does.
    void addKey(const QString& key, const QString& words);

    QSize minimumSizeHint() const override;

private:
    class Leading;

    Leading* m_leading;
    QHBoxLayout* m_keys;
};

} // namespace vemo_base
