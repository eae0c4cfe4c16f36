#pragma once

#include "TableOperWtStyle.h"
#include "vemo_base_global.h"

#include <QString>
#include <QWidget>

class QHBoxLayout;
class QToolButton;

namespace vemo_base {

/// Base of the widgets that stand in the cells of a TableWidget: carries the key of its row's record and the row's
/// current style, which the table sets when pointer or selection move. Made and deleted with the row's coming into view
/// and leaving it, so it holds nothing that can't be shown again from the record. GUI thread.
class VEMO_BASE_EXPORT TableOperWt : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TableOperWt)

public:
    explicit TableOperWt(QWidget* parent = nullptr);
    ~TableOperWt() override;

    void setKey(const QString& key) { m_key = key; }
    QString getKey() const { return m_key; }
    TableOperWtStyle::Style getCurStyle() const { return m_style; }
    void setCurStyle(TableOperWtStyle::Style style);

    /// A button of the Oper column, 28 px, in the middle of the cell behind those already there. `toolTip` is its
    /// accessible name as well. It takes no focus: the row's menu does by keyboard what the buttons do.
    QToolButton* addOperButton(const QString& objectName, const QString& iconName, const QString& toolTip);
    /// Tool tip and accessible name together.
    static void setOperButtonText(QToolButton* button, const QString& text);

protected:
    /// The row's style is another one; the base repaints.
    virtual void styleChanged();

private:
    QString m_key;
    QHBoxLayout* m_buttons = nullptr;
    TableOperWtStyle::Style m_style = TableOperWtStyle::Style::Rest;
};

} // namespace vemo_base
