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
}

void BackupLegendWt::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    int x = 0;
    for (const Entry& entry : entries) {
        const QString text = tr(entry.text);
        const int textWidth = fontMetrics().horizontalAdvance(text);
        const auto mirrored = [this](const QRect& part) { return QStyle::visualRect(layoutDirection(), rect(), part); };
        const QRect swatch = mirrored(QRect(x, (lineHeight - swatchHeight) / 2, swatchWidth, swatchHeight));
        const QColor color = vemo_base::themeColor(ThemeMode::Dark, entry.token);
        if (entry.shape == Shape::Line) {
            painter.fillRect(QRect(swatch.x(), swatch.center().y(), swatch.width(), 2), color);
        } else {
            painter.fillRect(swatch, color);
            if (entry.shape == Shape::Segment)
                painter.fillRect(QRect(swatch.x(), swatch.y() - 2, swatch.width(), 2), theme.color(Token::Control));
        }
        painter.setPen(theme.color(Token::Text2));
        painter.drawText(mirrored(QRect(x + swatchWidth + wordGap, 0, textWidth + 1, lineHeight)), Qt::AlignCenter,
                         text);
        x += swatchWidth + wordGap + textWidth + entryGap;
    }
}

} // namespace vemo_filesCenter
