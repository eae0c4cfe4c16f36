#pragma once

#include "vemo_base_global.h"

#include <QVector>
#include <QWidget>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QToolButton;

namespace vemo_base {

/// The foot of a paged list: which entries are shown of how many, how many a page holds, the pages by number with
/// first, previous, next and last, and a field that goes to a page. Holds no entries: it tells what the person wants,
/// the owner shows the page, and after a change of the list the owner says where it stands by updateTotalCnt(). GUI
/// thread.
class VEMO_BASE_EXPORT PageEditWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PageEditWt)

public:
    explicit PageEditWt(QWidget* parent = nullptr);

    int getPageSize() const { return m_pageSize; }
    /// Counted from 1, also when there is nothing.
    int getCurPageNum() const { return m_page; }
    int getPageCnt() const { return pageCount(m_total, m_pageSize); }
    /// Tells nothing; a page beyond the end becomes the last one.
    void updateTotalCnt(int total, int curPage);

    /// At least 1.
    static int pageCount(int total, int pageSize);
    /// The pages that have a button: first, last and those around the current one; 0 where others are left out.
    static QVector<int> shownPages(int count, int current);

signals:
    /// The current page is the first one by then.
    void signalPageSizeChanged(int pageSize);
    /// It is the current page by then.
    void signalGoToPage(int page);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QToolButton* addStep(const QString& objectName, const QString& iconName, const QString& toolTip);
    void goTo(int page);
    void takeField();
    void refresh();
    void placePages();

    QLabel* m_range;
    QComboBox* m_sizes;
    QHBoxLayout* m_row;
    QHBoxLayout* m_pages;
    QToolButton* m_first;
    QToolButton* m_previous;
    QToolButton* m_next;
    QToolButton* m_last;
    QLabel* m_goTo;
    QLineEdit* m_field;
    QVector<QWidget*> m_pageButtons;
    int m_total = 0;
    int m_pageSize = 0;
    int m_page = 1;
};

} // namespace vemo_base
