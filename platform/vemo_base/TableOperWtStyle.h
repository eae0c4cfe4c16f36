#pragma once

#include "vemo_base_global.h"

#include <QList>
#include <QObject>

class QBoxLayout;
class QCheckBox;

namespace vemo_base {

class TableWidget;

/// The styles that a row gives to the widgets in its cells: at rest, under the pointer, selected; and the binding of a
/// page's own header row to its table. GUI thread, owned by the page.
class VEMO_BASE_EXPORT TableOperWtStyle final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TableOperWtStyle)

public:
    enum class Style : int { Rest = 0, Hover, Selected };
    Q_ENUM(Style)

    explicit TableOperWtStyle(QObject* parent = nullptr);

    /// Makes the header row of a page the header of its table. The labels of `headerLayout` name the columns behind
    /// the first one and go; the box of `selAll` moves into the table's header and from then on checks all shown rows,
    /// shows the dash while some are checked, and is disabled while there are none. `operColumns` hold TableOperWts:
    /// they are neither sorted by nor elided.
    void setWts(QCheckBox* selAll, TableWidget* table, QBoxLayout* headerLayout, const QList<int>& operColumns);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void refresh();
    void placeBox();

    QCheckBox* m_selAll = nullptr;
    TableWidget* m_table = nullptr;
};

} // namespace vemo_base
