#include "DownloadStateWt.h"

#include <DownloadTaskInfo.h>
#include <Theme.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QVariant>

namespace vemo_filesCenter {

namespace {

constexpr int barHeight = 6;
constexpr int barToText = 12;
constexpr int textWidth = 126;
/// A bar that has begun shows at least so much, so that it is seen.
constexpr int leastShownPercent = 14;

int barValue(int progress)
{
    return progress <= 0 ? 0 : qMax(progress, leastShownPercent);
}

} // namespace

DownloadStateWt::DownloadStateWt(QWidget* parent)
    : TableOperWt(parent)
    , m_bar(new QProgressBar(this))
    , m_text(new QLabel(this))
{
    m_bar->setObjectName(QStringLiteral("progressBar"));
    m_bar->setRange(0, 100);
    m_bar->setValue(0);
    m_bar->setTextVisible(false);
    m_bar->setFixedHeight(barHeight);
    m_text->setObjectName(QStringLiteral("state"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setFixedWidth(textWidth);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 0, 16, 0);
    layout->setSpacing(barToText);
    layout->addWidget(m_bar, 1, Qt::AlignVCenter);
    layout->addWidget(m_text, 0, Qt::AlignVCenter);
    connect(&vemo_base::Theme::instance(), &vemo_base::Theme::signalChanged, this, &DownloadStateWt::applyStyle);
}

void DownloadStateWt::setState(int state, int progress)
{
    const int value = barValue(progress);
    switch (state) {
    case vemo_data::TaskDownloading:
        m_text->setText(QStringLiteral("%1%").arg(progress));
        m_bar->setValue(value);
        break;
    case vemo_data::TaskPaused:
        if (progress != -1)
            m_bar->setValue(value);
        if (m_bar->value() == 0)
            m_text->setText(tr("pause"));
        break;
    case vemo_data::TaskWaiting:
        m_text->setText(tr("waiting download..."));
        if (progress != -1)
            m_bar->setValue(value);
        break;
    default:
        break;
    }
    if (state != m_state) {
        m_state = state;
        applyStyle();
    }
}

void DownloadStateWt::styleChanged()
{
    applyStyle();
    TableOperWt::styleChanged();
}

void DownloadStateWt::applyStyle()
{
    using vemo_base::Token;
    // No style sheet: each is parsed and polished anew, which was most of what a row cost that comes into view.
    const bool isRunning = m_state == vemo_data::TaskDownloading;
    const bool isSelected = getCurStyle() == vemo_base::TableOperWtStyle::Style::Selected;
    QPalette colors = m_text->palette();
    colors.setColor(QPalette::WindowText,
                    vemo_base::Theme::instance().color(isRunning || isSelected ? Token::Text : Token::Text2));
    m_text->setPalette(colors);
    m_bar->setProperty("paused", m_state == vemo_data::TaskPaused); // drawn by the program's style
    m_bar->update();
}

} // namespace vemo_filesCenter
