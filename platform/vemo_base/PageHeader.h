#pragma once

#include "vemo_base_global.h"

#include <QWidget>

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace vemo_base {

/// The head of a page: its title, a summary beside it, the page's buttons trailing. Where the window or the page is too
/// narrow the buttons go below as a group. Figures in the summary change in place. GUI thread.
class VEMO_BASE_EXPORT PageHeader final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PageHeader)

public:
    enum class Weight : int { Secondary = 0, Primary };

    explicit PageHeader(const QString& title, QWidget* parent = nullptr);

    void setTitle(const QString& title);
    void setSummary(const QString& summary);
    QString summary() const;
    /// The owner is this header; a page has one primary button at most.
    QPushButton* addButton(const QString& objectName, const QString& iconName, const QString& text, Weight weight);
    /// A field or a filter, behind the buttons already there.
    void addTool(QWidget* tool);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void arrange();
    void fitSummary();

    QGridLayout* m_layout;
    QLabel* m_title;
    QLabel* m_summary;
    QWidget* m_buttons;
    QHBoxLayout* m_buttonRow;
    QString m_summaryText;
    bool m_isWrapped = false;
};

} // namespace vemo_base
