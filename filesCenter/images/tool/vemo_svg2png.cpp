// Renders an icon to PNG, in one colour or, with "drawn" for the colour, in its own: vemo_svg2png SVG COLOUR PIXELS PNG
#include <QColor>
#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

#include <cstdio>

namespace {

int fail(const QString& text)
{
    QTextStream(stderr) << "vemo_svg2png: " << text << QLatin1Char('\n');
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5)
        return fail(QStringLiteral("usage: vemo_svg2png SVG COLOUR PIXELS PNG"));

    QSvgRenderer renderer(arguments.at(1));
    if (!renderer.isValid())
        return fail(QStringLiteral("%1 is no SVG").arg(arguments.at(1)));
    const bool inOwnColours = arguments.at(2) == QLatin1String("drawn");
    const QColor colour(inOwnColours ? QStringLiteral("transparent") : arguments.at(2));
    const int pixels = arguments.at(3).toInt();
    if (!colour.isValid() || pixels < 1 || pixels > 4096)
        return fail(QStringLiteral("colour or size is not valid"));

    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(0, 0, pixels, pixels));
    if (!inOwnColours) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), colour);
    }
    painter.end();
    if (!image.save(arguments.at(4), "PNG"))
        return fail(QStringLiteral("%1 can't be written").arg(arguments.at(4)));
    return 0;
}
