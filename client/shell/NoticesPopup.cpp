#include "NoticesPopup.h"

#include "NoticeDelegate.h"
#include "NoticesModel.h"

#include <Notices.h>
#include <StylePainter.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QStackedWidget>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

using vemo_base::Notices;

constexpr int popupWidth = 420;
constexpr int highest = 520;
constexpr int headHeight = 48;
constexpr int emptyHeight = 120;
constexpr int titlePixels = 14;
constexpr int offset = 8;
constexpr int edge = 1;

} // namespace

NoticesPopup::NoticesPopup(QWidget* parent)
    : QFrame(parent, Qt::Popup)
    , m_model(new NoticesModel(this))
    , m_delegate(new NoticeDelegate(this))
    , m_pages(new QStackedWidget(this))
    , m_list(new QListView(m_pages))
    , m_clear(new QPushButton(tr("Clear"), this))
{
    setAccessibleName(tr("Notices"));
    auto* title = new QLabel(tr("Notices"), this);
    QFont font = title->font();
    font.setPixelSize(titlePixels);
    font.setWeight(QFont::DemiBold);
    title->setFont(font);
    title->setFixedHeight(headHeight);
    m_clear->setProperty("kind", QStringLiteral("quiet"));
    m_clear->setToolTip(tr("Forget all notices"));
    connect(m_clear, &QPushButton::clicked, &Notices::instance(), &Notices::clear);
    auto* head = new QHBoxLayout;
    head->setContentsMargins(16, 0, 8, 0);
    head->addWidget(title, 1);
    head->addWidget(m_clear);

    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setModel(m_model);
    m_list->setItemDelegate(m_delegate);
    m_list->setAccessibleName(tr("Notices"));
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setMouseTracking(true);
    m_list->viewport()->setBackgroundRole(QPalette::ToolTipBase); // overlay
    m_list->viewport()->installEventFilter(this);
    connect(m_list, &QListView::activated, this, [this](const QModelIndex& index) { act(index.row(), 0); });
    auto* nothing = new QLabel(tr("No notices. What the client has to tell is kept here."), m_pages);
    nothing->setAlignment(Qt::AlignCenter);
    nothing->setWordWrap(true);
    nothing->setForegroundRole(QPalette::PlaceholderText);
    nothing->setMargin(16);
    m_pages->addWidget(m_list);
    m_pages->addWidget(nothing);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setSpacing(0);
    layout->addLayout(head);
    layout->addWidget(m_pages, 1);
    connect(m_model, &QAbstractItemModel::modelReset, this, &NoticesPopup::refresh);
    refresh();
}

void NoticesPopup::refresh()
{
    const bool isEmpty = m_model->rowCount() == 0;
    m_pages->setCurrentIndex(isEmpty ? 1 : 0);
    m_clear->setEnabled(!isEmpty);
    if (isVisible())
        Notices::instance().markRead();
}

void NoticesPopup::popUp(const QWidget* anchor)
{
    const QWidget* window = anchor->window();
    const QPoint corner = anchor->mapTo(window, QPoint(anchor->width(), anchor->height() + offset));
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int x = mirrored ? corner.x() - anchor->width() : corner.x() - popupWidth;
    setFixedWidth(popupWidth);
    move(window->mapToGlobal(QPoint(qBound(0, x, qMax(0, window->width() - popupWidth)), corner.y())));
    show(); // rows are as high as the shown list is wide
    int rows = 0;
    for (int row = 0; row < m_model->rowCount() && rows < highest; ++row)
        rows += m_list->sizeHintForRow(row);
    const int wanted = headHeight + (rows == 0 ? emptyHeight : rows) + 2 * edge;
    const int room = window->height() - corner.y() - 2 * offset;
    resize(popupWidth, qMin(qMin(wanted, highest), room));
    m_list->setCurrentIndex(m_model->index(0));
    m_list->scrollToTop();
    m_list->setFocus(Qt::PopupFocusReason);
    Notices::instance().markRead();
}

void NoticesPopup::act(int row, int action)
{
    if (m_model->index(row).data(NoticesModel::ActionsRole).toStringList().value(action).isEmpty())
        return;
    close();
    m_model->runAction(row, action);
}

bool NoticesPopup::eventFilter(QObject* watched, QEvent* event)
{
    const bool isMove = event->type() == QEvent::MouseMove;
    if (watched == m_list->viewport() && (isMove || event->type() == QEvent::MouseButtonRelease)) {
        const QPoint position = static_cast<QMouseEvent*>(event)->pos();
        const QModelIndex index = m_list->indexAt(position);
        QStyleOptionViewItem option;
        option.initFrom(m_list->viewport());
        option.font = m_list->font();
        option.widget = m_list;
        option.rect = m_list->visualRect(index);
        const int action = index.isValid() ? m_delegate->actionAt(option, index, position) : -1;
        m_list->viewport()->setCursor(action < 0 ? Qt::ArrowCursor : Qt::PointingHandCursor);
        if (!isMove && action >= 0)
            act(index.row(), action);
    }
    return QFrame::eventFilter(watched, event);
}

void NoticesPopup::paintEvent(QPaintEvent*)
{
    const vemo_base::ThemeMode mode = vemo_base::StylePainter::modeOf(palette());
    QPainter painter(this);
    vemo_base::StylePainter::box(&painter, rect(), 0, vemo_base::themeColor(mode, vemo_base::Token::Overlay),
                                 vemo_base::themeColor(mode, vemo_base::Token::Control));
    vemo_base::StylePainter::hairline(&painter, QRect(0, 0, width(), headHeight), Qt::BottomEdge, mode);
}

} // namespace vemo_client
