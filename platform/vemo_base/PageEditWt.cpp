#include "PageEditWt.h"

#include "Icons.h"
#include "StylePainter.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QToolButton>

namespace vemo_base {

namespace {

const QVector<int> pageSizes{20, 50, 100, 200};

constexpr int buttonSize = 28;
constexpr double buttonRadius = 6;
constexpr int groupGap = 24;
constexpr int stepGap = 4;
constexpr int fieldWidth = 56;
constexpr int mostPages = 1'000'000;

/// A page's number: the current one on the selection's ground.
class PageButton final : public QToolButton
{
public:
    PageButton(int page, bool isCurrent, QWidget* parent)
        : QToolButton(parent)
        , m_isCurrent(isCurrent)
    {
        setText(QLocale().toString(page));
        setAccessibleName(QObject::tr("Page %1").arg(page));
        setMinimumSize(qMax(buttonSize, fontMetrics().horizontalAdvance(text()) + 12), buttonSize);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const ThemeMode mode = StylePainter::modeOf(palette());
        if (m_isCurrent || isDown() || underMouse())
            StylePainter::box(&painter, rect(), buttonRadius,
                              themeColor(mode, m_isCurrent ? Token::Select
                                               : isDown()  ? Token::Press
                                                           : Token::Hover),
                              QColor());
        if (hasFocus())
            StylePainter::focusRing(&painter, rect(), buttonRadius, mode);
        QFont words = font();
        if (m_isCurrent)
            words.setWeight(QFont::DemiBold);
        painter.setFont(words);
        painter.setPen(themeColor(mode, m_isCurrent ? Token::Text : Token::Text2));
        painter.drawText(rect(), Qt::AlignCenter, text());
    }

private:
    bool m_isCurrent;
};

} // namespace

PageEditWt::PageEditWt(QWidget* parent)
    : QWidget(parent)
    , m_range(new QLabel(this))
    , m_sizes(new QComboBox(this))
    , m_row(new QHBoxLayout(this))
    , m_pages(new QHBoxLayout)
    , m_goTo(new QLabel(tr("Go to"), this))
    , m_field(new QLineEdit(this))
    , m_pageSize(pageSizes.first())
{
    m_range->setTextFormat(Qt::PlainText);
    m_range->setForegroundRole(QPalette::PlaceholderText);
    m_goTo->setForegroundRole(QPalette::PlaceholderText);
    m_sizes->setObjectName(QStringLiteral("pageSize"));
    m_sizes->setAccessibleName(tr("Entries on a page"));
    m_sizes->setToolTip(m_sizes->accessibleName());
    for (const int size : pageSizes)
        m_sizes->addItem(tr("%1 / page").arg(size), size);
    m_field->setObjectName(QStringLiteral("pageNumber"));
    m_field->setFixedWidth(fieldWidth);
    m_field->setAccessibleName(tr("Go to page"));
    m_field->setToolTip(m_field->accessibleName());
    m_field->setValidator(new QIntValidator(1, mostPages, m_field));

    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(stepGap);
    m_row->addWidget(m_range);
    m_row->addSpacing(groupGap - stepGap);
    m_row->addWidget(m_sizes);
    m_row->addStretch(1);
    m_first = addStep(QStringLiteral("firstPage"), QStringLiteral("first"), tr("First page"));
    m_previous = addStep(QStringLiteral("previousPage"), QStringLiteral("chev-left"), tr("Previous page"));
    m_pages->setSpacing(stepGap);
    m_row->addLayout(m_pages);
    m_next = addStep(QStringLiteral("nextPage"), QStringLiteral("chev-right"), tr("Next page"));
    m_last = addStep(QStringLiteral("lastPage"), QStringLiteral("last"), tr("Last page"));
    m_row->addSpacing(groupGap - stepGap);
    m_row->addWidget(m_goTo);
    m_row->addSpacing(stepGap);
    m_row->addWidget(m_field);

    connect(m_first, &QToolButton::clicked, this, [this] { goTo(1); });
    connect(m_previous, &QToolButton::clicked, this, [this] { goTo(m_page - 1); });
    connect(m_next, &QToolButton::clicked, this, [this] { goTo(m_page + 1); });
    connect(m_last, &QToolButton::clicked, this, [this] { goTo(getPageCnt()); });
    connect(m_field, &QLineEdit::returnPressed, this, &PageEditWt::takeField);
    connect(m_field, &QLineEdit::editingFinished, this, [this] { m_field->setText(QString::number(m_page)); });
    connect(m_sizes, QOverload<int>::of(&QComboBox::activated), this, [this](int at) {
        const int size = m_sizes->itemData(at).toInt();
        if (size == m_pageSize)
            return;
        m_pageSize = size;
        m_page = 1;
        refresh();
        emit signalPageSizeChanged(m_pageSize);
    });
    refresh();
}

QToolButton* PageEditWt::addStep(const QString& objectName, const QString& iconName, const QString& toolTip)
{
    auto* button = new QToolButton(this);
    button->setObjectName(objectName);
    button->setIcon(Icons::icon(iconName));
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setAutoRaise(true);
    button->setFixedSize(buttonSize, buttonSize);
    m_row->addWidget(button);
    return button;
}

int PageEditWt::pageCount(int total, int pageSize)
{
    return pageSize <= 0 || total <= 0 ? 1 : (total - 1) / pageSize + 1;
}

QVector<int> PageEditWt::shownPages(int count, int current)
{
    // Always as many as fit without a gap: the row keeps its width while a person steps.
    constexpr int all = 7;
    constexpr int atEnd = 5;
    QVector<int> pages;
    const auto add = [&pages](int from, int to) {
        for (int page = from; page <= to; ++page)
            pages.append(page);
    };
    if (count <= all) {
        add(1, count);
    } else if (current < atEnd) {
        add(1, atEnd);
        pages << 0 << count;
    } else if (current > count - atEnd + 1) {
        pages << 1 << 0;
        add(count - atEnd + 1, count);
    } else {
        pages << 1 << 0;
        add(current - 1, current + 1);
        pages << 0 << count;
    }
    return pages;
}

void PageEditWt::updateTotalCnt(int total, int curPage)
{
    m_total = qMax(0, total);
    m_page = qBound(1, curPage, getPageCnt());
    refresh();
}

void PageEditWt::goTo(int page)
{
    const int bounded = qBound(1, page, getPageCnt());
    if (bounded == m_page)
        return;
    m_page = bounded;
    refresh();
    emit signalGoToPage(m_page);
}

void PageEditWt::takeField()
{
    goTo(m_field->text().toInt());
    m_field->setText(QString::number(m_page));
    m_field->selectAll();
}

void PageEditWt::refresh()
{
    const int first = (m_page - 1) * m_pageSize + 1;
    const int last = qMin(m_total, m_page * m_pageSize);
    m_range->setText(m_total == 0 ? tr("0 entries") : tr("%1-%2 of %3").arg(first).arg(last).arg(m_total));
    m_field->setText(QString::number(m_page));
    const bool isFirst = m_page <= 1;
    const bool isLast = m_page >= getPageCnt();
    m_first->setEnabled(!isFirst);
    m_previous->setEnabled(!isFirst);
    m_next->setEnabled(!isLast);
    m_last->setEnabled(!isLast);
    m_field->setEnabled(getPageCnt() > 1);
    placePages();
}

void PageEditWt::placePages()
{
    // Not at once: a page's button is on the stack when its click leads here.
    for (QWidget* button : qAsConst(m_pageButtons)) {
        button->hide();
        button->deleteLater();
    }
    m_pageButtons.clear();
    // Where it is narrow the field and the steps do without the numbers.
    constexpr int roomForNumbers = 760;
    const QVector<int> pages = width() < roomForNumbers ? QVector<int>{m_page} : shownPages(getPageCnt(), m_page);
    for (const int page : pages) {
        QWidget* widget = nullptr;
        if (page == 0) {
            auto* gap = new QLabel(QString(QChar(0x2026)), this);
            gap->setAlignment(Qt::AlignCenter);
            gap->setForegroundRole(QPalette::PlaceholderText);
            gap->setFixedSize(buttonSize, buttonSize);
            widget = gap;
        } else {
            auto* button = new PageButton(page, page == m_page, this);
            connect(button, &QToolButton::clicked, this, [this, page] { goTo(page); });
            widget = button;
        }
        widget->show();
        m_pages->addWidget(widget);
        m_pageButtons.append(widget);
    }
}

void PageEditWt::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placePages();
}

} // namespace vemo_base
