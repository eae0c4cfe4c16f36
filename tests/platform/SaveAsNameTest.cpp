#include "TestWorld.h"

#include <SaveAsName.h>

#include <QtTest>

using namespace vemo_base;

namespace {

const QDateTime begin(QDate(2026, 1, 10), QTime(8, 0));

} // namespace

/// A channel may be called anything; its files are saved under legal names, in the folder that was chosen.
class SaveAsNameTest : public QObject
{
    Q_OBJECT

private slots:
    void makesALegalNameOfAnyChannel_data()
    {
        QTest::addColumn<QString>("channel");
        QTest::addColumn<QString>("start");
        QTest::newRow("plain") << "Gate North"
                               << "Gate North(";
        QTest::newRow("slashes") << "../../etc/passwd"
                                 << "etcpasswd(";
        QTest::newRow("a path of Windows") << "C:\\con\\*?"
                                           << "Ccon(";
        QTest::newRow("dots and spaces") << " . ..dots.. "
                                         << "dots.. (";
        QTest::newRow("control characters") << "a\tb\x07"
                                               "c\r\nd"
                                            << "abcd(";
        QTest::newRow("300 characters") << QString(300, QLatin1Char('x')) << QString(100, QLatin1Char('x'));
        QTest::newRow("300 of four bytes")
            << QStringLiteral("\U0001f600").repeated(300) << QStringLiteral("\U0001f600");
        QTest::newRow("right to left") << QStringLiteral("\u202e\u05e9\u05e2\u05e8\u202c")
                                       << QStringLiteral("\u05e9\u05e2\u05e8(");
        QTest::newRow("reserved") << "NUL"
                                  << "NUL("; // not alone, so it is no device
        QTest::newRow("reserved with a suffix") << "com1.x"
                                                << "_com1.x(";
        QTest::newRow("nothing legal") << "///"
                                       << "(";
        QTest::newRow("half a character") << QString(QChar(0xd83d)) << "(";
    }

    void makesALegalNameOfAnyChannel()
    {
        QFETCH(QString, channel);
        QFETCH(QString, start);
        const TestWorld world;
        const QString end = QStringLiteral("(2026-01-10 08_00_00~2026-01-10 08_31_00).mp4");
        const QString name = SaveAsName::recording(channel, begin, begin.addSecs(31 * 60));
        QVERIFY2(name.startsWith(start), qPrintable(name));
        QVERIFY2(name.endsWith(end), qPrintable(name));
        QVERIFY(name.toUtf8().size() <= 255);
        QVERIFY2(!name.contains(QRegularExpression(QStringLiteral("[\\x00-\\x1f/\\\\:*?\"<>|\\x{202a}-\\x{202e}]"))),
                 qPrintable(name));
        QCOMPARE(SaveAsName::snapshot(channel, begin, QStringLiteral("X.BMP")).right(25),
                 QStringLiteral("(2026-01-10 08_00_00).bmp"));
    }
};

QTEST_GUILESS_MAIN(SaveAsNameTest)
#include "SaveAsNameTest.moc"
