#include <ToolsCollection.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using VCOMMON::ToolsCollection;

class ToolsCollectionTest : public QObject
{
    Q_OBJECT

private slots:
    void makesAnyNameOneLegalComponent_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("substitute");
        QTest::addColumn<QString>("legal");
        const QString none;
        const auto row = [](const char* tag, const QString& name, const QString& legal,
                            const QString& substitute = {}) { QTest::newRow(tag) << name << substitute << legal; };
        row("plain name stays", QStringLiteral("Gate North"), QStringLiteral("Gate North"));
        row("umlauts stay", QStringLiteral("Laderampe Süd"), QStringLiteral("Laderampe Süd"));
        row("climbing out", QStringLiteral("../../etc/passwd"), QStringLiteral("etcpasswd"));
        row("only dots", QStringLiteral(".."), none);
        row("absolute on Windows", QStringLiteral("C:\\Windows\\x"), QStringLiteral("CWindowsx"));
        row("wildcards and pipes", QStringLiteral("a*b?c\"d<e>f|g"), QStringLiteral("abcdefg"));
        row("substituted", QStringLiteral("a/b:c"), QStringLiteral("a_b_c"), QStringLiteral("_"));
        row("NUL inside", QString(QStringLiteral("a") + QChar(0) + QStringLiteral("b")), QStringLiteral("ab"));
        row("newline and tab", QStringLiteral("a\r\nb\tc"), QStringLiteral("abc"));
        row("bidi override", QStringLiteral("gate\u202egpj.exe"), QStringLiteral("gategpj.exe"));
        row("bidi isolates and marks", QStringLiteral("\u2066a\u2069\u200fb\ufeff"), QStringLiteral("ab"));
        row("line separator", QStringLiteral("a\u2028b"), QStringLiteral("ab"));
        row("lone surrogate", QString(QStringLiteral("a") + QChar(0xd83d) + QStringLiteral("b")), QStringLiteral("ab"));
        row("emoji stays whole", QString::fromUtf8("cam \xf0\x9f\x93\xb7"), QString::fromUtf8("cam \xf0\x9f\x93\xb7"));
        row("joiner stays", QStringLiteral("\u0645\u06cc\u200c\u062e"), QStringLiteral("\u0645\u06cc\u200c\u062e"));
        row("dots and spaces at the ends", QStringLiteral(" . name. . "), QStringLiteral("name"));
        row("device name", QStringLiteral("con"), QStringLiteral("_con"));
        row("device name with suffix", QStringLiteral("LPT1.txt"), QStringLiteral("_LPT1.txt"));
        row("device name before a space", QStringLiteral("nul .x"), QStringLiteral("_nul .x"));
        row("superscript port", QStringLiteral("COM\u00b2"), QStringLiteral("_COM\u00b2"));
        row("no device name", QStringLiteral("CONSOLE"), QStringLiteral("CONSOLE"));
        row("port zero is none", QStringLiteral("COM0"), QStringLiteral("COM0"));
        row("device name after cleaning", QStringLiteral("..:aux."), QStringLiteral("_aux"));
        row("empty", none, none);
    }

    void makesAnyNameOneLegalComponent()
    {
        QFETCH(QString, name);
        QFETCH(QString, substitute);
        QFETCH(QString, legal);
        QCOMPARE(ToolsCollection::formatLegalFileName(name, substitute), legal);
        QCOMPARE(name, legal);
        QString again = legal;
        QCOMPARE(ToolsCollection::formatLegalFileName(again, substitute), legal);
    }

    void cutsLongNamesAtACharactersEdge_data()
    {
        QTest::addColumn<QString>("unit");
        QTest::newRow("one byte") << QStringLiteral("a");
        QTest::newRow("two bytes") << QStringLiteral("ü");
        QTest::newRow("three bytes") << QStringLiteral("門");
        QTest::newRow("surrogate pair") << QString::fromUtf8("\xf0\x9f\x93\xb7");
        QTest::newRow("base and combining mark") << QStringLiteral("e\u0301");
    }

    void cutsLongNamesAtACharactersEdge()
    {
        QFETCH(QString, unit);
        QString name = unit.repeated(4096);
        ToolsCollection::formatLegalFileName(name, QString());
        const int bytes = name.toUtf8().size();
        const int unitBytes = unit.toUtf8().size();
        QVERIFY2(bytes <= 255 && bytes > 255 - unitBytes, qPrintable(QString::number(bytes)));
        QCOMPARE(name, unit.repeated(bytes / unitBytes));
    }

    void findsANameThatIsNotTaken()
    {
        const QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("a.b.mp4"));
        QCOMPARE(ToolsCollection::freeFileName(path), path);
        const auto make = [](const QString& name) { return QFile(name).open(QIODevice::WriteOnly); };
        QVERIFY(make(path));
        QCOMPARE(ToolsCollection::freeFileName(path), dir.filePath(QStringLiteral("a.b (2).mp4")));
        // A link that leads nowhere takes a name too.
        QVERIFY(QFile::link(dir.filePath(QStringLiteral("nowhere")), dir.filePath(QStringLiteral("a.b (2).mp4"))));
        QCOMPARE(ToolsCollection::freeFileName(path), dir.filePath(QStringLiteral("a.b (3).mp4")));
    }
};

QTEST_GUILESS_MAIN(ToolsCollectionTest)
#include "ToolsCollectionTest.moc"
