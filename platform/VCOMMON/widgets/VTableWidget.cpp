#include "VTableWidget.h"

#include <Icons.h>
#include <StylePainter.h>

#include <QDrag>
#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace VCOMMON {

namespace {

constexpr int dragIcon = 36;

} // namespace

VTableWidget::VTableWidget(QWidget* parent)
    : TableWidget(parent)
{}

QList<int> VTableWidget::getCheckedRows(int column) const
{
    if (column == 0)
        return checkedRows();
    QList<int> rows;
    for (int row = 0; row < rowCount(); ++row) {
        const QTableWidgetItem* cell = item(row, column);
        if (cell && cell->checkState() == Qt::Checked && !isRowHidden(row))
            rows.append(row);
    }
    return rows;
}

void VTableWidget::removeAllRows()
{
    const BulkChange bulk(this);
    setRowCount(0);
}

void VTableWidget::setFileOfRow(FileOfRow fileOfRow)
{
    m_fileOfRow = std::move(fileOfRow);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
}

QStringList VTableWidget::selectedFiles() const
{
    if (!m_fileOfRow)
        return {};
    QStringList files;
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    for (const QModelIndex& index : qAsConst(rows)) {
        const QString file = isRowHidden(index.row()) ? QString() : m_fileOfRow(index.row());
        if (!file.isEmpty())
            files.append(file);
    }
    return files;
}

void VTableWidget::startDrag(Qt::DropActions)
{
    const QStringList files = selectedFiles();
    if (files.isEmpty())
        return;
    QList<QUrl> urls;
    for (const QString& file : files)
        urls.append(QUrl::fromLocalFile(file));
    auto* mime = new QMimeData;
    mime->setUrls(urls);
    auto* drag = new QDrag(this);
    drag->setMimeData(mime);
    const vemo_base::ThemeMode mode = vemo_base::StylePainter::modeOf(palette());
    drag->setPixmap(vemo_base::Icons::pixmap(QStringLiteral("local-recording"), dragIcon,
                                             vemo_base::themeColor(mode, vemo_base::Token::AccentText),
                                             devicePixelRatioF()));
    // Never a move: the index would keep records of files that went away.
    drag->exec(Qt::CopyAction);
}

} // namespace VCOMMON
