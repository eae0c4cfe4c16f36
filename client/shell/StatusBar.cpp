#include "StatusBar.h"

#include "StatusItem.h"

#include <DiskFreeSpaceBar.h>
#include <DiskManager.h>
#include <StylePainter.h>
#include <SystemConfig.h>
#include <SystemMsg.h>
#include <Theme.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QUrl>

namespace vemo_client {

using vemo_base::DiskFreeSpaceBar;

namespace {

constexpr int barHeight = 28;
constexpr int edge = 8;
constexpr int clockPixels = 12;
constexpr int diskIntervalMs = 10'000;
/// The rate comes once a second while something is downloaded; then it is zero.
constexpr qint64 rateHoldsMs = 2500;
constexpr int mostOmitted = 3;
constexpr qint64 gigabyte = 1'000'000'000;
constexpr qint64 lowBytes = 10 * gigabyte;
constexpr qint64 emptyBytes = gigabyte;

QString rateText(double megabytes)
{
    return StatusBar::tr("%1 MB/s").arg(QLocale().toString(megabytes, 'f', 1));
}

QString leftText(qint64 seconds)
{
    const qint64 minutes = (seconds + 30) / 60;
    if (minutes < 1)
        return StatusBar::tr("less than a minute left");
    if (minutes < 60)
        return StatusBar::tr("about %1 min left").arg(minutes);
    return StatusBar::tr("about %1 h %2 min left").arg(minutes / 60).arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

QString offsetText(const QDateTime& time)
{
    const int minutes = time.offsetFromUtc() / 60;
    const QChar sign = QLatin1Char(minutes < 0 ? '-' : '+');
    return QStringLiteral("UTC%1%2:%3")
        .arg(sign)
        .arg(qAbs(minutes) / 60, 2, 10, QLatin1Char('0'))
        .arg(qAbs(minutes) % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

StatusBar::StatusBar(QWidget* parent)
    : QWidget(parent)
{
    setFixedHeight(barHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(edge, 1, 2 * edge, 0);
    layout->setSpacing(4);

    m_queue = new StatusItem(QStringLiteral("queue"), this);
    m_queue->setCaption(tr("Queue"));
    m_queue->setStrong(true);
    m_queue->setTone(vemo_base::Token::Text);
    m_queue->setSample(QueueWatch::words({5, 8888, 0, 0}));
    connect(m_queue, &QAbstractButton::clicked, this, &StatusBar::signalQueueClicked);
    layout->addWidget(m_queue);

    m_rate = new StatusItem(QStringLiteral("rate"), this);
    m_rate->setStrong(true);
    m_rate->setTone(vemo_base::Token::Text);
    m_rateText = rateText(0);
    m_rate->setSample(rateText(888.8));
    connect(m_rate, &QAbstractButton::clicked, this, &StatusBar::signalQueueClicked);
    layout->addWidget(m_rate);

    m_disk = new StatusItem(QStringLiteral("disk"), this);
    m_disk->hide();
    connect(m_disk, &QAbstractButton::clicked, this, &StatusBar::openDownloadFolder);
    layout->addWidget(m_disk);
    layout->addStretch();

    m_offline = new StatusItem(QStringLiteral("offline"), this);
    m_offline->setTone(vemo_base::Token::Warning);
    m_offline->hide();
    connect(m_offline, &QAbstractButton::clicked, this, &StatusBar::signalOfflineClicked);
    layout->addWidget(m_offline);

    m_clock = new QLabel(this);
    QFont clockFont = m_clock->font();
    clockFont.setPixelSize(clockPixels);
    m_clock->setFont(clockFont);
    m_clock->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(m_clock);

    connect(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalDownloadTimeLeft, this,
            &StatusBar::slotDownloadTimeLeft);
    connect(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalDownloadBitRate, this,
            &StatusBar::slotDownloadBitRate);
    connect(&vemo_worker::SystemConfig::instance(), &vemo_worker::SystemConfig::signalConfigChanged, this,
            &StatusBar::askDisk);
    connect(&m_tickTimer, &QTimer::timeout, this, &StatusBar::tick);
    m_tickTimer.setSingleShot(true);
    m_tickTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_diskTimer, &QTimer::timeout, this, &StatusBar::askDisk);
    m_diskTimer.start(diskIntervalMs);
    showQueue({});
    tick();
    askDisk();
}

void StatusBar::showQueue(const QueueWatch::Figures& figures)
{
    m_queue->setWords(QueueWatch::words(figures));
    m_queue->setToolTip(tr("Download queue: %1").arg(QueueWatch::allWords(figures)));
    m_queue->setAccessibleName(m_queue->toolTip());
    showWords();
}

void StatusBar::showRecorders(int offline, int all)
{
    m_offline->setVisible(offline > 0);
    m_offline->setWords(tr("%1 of %2 recorders offline").arg(offline).arg(all));
    m_offline->setToolTip(tr("Shows the recorder and why it is not logged in"));
    m_offline->setAccessibleName(m_offline->text());
    showWords();
}

void StatusBar::tick()
{
    constexpr int second = 1000;
    showClock();
    if (m_sinceRate.isValid() && m_sinceRate.elapsed() > rateHoldsMs) {
        m_sinceRate.invalidate();
        m_rateText = rateText(0);
        showWords();
    }
    m_tickTimer.start(second - QTime::currentTime().msec());
}

void StatusBar::slotDownloadBitRate(qint64 kbitPerSecond)
{
    m_sinceRate.start();
    m_rateText = rateText(double(kbitPerSecond) / 8000.0);
    showWords();
}

void StatusBar::slotDownloadTimeLeft(qint64 seconds)
{
    m_leftText = seconds < 0 ? QString() : QStringLiteral(", ") + leftText(seconds);
    showWords();
}

/// Says all that there is room for: in a narrow window time left, size of the disk and date give way, in this order.
/// Tool tips and accessible names always say it whole.
void StatusBar::showWords()
{
    m_rate->setAccessibleName(m_rateText + m_leftText);
    m_rate->setToolTip(tr("What all downloads together receive: %1").arg(m_rate->accessibleName()));
    for (int omitted = 0; omitted <= mostOmitted; ++omitted) {
        m_rate->setWords(omitted < 1 ? m_rateText + m_leftText : m_rateText);
        m_disk->setWords(omitted < 2 ? m_diskWords : m_diskShortWords);
        m_disk->setFraction(omitted < 2 ? m_diskFraction : -1);
        m_showsDate = omitted < 3;
        showClock();
        if (layout()->sizeHint().width() <= width())
            break;
    }
}

void StatusBar::showClock()
{
    const QDateTime now = QDateTime::currentDateTime();
    const QString format = m_showsDate ? QStringLiteral("yyyy-MM-dd HH:mm:ss") : QStringLiteral("HH:mm:ss");
    m_clock->setText(now.toString(format) + QLatin1String("  ") + offsetText(now));
}

void StatusBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    showWords();
}

void StatusBar::askDisk()
{
    if (m_askingDisk)
        return;
    m_askingDisk = true;
    vemo_worker::DiskManager::instance().askFigures(vemo_worker::SystemConfig::instance().getDownloadPath(), this,
                                                    [this](const vemo_worker::DiskManager::Figures& figures) {
                                                        showDisk(figures.diskName, figures.freeBytes,
                                                                 figures.totalBytes);
                                                    });
}

void StatusBar::showDisk(const QString& name, qint64 freeBytes, qint64 totalBytes)
{
    m_askingDisk = false;
    m_disk->setVisible(totalBytes > 0);
    if (totalBytes <= 0)
        return;
    const QString mount = name.endsWith(QLatin1Char(':')) ? name : name + QLatin1Char(':');
    m_diskShortWords = tr("%1 %2 free").arg(mount, DiskFreeSpaceBar::sizeText(freeBytes));
    QString words = tr("%1 %2 free of %3")
                        .arg(mount, DiskFreeSpaceBar::sizeText(freeBytes), DiskFreeSpaceBar::sizeText(totalBytes));
    vemo_base::Token tone = vemo_base::Token::Text2;
    if (freeBytes < emptyBytes) {
        tone = vemo_base::Token::Error;
        words += tr(", full: no download can start");
        m_diskShortWords += tr(", full");
    } else if (freeBytes < lowBytes) {
        tone = vemo_base::Token::Warning;
        words += tr(", nearly full");
    }
    m_disk->setTone(tone);
    m_diskFraction = double(totalBytes - freeBytes) / double(totalBytes);
    m_diskWords = words;
    m_disk->setAccessibleName(words);
    m_disk->setToolTip(tr("%1\nOpens the folder of downloads: %2")
                           .arg(words, vemo_worker::SystemConfig::instance().getDownloadPath()));
    showWords();
}

void StatusBar::openDownloadFolder()
{
    const QString folder = vemo_worker::SystemConfig::instance().getDownloadPath();
    QDesktopServices::openUrl(QUrl::fromLocalFile(vemo_worker::DiskManager::existingFolderOf(folder)));
}

void StatusBar::paintEvent(QPaintEvent*)
{
    const vemo_base::Theme& theme = vemo_base::Theme::instance();
    QPainter painter(this);
    painter.fillRect(rect(), theme.color(vemo_base::Token::Surface));
    vemo_base::StylePainter::hairline(&painter, rect(), Qt::TopEdge, theme.mode());
}

} // namespace vemo_client
