#include "LocalFilesView.h"

#include "FileIconProvider.h"
#include "LocalFilesDelegate.h"

#include <StylePainter.h>

#include <QContextMenuEvent>
#include <QFileSystemModel>
#include <QPainter>
#include <QScrollBar>

namespace vemo_filesCenter {

using vemo_base::StylePainter;
using vemo_base::Thumbnail;
using vemo_base::ThumbnailKey;
using vemo_base::Thumbnails;
using vemo_base::Token;

namespace {

constexpr int askAfterMs = 30;
constexpr int scrollStep = 40;
constexpr int outerMargin = 16;
constexpr int border = 1;
constexpr double radius = 8;

} // namespace

LocalFilesView::LocalFilesView(QWidget* parent)
    : QListView(parent)
{
    setViewMode(QListView::IconMode);
    setIconSize(LocalFilesDelegate::iconSize);
    setGridSize(LocalFilesDelegate::cellSize);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setDragEnabled(true); // which the two lines above switch off
    setDragDropMode(QAbstractItemView::DragOnly);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    setFrameShape(QFrame::NoFrame);
    setViewportMargins(outerMargin, outerMargin, border, outerMargin);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(scrollStep);
    setItemDelegate(new LocalFilesDelegate(this));

    m_asking.setSingleShot(true);
    m_asking.setInterval(askAfterMs);
    connect(&m_asking, &QTimer::timeout, this, &LocalFilesView::askForPictures);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &LocalFilesView::askLater);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &LocalFilesView::askLater);
    connect(&Thumbnails::instance(), &Thumbnails::signalThumbnail, this, &LocalFilesView::showThumbnail);
}

void LocalFilesView::setModel(QAbstractItemModel* model)
{
    QListView::setModel(model);
    connect(model, &QAbstractItemModel::layoutChanged, this, &LocalFilesView::askLater);
    connect(model, &QAbstractItemModel::rowsInserted, this, &LocalFilesView::askLater);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &LocalFilesView::askLater);
    connect(model, &QAbstractItemModel::dataChanged, this, &LocalFilesView::takeChange);
}

void LocalFilesView::setRootIndex(const QModelIndex& index)
{
    QListView::setRootIndex(index);
    askLater();
}

void LocalFilesView::askLater()
{
    if (!m_asking.isActive())
        m_asking.start();
}

int LocalFilesView::firstRowBelow(int y) const
{
    int low = 0;
    int high = model()->rowCount(rootIndex());
    while (low < high) {
        const int middle = (low + high) / 2;
        if (visualRect(model()->index(middle, 0, rootIndex())).bottom() < y)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

void LocalFilesView::askForPictures()
{
    QHash<ThumbnailKey, QPersistentModelIndex> inView;
    QVector<ThumbnailKey> inOrder;
    if (isVisible() && model() && rootIndex().isValid()) {
        const int beyond = LocalFilesDelegate::cellSize.height();
        const int last = qMin(firstRowBelow(viewport()->height() + beyond), model()->rowCount(rootIndex()));
        for (int row = firstRowBelow(-beyond); row < last; ++row) {
            const QModelIndex index = model()->index(row, 0, rootIndex());
            const ThumbnailKey key = LocalFilesDelegate::thumbnailKey(
                index.data(QFileSystemModel::FilePathRole).toString(), devicePixelRatioF());
            inView.insert(key, index);
            inOrder.append(key);
        }
    }
    Thumbnails& thumbnails = Thumbnails::instance();
    for (auto before = m_inView.cbegin(); before != m_inView.cend(); ++before) {
        if (!inView.contains(before.key()))
            thumbnails.withdraw(before.key());
    }
    m_inView = inView;
    // What is asked for last comes first: the top row is to.
    for (auto key = inOrder.crbegin(); key != inOrder.crend(); ++key) {
        if (thumbnails.find(*key).state == Thumbnail::State::Unknown) {
            const QRect place = visualRect(m_inView.value(*key));
            thumbnails.request(*key, place.intersects(viewport()->rect()) ? Thumbnails::Priority::Visible
                                                                          : Thumbnails::Priority::Later);
        }
    }
}

void LocalFilesView::showThumbnail(const ThumbnailKey& key)
{
    const auto found = m_inView.constFind(key);
    if (found != m_inView.constEnd() && found->isValid())
        update(*found);
}

void LocalFilesView::takeChange(const QModelIndex& first, const QModelIndex& last)
{
    QStringList changed;
    for (auto shown = m_inView.cbegin(); shown != m_inView.cend(); ++shown) {
        if (!shown->isValid() || shown->row() < first.row() || shown->row() > last.row())
            continue;
        const Thumbnail::State known = Thumbnails::instance().find(shown.key()).state;
        // A recording that grows keeps its first picture.
        if (known == Thumbnail::State::Unreadable ||
            (known == Thumbnail::State::Ready && !FileIconProvider::isRecording(shown.key().path)))
            changed.append(shown.key().path);
    }
    if (changed.isEmpty())
        return;
    Thumbnails::instance().forget(changed);
    askLater();
}

void LocalFilesView::setKeyboardFocus(bool byKeyboard)
{
    setProperty("keyboardFocus", byKeyboard);
    viewport()->update();
}

void LocalFilesView::focusInEvent(QFocusEvent* event)
{
    QListView::focusInEvent(event);
    setKeyboardFocus(event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason);
    if (!currentIndex().isValid() && model())
        setCurrentIndex(model()->index(0, 0, rootIndex()));
}

void LocalFilesView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete) {
        emit signalDeleteRequested();
        return;
    }
    setKeyboardFocus(true);
    QListView::keyPressEvent(event);
}

void LocalFilesView::mousePressEvent(QMouseEvent* event)
{
    setKeyboardFocus(false);
    QListView::mousePressEvent(event);
}

void LocalFilesView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (index.isValid())
        emit signalMenuRequested(index,
                                 byKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}

bool LocalFilesView::event(QEvent* event)
{
    // Around the viewport, which paints no ground of its own.
    if (event->type() == QEvent::Paint) {
        const vemo_base::ThemeMode mode = StylePainter::modeOf(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        StylePainter::box(&painter, rect(), radius, themeColor(mode, Token::Surface), themeColor(mode, Token::Border));
    }
    return QListView::event(event);
}

void LocalFilesView::resizeEvent(QResizeEvent* event)
{
    QListView::resizeEvent(event);
    askLater();
}

void LocalFilesView::showEvent(QShowEvent* event)
{
    QListView::showEvent(event);
    askLater();
}

void LocalFilesView::hideEvent(QHideEvent* event)
{
    QListView::hideEvent(event);
    askLater(); // takes back what is not needed now
}

} // namespace vemo_filesCenter
