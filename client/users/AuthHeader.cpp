#include "AuthHeader.h"

#include "ThemeButton.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace vemo_client {

namespace {

constexpr int barHeight = 88;
constexpr int edge = 48;
constexpr int markExtent = 24;
constexpr int markGap = 10;
constexpr int namePixels = 14;

} // namespace

AuthHeader::AuthHeader(QWidget* parent)
    : QWidget(parent)
{
    setFixedHeight(barHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(edge + markExtent + markGap, 0, edge - 8, 0);
    layout->setSpacing(4);
    auto* name = new QLabel(QStringLiteral("Vemo"), this);
    QFont font = name->font();
    font.setPixelSize(namePixels);
    font.setWeight(QFont::DemiBold);
    name->setFont(font);
    layout->addWidget(name);
    layout->addStretch();
    layout->addWidget(new ThemeButton(this));
}

void AuthHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect mark(edge, (height() - markExtent) / 2, markExtent, markExtent);
    QIcon(QStringLiteral(":/vemo_base/icons/mark.svg"))
        .paint(&painter, QStyle::visualRect(layoutDirection(), rect(), mark));
}

} // namespace vemo_client
