#include <Theme.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <Icons.h>

#include <cmath>

using vemo_base::Theme;
using vemo_base::themeColor;
using vemo_base::ThemeMode;
using vemo_base::Token;

Q_DECLARE_METATYPE(vemo_base::Token)
Q_DECLARE_METATYPE(vemo_base::ThemeMode)

/// The colours can be read, and everything follows the theme.
class tst_Theme : public QObject
{
    Q_OBJECT

private slots:
    void pairsHaveEnoughContrast_data();
    void pairsHaveEnoughContrast();
    void followsTheDesktopUntilThePersonChooses();
    void iconsTakeTheColourOfTheMomentTheyAreDrawn();
    void allIconsOfTheClientCanBeDrawn_data();
    void allIconsOfTheClientCanBeDrawn();
};

namespace {

/// WCAG 2.1, relative luminance.
double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
}

QColor over(const QColor& tint, double share, const QColor& ground)
{
    const auto mix = [share](double top, double below) { return top * share + below * (1 - share); };
    return QColor::fromRgbF(mix(tint.redF(), ground.redF()), mix(tint.greenF(), ground.greenF()),
                            mix(tint.blueF(), ground.blueF()));
}

} // namespace

void tst_Theme::pairsHaveEnoughContrast_data()
{
    QTest::addColumn<Token>("ink");
    QTest::addColumn<Token>("ground");
    QTest::addColumn<double>("least");
    QTest::addColumn<bool>("chip");
    constexpr double text = 4.5;
    constexpr double graphics = 3.0;
    const auto row = [](const char* name, Token ink, Token ground, double least, bool chip = false) {
        QTest::newRow(name) << ink << ground << least << chip;
    };
    row("text on select", Token::Text, Token::Select, text);
    row("text on surface", Token::Text, Token::Surface, text);
    row("text on overlay", Token::Text, Token::Overlay, text);
    row("text on press", Token::Text, Token::Press, text);
    row("second text on select", Token::Text2, Token::Select, text);
    row("second text on surface", Token::Text2, Token::Surface, text);
    row("second text on base", Token::Text2, Token::Base, text);
    row("second text on the header", Token::Text2, Token::Raised, text);
    row("links on select", Token::AccentText, Token::Select, text);
    row("links on surface", Token::AccentText, Token::Surface, text);
    row("words on a primary button", Token::OnAccent, Token::Accent, text);
    row("words on a hovered primary button", Token::OnAccent, Token::AccentHover, text);
    row("words on a pressed primary button", Token::OnAccent, Token::AccentPress, text);
    row("words on the deleting button", Token::OnAccent, Token::ErrorFill, text);
    row("error on select", Token::Error, Token::Select, text);
    row("success on select", Token::Success, Token::Select, text);
    row("warning on select", Token::Warning, Token::Select, text);
    row("error chip on a hovered row", Token::Error, Token::Hover, text, true);
    row("success chip on a hovered row", Token::Success, Token::Hover, text, true);
    row("warning chip on a hovered row", Token::Warning, Token::Hover, text, true);
    row("outlines on select", Token::Control, Token::Select, graphics);
    row("outlines on surface", Token::Control, Token::Surface, graphics);
    row("outlines on base", Token::Control, Token::Base, graphics);
    row("focus ring on select", Token::Focus, Token::Select, graphics);
    row("focus ring on base", Token::Focus, Token::Base, graphics);
    row("progress on its track", Token::Progress, Token::Track, graphics);
}

void tst_Theme::pairsHaveEnoughContrast()
{
    QFETCH(Token, ink);
    QFETCH(Token, ground);
    QFETCH(double, least);
    QFETCH(bool, chip);
    for (const ThemeMode mode : {ThemeMode::Dark, ThemeMode::Light}) {
        QColor below = themeColor(mode, ground);
        if (chip)
            below = over(themeColor(mode, ink), 0.1, below);
        const double reached = contrast(themeColor(mode, ink), below);
        QVERIFY2(reached >= least,
                 qPrintable(QStringLiteral("%1 to 1 in the %2 theme")
                                .arg(reached)
                                .arg(mode == ThemeMode::Dark ? QStringLiteral("dark") : QStringLiteral("light"))));
    }
}

void tst_Theme::followsTheDesktopUntilThePersonChooses()
{
    Theme& theme = Theme::instance();
    theme.setChoice(Theme::Choice::System);
    theme.setDesktopMode(ThemeMode::Light);
    theme.apply();
    QCOMPARE(QApplication::palette().color(QPalette::Window), themeColor(ThemeMode::Light, Token::Base));

    QSignalSpy changed(&theme, &Theme::signalChanged);
    theme.setDesktopMode(ThemeMode::Dark);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(QApplication::palette().color(QPalette::Window), themeColor(ThemeMode::Dark, Token::Base));
    theme.setChoice(Theme::Choice::Light);
    QCOMPARE(QApplication::palette().color(QPalette::Window), themeColor(ThemeMode::Light, Token::Base));
    theme.setDesktopMode(ThemeMode::Dark);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(theme.mode(), ThemeMode::Light);
}

void tst_Theme::iconsTakeTheColourOfTheMomentTheyAreDrawn()
{
    Theme& theme = Theme::instance();
    const QIcon icon = vemo_base::Icons::icon(QStringLiteral("theme"));
    const auto drawn = [&icon](QIcon::Mode mode) {
        QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        icon.paint(&painter, image.rect(), Qt::AlignCenter, mode);
        painter.end();
        return image.pixelColor(44, 32); // inside the filled half
    };
    for (const Theme::Choice choice : {Theme::Choice::Dark, Theme::Choice::Light}) {
        theme.setChoice(choice);
        QCOMPARE(drawn(QIcon::Normal), theme.color(Token::Text2));
        QCOMPARE(drawn(QIcon::Selected), theme.color(Token::AccentText));
        QVERIFY2(drawn(QIcon::Disabled).alphaF() < 0.75, "a disabled icon is as strong as another");
    }
}

void tst_Theme::allIconsOfTheClientCanBeDrawn_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name :
         {"check", "chev-down", "chev-right", "disk", "error", "files", "info", "rate", "theme", "warning"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_Theme::allIconsOfTheClientCanBeDrawn()
{
    QFETCH(QString, name);
    for (const int size : {16, 20, 36}) {
        const QImage image =
            vemo_base::Icons::pixmap(name, size, Qt::red, 2.0).toImage().convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(image.width(), 2 * size);
        int inked = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                inked += qAlpha(image.pixel(x, y)) > 128 ? 1 : 0;
        }
        QVERIFY2(inked > size, "the icon is empty");
        QVERIFY2(inked < image.width() * image.height() / 2, "the icon is no line icon");
    }
}

QTEST_MAIN(tst_Theme)
#include "tst_Theme.moc"
