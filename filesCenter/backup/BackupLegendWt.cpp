#include "BackupLegendWt.h"

#include <Theme.h>

#include <QPainter>
#include <QStyle>

namespace vemo_filesCenter {

using vemo_base::Theme;
using vemo_base::ThemeMode;
using vemo_base::Token;

namespace {

constexpr int lineHeight = 16;
constexpr int pixels = 12;
constexpr int swatchWidth = 18;
constexpr int swatchHeight = 12;
constexpr int wordGap = 8;
constexpr int entryGap = 16;
constexpr int caretWidth = 8;
constexpr int nowMs = 15'000;

enum class Shape { Segment, Fill, Line };

struct Entry
{
    Shape shape;
    Token token;
    const char* text;
};

constexpr Entry entries[] = {
    {Shape::Segment, Token::AxisSegment, QT_TRANSLATE_NOOP("vemo_filesCenter::BackupLegendWt", "Time segment")},
    {Shape::Fill, Token::AxisBackedUp, QT_TRANSLATE_NOOP("vemo_filesCenter::BackupLegendWt", "Backed up")},
    {Shape::Fill, Token::AxisNoRecording, QT_TRANSLATE_NOOP("vemo_filesCenter::BackupLegendWt", "No recording")},
    {Shape::Line, Token::AxisRecording, QT_TRANSLATE_NOOP("vemo_filesCenter::BackupLegendWt", "On the recorder")},
    {Shape::Line, Token::AxisAlarm, QT_TRANSLATE_NOOP("vemo_filesCenter::BackupLegendWt", "Alarm")},
};

} // namespace

BackupLegendWt::BackupLegendWt(QWidget* parent)
    : QWidget(parent)
{
    setFixedHeight(lineHeight);
    QFont small = font();
    small.setPixelSize(pixels);
    setFont(small);
    connect(&m_nowTimer, &QTimer::timeout, this, QOverload<>::of(&QWidget::update));
    m_nowTimer.start(nowMs);
}

void BackupLegendWt::setDay(const QDate& day)
{
    m_day = day;
    update();
}

void BackupLegendWt::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    int x = 0;
    const auto mirrored = [this](const QRect& part) { return QStyle::visualRect(layoutDirection(), rect(), part); };
    const auto write = [&](const QString& text, int swatch) {
        const int textWidth = fontMetrics().horizontalAdvance(text);
        painter.setPen(theme.color(Token::Text2));
        painter.drawText(mirrored(QRect(x + swatch + wordGap, 0, textWidth + 1, lineHeight)), Qt::AlignCenter, text);
        x += swatch + wordGap + textWidth + entryGap;
    };
    for (const Entry& entry : entries) {
        const QRect swatch = mirrored(QRect(x, (lineHeight - swatchHeight) / 2, swatchWidth, swatchHeight));
        const QColor color = vemo_base::themeColor(ThemeMode::Dark, entry.token);
        if (entry.shape == Shape::Line) {
            painter.fillRect(QRect(swatch.x(), swatch.center().y(), swatch.width(), 2), color);
        } else {
            painter.fillRect(swatch, color);
            if (entry.shape == Shape::Segment)
                painter.fillRect(QRect(swatch.x(), swatch.y() - 2, swatch.width(), 2), theme.color(Token::Control));
        }
        write(tr(entry.text), swatchWidth);
    }
    if (m_day != QDate::currentDate())
        return;
    const QRectF caret = mirrored(QRect(x, 2, caretWidth, lineHeight - 4));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.color(Token::Text));
    painter.drawPolygon(QPolygonF({caret.topLeft(), caret.topRight(), QPointF(caret.center().x(), caret.top() + 5)}));
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(QRectF(qRound(caret.center().x()), caret.top() + 4, 1, caret.height() - 4),
                     theme.color(Token::Text));
    write(tr("Now, %1").arg(QTime::currentTime().toString(QStringLiteral("HH:mm"))), caretWidth);
}

} // namespace vemo_filesCenter
