#include "StrengthBar.h"

#include <PwdStrength.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QPainter>
#include <QStyle>

namespace vemo_client {

namespace {

using VCOMMON::PwdStrength;
using vemo_base::Token;

constexpr int barHeight = 18;
constexpr int pieces = 4;
constexpr int pieceHeight = 4;
constexpr int gap = 4;
constexpr int wordsPixels = 12;
constexpr int wordsRoom = 84;
constexpr int veryLong = 16;

} // namespace

StrengthBar::StrengthBar(QWidget* parent)
    : QWidget(parent)
{
    setFixedHeight(barHeight);
    QFont small = font();
    small.setPixelSize(wordsPixels);
    setFont(small);
}

void StrengthBar::setPassword(const QString& password)
{
    m_filled = 0;
    m_word.clear();
    if (!password.isEmpty()) {
        switch (VCOMMON::checkPwdStrength(password)) {
        case PwdStrength::VeryWeak:
        case PwdStrength::Weak:
            m_filled = 1;
            m_token = Token::Error;
            m_word = tr("Weak");
            break;
        case PwdStrength::Medium:
            m_filled = 2;
            m_token = Token::Warning;
            m_word = tr("Medium");
            break;
        case PwdStrength::Strong:
            m_filled = password.size() >= veryLong ? pieces : pieces - 1;
            m_token = Token::Success;
            m_word = m_filled == pieces ? tr("Very strong") : tr("Strong");
            break;
        }
    }
    setAccessibleName(m_word.isEmpty() ? QString() : tr("Strength of the password: %1").arg(m_word));
    update();
}

void StrengthBar::paintEvent(QPaintEvent*)
{
    if (m_filled == 0)
        return;
    const vemo_base::Theme& theme = vemo_base::Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double pieceWidth = (width() - wordsRoom - (pieces - 1) * gap) / double(pieces);
    for (int piece = 0; piece < pieces; ++piece) {
        const double x = piece * (pieceWidth + gap);
        const double left = layoutDirection() == Qt::RightToLeft ? width() - x - pieceWidth : x;
        vemo_base::StylePainter::box(&painter, QRectF(left, (height() - pieceHeight) / 2.0, pieceWidth, pieceHeight),
                                     pieceHeight / 2.0, theme.color(piece < m_filled ? m_token : Token::Track),
                                     QColor());
    }
    painter.setPen(theme.color(m_token));
    const QRect words = QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(width() - wordsRoom, 0, 0, 0));
    painter.drawText(words, int(Qt::AlignTrailing | Qt::AlignVCenter), m_word);
}

} // namespace vemo_client
