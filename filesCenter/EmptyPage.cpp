#include "EmptyPage.h"

#include <EmptyStateWt.h>

#include <QLabel>
#include <QVBoxLayout>

namespace vemo_filesCenter {

namespace {

constexpr int titlePixels = 20;

} // namespace

EmptyPage::EmptyPage(const QString& title, const QString& iconPath, const QString& missing, QWidget* parent)
    : QWidget(parent)
{
    auto* titleLabel = new QLabel(title, this);
    QFont font = titleLabel->font();
    font.setPixelSize(titlePixels);
    font.setWeight(QFont::DemiBold);
    titleLabel->setFont(font);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 24);
    layout->setSpacing(16);
    layout->addWidget(titleLabel);
    layout->addWidget(
        new vemo_base::EmptyStateWt(iconPath, missing, tr("This page comes with a later version."), {}, this), 1);
}

} // namespace vemo_filesCenter
