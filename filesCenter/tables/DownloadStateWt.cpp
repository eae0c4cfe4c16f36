#include "DownloadStateWt.h"

#include <DownloadTaskInfo.h>
#include <Theme.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

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
    using vemo_base::TableOperWtStyle;
    const bool isRunning = m_state == vemo_data::TaskDownloading;
    const bool isSelected = getCurStyle() == TableOperWtStyle::Style::Selected;
    const vemo_base::Theme& theme = vemo_base::Theme::instance();
    const auto name = [&theme](vemo_base::Token token) { return theme.color(token).name(); };
    // Below a style sheet the program's style no longer draws the bar, so the sheet describes it whole.
    setStyleSheet(
        QStringLiteral("QLabel#state { color: %1; }"
                       "QProgressBar { border: none; border-radius: %2px; background: %3; }"
                       "QProgressBar::chunk { border-radius: %2px; background: %4; }")
            .arg(name(isRunning || isSelected ? vemo_base::Token::Text : vemo_base::Token::Text2))
            .arg(barHeight / 2)
            .arg(name(vemo_base::Token::Track),
                 name(m_state == vemo_data::TaskPaused ? vemo_base::Token::Control : vemo_base::Token::Progress)));
}

} // namespace vemo_filesCenter
