#include "Avatar.h"

#include <StylePainter.h>
#include <Theme.h>

#include <QFont>
#include <QPainter>
#include <QRegularExpression>

namespace vemo_client {

namespace {

constexpr double letterShare = 0.44;

QString firstLetter(const QString& word)
{
    return word.left(word.at(0).isHighSurrogate() ? 2 : 1).toUpper();
}

} // namespace

QString Avatar::initialsOf(const QString& name)
{
    static const QRegularExpression gap(QStringLiteral("[\\s._@-]+"));
    const QStringList words = name.split(gap, Qt::SkipEmptyParts);
    if (words.isEmpty())
        return {};
    return words.size() == 1 ? firstLetter(words.constFirst())
                             : QString(firstLetter(words.constFirst()) + firstLetter(words.constLast()));
}

void Avatar::paint(QPainter* painter, const QRectF& round, const QString& name, QFont font)
{
    const vemo_base::Theme& theme = vemo_base::Theme::instance();
    vemo_base::StylePainter::box(painter, round, round.height() / 2, theme.color(vemo_base::Token::Select), QColor());
    font.setPixelSize(qMax(11, qRound(round.height() * letterShare)));
    font.setWeight(QFont::DemiBold);
    painter->setFont(font);
    painter->setPen(theme.color(vemo_base::Token::AccentText));
    painter->drawText(round, Qt::AlignCenter, initialsOf(name));
}

} // namespace vemo_client
