// The page of the log: what it shows of a long log, and what it writes for spreadsheets.
#include "TestWorld.h"

#include "logs/CsvLine.h"
#include "logs/LogExport.h"
#include "logs/LogsPage.h"
#include "logs/LogsTable.h"

#include <FilesCenterLogs.h>
#include <PageEditWt.h>
#include <SearchBox.h>
#include <SystemConfig.h>

#include <QComboBox>
#include <QPushButton>
#include <QSqlQuery>
#include <QStackedWidget>
#include <QtTest>

using vemo_client::CsvLine;
using vemo_client::LogsPage;
using vemo_client::LogsTable;
using vemo_worker::FilesCenterLogs;

namespace {

constexpr int channels = 8;

/// One entry a minute, the last one now; by SQL, since the log itself knows no other time than now.
bool fill(int entries)
{
    return vemo_data::Database::instance().run([entries](QSqlDatabase& db) {
        QSqlQuery query(db);
        query.prepare(QStringLiteral("INSERT INTO files_center_logs (time_utc_ms, kind, device, channel_no, "
                                     "channel_name, text) VALUES (?, ?, ?, ?, ?, ?)"));
        const qint64 now = QDateTime::currentMSecsSinceEpoch();
        for (int i = 0; i < entries; ++i) {
            query.bindValue(0, now - qint64(entries - 1 - i) * 60'000);
            query.bindValue(1, 1 + i % 4);
            query.bindValue(2, QStringLiteral("{rec-%1}").arg(i % channels / 4));
            query.bindValue(3, i % channels + 1);
            query.bindValue(4, i % channels == 0 ? QStringLiteral("=Gate, \"North\"") : QStringLiteral(""));
            query.bindValue(5, QStringLiteral("Event %1").arg(i));
            if (!query.exec())
                return false;
        }
        return true;
    });
}

} // namespace

class LogsPageTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world = std::make_unique<TestWorld>(); }
    void cleanup() { m_world.reset(); }

    void writesFieldsThatASpreadsheetReadsAsText_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QByteArray>("written");
        const auto row = [](const char* name, const char* field, const char* written) {
            QTest::newRow(name) << QString::fromUtf8(field) << QByteArray(written);
        };
        row("plain", "Gate 1", "Gate 1");
        row("empty", "", "");
        row("comma", "Gate, North", "\"Gate, North\"");
        row("quotes", "the \"old\" gate", "\"the \"\"old\"\" gate\"");
        row("two lines", "a\r\nb", "\"a\r\nb\"");
        row("spaces", " a ", "\" a \"");
        row("formula", "=1+1", "'=1+1");
        row("formula with comma", "=HYPERLINK(\"x\",1)", "\"'=HYPERLINK(\"\"x\"\",1)\"");
        row("plus", "+49", "'+49");
        row("minus", "-2", "'-2");
        row("at", "@SUM(A1)", "'@SUM(A1)");
        row("tab", "\t=1", "'\t=1");
        row("wide sign",
            "\xef\xbc\x9d"
            "1",
            "'\xef\xbc\x9d"
            "1");
        row("other letters", "Größe 中", "Größe 中");
    }
    void writesFieldsThatASpreadsheetReadsAsText()
    {
        QFETCH(QString, field);
        QFETCH(QByteArray, written);
        QCOMPARE(CsvLine::of({field, QStringLiteral("x")}), QByteArray(written + ",x\r\n"));
    }

    void pagesNewestFirst()
    {
        QVERIFY(fill(250));
        LogsPage page;
        QSignalSpy shown(&page, &LogsPage::signalShown);
        page.resize(1200, 700);
        page.show();
        QTRY_COMPARE(shown.size(), 1);
        const auto* table = page.findChild<LogsTable*>();
        const auto* pages = page.findChild<vemo_base::PageEditWt*>();
        QCOMPARE(table->rows(), pages->getPageSize());
        QCOMPARE(table->text(0, 5), QStringLiteral("Event 249"));
        QVERIFY(pages->getPageCnt() > 1);
        emit page.findChild<vemo_base::PageEditWt*>()->signalGoToPage(2);
        QTRY_COMPARE(shown.size(), 2);
        QCOMPARE(table->text(0, 5), QStringLiteral("Event %1").arg(249 - pages->getPageSize()));
    }

    void filtersByKindChannelAndWords()
    {
        QVERIFY(fill(80));
        LogsPage page;
        QSignalSpy shown(&page, &LogsPage::signalShown);
        page.show();
        QTRY_COMPARE(shown.size(), 1);
        const auto* table = page.findChild<LogsTable*>();
        const QList<QComboBox*> boxes = page.findChildren<QComboBox*>();
        const auto choose = [&boxes, &shown](const QString& name, int index) {
            for (QComboBox* box : boxes) {
                if (box->accessibleName() != name)
                    continue;
                const int before = shown.size();
                box->setCurrentIndex(index);
                emit box->activated(index);
                return QTest::qWaitFor([&] { return shown.size() > before; });
            }
            return false;
        };
        QVERIFY(choose(QStringLiteral("Kind"), 1));
        QCOMPARE(table->rows(), 20);
        QVERIFY(choose(QStringLiteral("Channel"), channels)); // the last one is of another kind
        QCOMPARE(table->rows(), 0);
        QCOMPARE(page.findChild<QStackedWidget*>()->currentIndex(), 2);
        const auto buttons = page.findChildren<QPushButton*>();
        for (QPushButton* button : buttons) {
            if (button->text() == QStringLiteral("Clear the filters"))
                button->click();
        }
        QTRY_COMPARE(table->rows(), qMin(80, page.findChild<vemo_base::PageEditWt*>()->getPageSize()));
        page.findChild<vemo_base::SearchBox*>()->setText(QStringLiteral("event 7"));
        QTRY_COMPARE(table->rows(), 11); // 7 and 70 to 79
    }

    void exportsEveryPageOfWhatMatches()
    {
        QVERIFY(fill(2500));
        LogsPage page;
        QSignalSpy shown(&page, &LogsPage::signalShown);
        QSignalSpy exported(&page, &LogsPage::signalExported);
        page.show();
        QTRY_COMPARE(shown.size(), 1);
        const QString path = m_world->path(QStringLiteral("log.csv"));
        page.exportTo(path);
        QTRY_COMPARE(exported.size(), 1);
        QCOMPARE(exported.first().first().toString(), QString());
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
        QVERIFY(content.startsWith(CsvLine::byteOrderMark()));
        QCOMPARE(content.count("\r\n"), 2501);
        QCOMPARE(content.count("Event "), 2500);
        QVERIFY(content.indexOf("Event 2499\r\n") < content.indexOf("Event 0\r\n"));
        QVERIFY(content.contains("\"'=Gate, \"\"North\"\"\""));
    }

    void leavesNoFileWhenItCannotBeWrittenOrIsCancelled()
    {
        QVERIFY(fill(1500));
        LogsPage page;
        QSignalSpy shown(&page, &LogsPage::signalShown);
        QSignalSpy exported(&page, &LogsPage::signalExported);
        page.show();
        QTRY_COMPARE(shown.size(), 1);
        page.exportTo(m_world->path(QStringLiteral("no folder/log.csv")));
        QTRY_COMPARE(exported.size(), 1);
        QVERIFY(!exported.last().first().toString().isEmpty());
        page.exportTo(m_world->path(QStringLiteral("log.csv")));
        page.findChild<vemo_client::LogExport*>()->cancel();
        QTRY_COMPARE(exported.size(), 2);
        QVERIFY(!exported.last().first().toString().isEmpty());
        QTRY_COMPARE(page.findChild<vemo_client::LogExport*>(), nullptr);
        QCOMPARE(QDir(m_world->path({})).entryList({QStringLiteral("log.csv*")}, QDir::Files), QStringList());
    }

    void forgetsWhatIsTooOld()
    {
        QVERIFY(fill(2 * 24 * 60)); // two days
        vemo_worker::SystemConfig::instance().setLogDays(1);
        FilesCenterLogs::instance().prune();
        FilesCenterLogs::Query query;
        int total = -1;
        FilesCenterLogs::instance().queryCounted(
            query, this, [&total](const QList<FilesCenterLogs::Entry>&, int count) { total = count; });
        QTRY_VERIFY(total >= 0);
        QVERIFY2(total > 24 * 60 - 5 && total <= 24 * 60 + 1, qPrintable(QString::number(total)));
    }

    /// Measured when asked for: LOG_ENTRIES=100000.
    void measuresALongLog()
    {
        const int entries = qEnvironmentVariableIntValue("LOG_ENTRIES");
        if (entries == 0)
            QSKIP("not asked for");
        QVERIFY(fill(entries));
        LogsPage page;
        page.resize(1200, 800);
        QSignalSpy shown(&page, &LogsPage::signalShown);
        const auto measure = [&shown](const char* what, const std::function<void()>& deed) {
            const int before = shown.size();
            QElapsedTimer timer;
            timer.start();
            deed();
            if (QTest::qWaitFor([&] { return shown.size() > before; }))
                qInfo() << what << timer.elapsed() << "ms";
        };
        measure("first page", [&page] { page.show(); });
        measure("far page", [&page] { emit page.findChild<vemo_base::PageEditWt*>()->signalGoToPage(100); });
        measure("filter without a hit, with the pause of typing",
                [&page] { page.findChild<vemo_base::SearchBox*>()->setText(QStringLiteral("nothing has this")); });
    }

private:
    std::unique_ptr<TestWorld> m_world;
};

QTEST_MAIN(LogsPageTest)
#include "tst_LogsPage.moc"
