#include "LiveColumn.h"

#include "devices/RecorderTree.h"

#include <SearchBox.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int narrowest = 242;
constexpr int edge = 12;
constexpr int hintPixels = 12;

} // namespace

LiveColumn::LiveColumn(RecorderLogins* logins, QWidget* parent)
    : QWidget(parent)
    , m_tree(new RecorderTree(logins, this, RecorderTree::Use::Live))
{
    setMinimumWidth(narrowest);
    auto* filter = new vemo_base::SearchBox(this);
    filter->setPlaceholderText(tr("Filter by channel name"));
    filter->setAccessibleName(filter->placeholderText());
    connect(filter, &QLineEdit::textChanged, m_tree, &RecorderTree::setFilter);
    auto* hint = new QLabel(tr("Drag a channel onto a tile, or press Enter to show it in the next free one."), this);
    hint->setWordWrap(true);
    hint->setForegroundRole(QPalette::PlaceholderText);
    QFont small = hint->font();
    small.setPixelSize(hintPixels);
    hint->setFont(small);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setSpacing(8);
    layout->addWidget(filter);
    layout->addWidget(m_tree, 1);
    layout->addWidget(hint);
}

void LiveColumn::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const vemo_base::ThemeMode mode = vemo_base::StylePainter::modeOf(palette());
    painter.fillRect(rect(), vemo_base::themeColor(mode, vemo_base::Token::Surface));
    vemo_base::StylePainter::hairline(&painter, rect(),
                                      layoutDirection() == Qt::RightToLeft ? Qt::LeftEdge : Qt::RightEdge, mode);
}

} // namespace vemo_client
