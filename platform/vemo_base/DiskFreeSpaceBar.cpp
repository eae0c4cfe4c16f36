#include "DiskFreeSpaceBar.h"

#include "Icons.h"
#include "StylePainter.h"
#include "Theme.h"

#include <DiskManager.h>

#include <QLocale>
#include <QPainter>

namespace vemo_base {

namespace {

constexpr int intervalMs = 10'000;
constexpr qint64 gigabyte = 1'000'000'000;
constexpr int wide = 216;
constexpr int narrow = 120;
constexpr int high = 32;
constexpr int iconSize = 14;
constexpr int iconGap = 6;
constexpr int wordsPixels = 12;
constexpr int wordsHeight = 18;
constexpr int barTop = 22;
constexpr int barHeight = 6;
constexpr int markWidth = 2;
constexpr int markRise = 2;

} // namespace

DiskFreeSpaceBar::DiskFreeSpaceBar(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (isVisible())
            ask();
    });
    m_timer.start(intervalMs);
    setFigures(QString(), -1, -1);
}

QSize DiskFreeSpaceBar::sizeHint() const
{
    return {wide, high};
}

QSize DiskFreeSpaceBar::minimumSizeHint() const
{
    return {narrow, high};
}

void DiskFreeSpaceBar::setPath(const QString& path, qint64 markBytes)
{
    m_path = path;
    m_markBytes = markBytes;
    ask();
}

void DiskFreeSpaceBar::showEvent(QShowEvent*)
{
    ask();
}

void DiskFreeSpaceBar::ask()
{
    if (m_isAsking || m_path.isEmpty())
        return;
    m_isAsking = true;
    const QString path = m_path;
    vemo_worker::DiskManager::instance().askFigures(
        path, this, [this, path](const vemo_worker::DiskManager::Figures& figures) {
            m_isAsking = false;
            if (m_path == path)
                setFigures(figures.diskName, figures.freeBytes, figures.totalBytes);
            else
                ask();
        });
}

void DiskFreeSpaceBar::setFigures(const QString& diskName, qint64 freeBytes, qint64 totalBytes)
{
    m_freeBytes = freeBytes;
    m_totalBytes = totalBytes;
    if (diskName.isEmpty())
        m_words = tr("Asking the disk...");
    else if (totalBytes <= 0)
        m_words = tr("%1 can't be read").arg(diskName);
    else
        m_words = tr("%1 %2 free of %3").arg(diskName, sizeText(freeBytes), sizeText(totalBytes));
    if (totalBytes > 0 && freeBytes < gigabyte)
        m_words = tr("%1, full").arg(m_words);
    else if (totalBytes > 0 && freeBytes < m_markBytes)
        m_words = tr("%1, low").arg(m_words);
    setToolTip(m_path.isEmpty() ? QString() : tr("%1\n%2").arg(m_words, m_path));
    setAccessibleName(m_words);
    update();
}

void DiskFreeSpaceBar::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    const bool isFull = m_totalBytes > 0 && m_freeBytes < gigabyte;
    const bool isLow = m_totalBytes > 0 && m_freeBytes < m_markBytes;
    const Token tone = isFull || m_totalBytes == 0 ? Token::Error : isLow ? Token::Warning : Token::Text2;
    QPainter painter(this);
    const auto mirrored = [this](const QRect& part) { return QStyle::visualRect(layoutDirection(), rect(), part); };
    painter.drawPixmap(mirrored(QRect(0, (wordsHeight - iconSize) / 2, iconSize, iconSize)),
                       Icons::pixmap(QStringLiteral("disk"), iconSize, theme.color(tone), devicePixelRatioF()));
    QFont small = font();
    small.setPixelSize(wordsPixels);
    painter.setFont(small);
    painter.setPen(theme.color(tone));
    const QRect room(iconSize + iconGap, 0, width() - iconSize - iconGap, wordsHeight);
    painter.drawText(mirrored(room), int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter),
                     painter.fontMetrics().elidedText(m_words, Qt::ElideRight, room.width()));

    const QRect groove(0, barTop, width(), barHeight);
    const double used = m_totalBytes > 0 ? 1 - double(m_freeBytes) / double(m_totalBytes) : 0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (layoutDirection() == Qt::RightToLeft) {
        painter.translate(width(), 0);
        painter.scale(-1, 1);
    }
    StylePainter::progress(&painter, groove, used, theme.color(Token::Track),
                           theme.color(isFull  ? Token::Error
                                       : isLow ? Token::Warning
                                               : Token::Progress));
    if (m_totalBytes > m_markBytes && m_markBytes > 0) {
        const double at = 1 - double(m_markBytes) / double(m_totalBytes);
        const double x = qBound(0.0, at * width() - markWidth / 2.0, double(width() - markWidth));
        painter.fillRect(QRectF(x, barTop - markRise, markWidth, barHeight + 2 * markRise),
                         theme.color(Token::Warning));
    }
    painter.restore();
}

QString DiskFreeSpaceBar::sizeText(qint64 bytes)
{
    constexpr double thousand = 1000.0;
    const double gigabytes = double(bytes) / double(gigabyte);
    const QLocale locale;
    return gigabytes < thousand ? tr("%1 GB").arg(locale.toString(gigabytes, 'f', 1))
                                : tr("%1 TB").arg(locale.toString(gigabytes / thousand, 'f', 2));
}

} // namespace vemo_base
