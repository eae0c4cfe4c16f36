#include "TimelinesWt.h"

#include <ThemeTokens.h>

#include <QLinearGradient>
#include <QPainter>

#include <array>

namespace vemo_client {

namespace {

using vemo_base::Token;

constexpr int smallestWidth = 320;
constexpr int margin = 48;
constexpr int rowHeight = 26;
constexpr int rowStep = 54;
constexpr int topGap = 48;
constexpr int lineHeight = 2;
constexpr int sentencePixels = 28;
constexpr int sentenceLine = 36;
constexpr int morePixels = 14;
constexpr int textHeight = 170;
constexpr double nowAt = 0.72;

QColor dark(Token token)
{
    return vemo_base::themeColor(vemo_base::ThemeMode::Dark, token);
}

/// A small generator of its own, so that the picture is the same on every machine.
class Dice
{
public:
    explicit Dice(quint32 seed)
        : m_state(seed)
    {}
    int below(int limit)
    {
        m_state = m_state * 1664525u + 1013904223u;
        return int((m_state >> 8) % quint32(limit));
    }

private:
    quint32 m_state;
};

} // namespace

TimelinesWt::TimelinesWt(const QString& sentence, const QString& more, QWidget* parent)
    : QWidget(parent)
    , m_sentence(sentence)
    , m_more(more)
{
    setMinimumWidth(smallestWidth);
    setAccessibleName(sentence);
    setAccessibleDescription(more);
}

void TimelinesWt::paintLines(QPainter* painter) const
{
    const std::array<QColor, 4> fills{dark(Token::Axis), dark(Token::AxisSegment), dark(Token::AxisBackedUp),
                                      dark(Token::AxisNoRecording)};
    Dice dice(7);
    for (int y = topGap; y < height(); y += rowStep) {
        int x = -dice.below(60);
        std::size_t last = fills.size();
        while (x < width()) {
            const int pieceWidth = 24 + dice.below(150);
            std::size_t fill = std::size_t(dice.below(int(fills.size())));
            if (fill == last)
                fill = (fill + 1) % fills.size();
            last = fill;
            QColor color = fills[fill];
            color.setAlpha(150);
            painter->fillRect(x, y, pieceWidth, rowHeight, color);
            if (fill != 0) {
                QColor line = dark(Token::AxisRecording);
                line.setAlpha(150);
                painter->fillRect(x, y + rowHeight - lineHeight, pieceWidth - 8, lineHeight, line);
                if (dice.below(6) == 0)
                    painter->fillRect(x + 12, y + rowHeight - lineHeight, 10, lineHeight, dark(Token::AxisAlarm));
            }
            x += pieceWidth;
        }
    }
}

void TimelinesWt::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = dark(Token::Well);
    painter.fillRect(rect(), ground);
    paintLines(&painter);

    // The lines sink into the ground where the words stand.
    QColor clear = ground;
    clear.setAlpha(0);
    QLinearGradient sink(0, height() * 0.35, 0, height() - textHeight - 40);
    sink.setColorAt(0, clear);
    sink.setColorAt(1, ground);
    painter.fillRect(QRectF(0, height() * 0.35, width(), height()), sink);

    const double now = width() * nowAt;
    QLinearGradient fade(0, 0, 0, height() * 0.8);
    QColor line = dark(Token::Text2);
    fade.setColorAt(0, line);
    line.setAlpha(0);
    fade.setColorAt(1, line);
    painter.fillRect(QRectF(now - 1, 0, 2, height() * 0.8), fade);
    painter.setPen(Qt::NoPen);
    painter.setBrush(dark(Token::Text2));
    painter.drawPolygon(QPolygonF({QPointF(now - 7, 0), QPointF(now + 7, 0), QPointF(now, 10)}));

    QFont big = font();
    big.setPixelSize(sentencePixels);
    big.setWeight(QFont::DemiBold);
    painter.setFont(big);
    painter.setPen(dark(Token::Text));
    const int sentenceFlags = int(Qt::AlignLeading | Qt::AlignBottom) | Qt::TextWordWrap;
    QRect words(margin, height() - textHeight, width() - 2 * margin, 2 * sentenceLine);
    // In some languages it takes more lines: they stand above.
    words.setTop(words.bottom() + 1 -
                 qMax(words.height(), painter.boundingRect(words, sentenceFlags, m_sentence).height()));
    painter.drawText(words, sentenceFlags, m_sentence);
    QFont plain = font();
    plain.setPixelSize(morePixels);
    painter.setFont(plain);
    painter.setPen(dark(Token::Text2));
    words = QRect(margin, words.bottom() + 14, width() - 2 * margin, textHeight);
    painter.drawText(words, int(Qt::AlignLeading | Qt::AlignTop) | Qt::TextWordWrap, m_more);
}

} // namespace vemo_client
