#include "../platform/TestWorld.h"

#include "local/LocalRecordingOperWt.h"
#include "local/LocalRecordingsMgrPage.h"

#include <DisabledWaitingWt.h>
#include <FilesCenterLogs.h>
#include <LocalIndexRescan.h>
#include <LocalRecordingIndexes.h>
#include <PageEditWt.h>
#include <SaveAsName.h>
#include <SearchBox.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <TimeSpaceLineEt.h>
#include <VFileDialog.h>
#include <VMessageBox.h>
#include <VTableWidget.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QToolTip>

#include <memory>

using VCOMMON::LocalRecordingIndexes;
using VCOMMON::LocalRecordingIndexInfo;
using VCOMMON::VTableWidget;
using vemo_filesCenter::LocalRecordingsMgrPage;

namespace {

/// A page over an index and files of its own, alerts and questions noted and answered.
class PageWorld final
{
public:
    PageWorld()
    {
        vemo_worker::SystemConfig::instance().setVideoFilePath(world.path(QStringLiteral("videos")));
        vemo_worker::SystemAssistant::instance().setPresenter(
            [this](const QString&, const QString& text) { alerts.append(text); });
        vemo_base::VMessageBox::setAnswerer([this](const QString& text) {
            questions.append(text);
            return answer;
        });
        VCOMMON::VFileDialog::setAnswerer([this](const auto&) { return folder; });
    }

    ~PageWorld()
    {
        page.reset();
        vemo_worker::SystemAssistant::instance().finishRemovals();
        vemo_worker::SystemAssistant::instance().setPresenter({});
        vemo_base::VMessageBox::setAnswerer({});
        VCOMMON::VFileDialog::setAnswerer({});
    }

    /// The n-th recording of today, of ten seconds each; its file is a copy of `clip`, none when that is empty.
    /// `span`: of the n-th of these ten seconds instead.
    QString add(const QString& channel, int n, const QString& clip, int span = -1)
    {
        LocalRecordingIndexInfo record;
        record.devId = QStringLiteral("gone");
        record.channelNo = 3;
        record.channelId = QStringLiteral("gone|3");
        record.channelName = channel;
        record.beginTime = QDateTime(QDate::currentDate(), QTime(0, 0)).addSecs(10 * (span < 0 ? n : span));
        record.endTime = record.beginTime.addSecs(10);
        record.filePath = world.path(QStringLiteral("recording %1.mp4").arg(n));
        if (!clip.isEmpty())
            QFile::copy(clip, record.filePath);
        record.bytes = QFile(record.filePath).size();
        LocalRecordingIndexes::instance().addLocalRecordingIndex(record);
        return record.filePath;
    }

    void show()
    {
        page = std::make_unique<LocalRecordingsMgrPage>();
        page->resize(1100, 800);
        page->show();
        settle();
    }

    /// Until the request in flight is answered.
    void settle() const { QTRY_VERIFY(page->findChildren<vemo_base::DisabledWaitingWt*>().isEmpty()); }

    VTableWidget* table() const { return page->findChild<VTableWidget*>(); }
    vemo_base::PageEditWt* pages() const { return page->findChild<vemo_base::PageEditWt*>(); }
    void click(const char* name) const { page->findChild<QPushButton*>(QString::fromLatin1(name))->click(); }
    void check(int row) const { table()->item(row, 0)->setCheckState(Qt::Checked); }
    QStringList column(int column) const
    {
        QStringList texts;
        for (int row = 0; row < table()->rowCount(); ++row)
            texts.append(table()->item(row, column)->text());
        return texts;
    }

    TestWorld world;
    QStringList alerts;
    QStringList questions;
    int answer = 1;
    QString folder; ///< that the person chooses
    std::unique_ptr<LocalRecordingsMgrPage> page;
};

} // namespace

class LocalRecordingsPageTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void findsByItselfAndTellsSizesAndFaults();
    void dropsAnswersToEarlierRequests();
    void filtersByChannel();
    void deletesWhatIsCheckedHoweverSorted();
    void stepsBackFromAnEmptyLastPage();
    void changesNothingWhenTheIndexRefuses();
    void keepsTheRecordOfAFileThatWillNotGo();
    void savesTwoOfOneName();
    void tellsWhatCouldNotBeSaved();
    void namesCopiesLegally_data();
    void namesCopiesLegally();
    void showsFilesFoundByARescanAndKeepsChecks();
    void fillsAPageOfTwoHundred();

private:
    QTemporaryDir m_dir;
    QString m_clip;
};

void LocalRecordingsPageTest::initTestCase()
{
    qputenv("XDG_DATA_HOME", m_dir.filePath(QStringLiteral("data")).toLocal8Bit()); // the recycle bin is there
    QVERIFY(QDir().mkpath(m_dir.filePath(QStringLiteral("data"))));
    m_clip = m_dir.filePath(QStringLiteral("clip.mp4"));
    QCOMPARE(
        QProcess::execute(QStringLiteral("ffmpeg"),
                          {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-f"), QStringLiteral("lavfi"),
                           QStringLiteral("-i"), QStringLiteral("testsrc=size=160x120:rate=5:duration=1"),
                           QStringLiteral("-pix_fmt"), QStringLiteral("yuv420p"), m_clip}),
        0);
}

void LocalRecordingsPageTest::findsByItselfAndTellsSizesAndFaults()
{
    PageWorld world;
    world.add(QStringLiteral("Gate"), 2, m_clip);
    world.add(QStringLiteral("Gate"), 1, QString());
    world.show();
    QVERIFY2(world.alerts.isEmpty(), "nobody asked yet");
    QCOMPARE(world.table()->rowCount(), 2);
    QCOMPARE(world.column(3).first(), QStringLiteral("0 B (00:00:10)"));
    const double size = static_cast<double>(QFile(m_clip).size()) / 1024;
    QCOMPARE(world.column(3).last(), QStringLiteral("%1 KB (00:00:10)").arg(size, 0, 'f', 2));
    QVERIFY(world.column(2).first().startsWith(QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd "))));

    QWidget* buttons = world.table()->visibleCellWidget(0, 4);
    buttons->findChild<QToolButton*>(QStringLiteral("openFileBt"))->click();
    QTRY_COMPARE(QToolTip::text(), QStringLiteral("file does not exist"));
    world.table()->selectAll();
    QCOMPARE(world.table()->selectedFiles().size(), 1); // nobody drags what is not there
}

void LocalRecordingsPageTest::dropsAnswersToEarlierRequests()
{
    PageWorld world;
    world.add(QStringLiteral("Gate"), 1, m_clip);
    world.show();
    world.click("searchBt");
    const QString asked = world.page->findChild<vemo_base::DisabledWaitingWt*>()->getUuid().toString();
    world.page->slotSearchBtClicked();
    LocalRecordingIndexes& indexes = LocalRecordingIndexes::instance();
    emit indexes.signalGetLocalRecordingIndexesInfoResult(asked, {}, 0);
    QCOMPARE(world.table()->rowCount(), 1);
    world.settle();
    QVERIFY(world.alerts.isEmpty());
    world.page->findChild<vemo_base::TimeSpaceLineEt*>()->setDateTimeSpace(QDateTime(QDate(2001, 1, 1), QTime(0, 0)),
                                                                           QDateTime(QDate(2001, 1, 2), QTime(0, 0)));
    world.click("searchBt");
    world.settle();
    QCOMPARE(world.table()->rowCount(), 0);
    QCOMPARE(world.alerts, QStringList{QStringLiteral("search none local recordings")});
}

void LocalRecordingsPageTest::filtersByChannel()
{
    PageWorld world;
    for (int n = 0; n < 30; ++n)
        world.add(n % 10 == 0 ? QStringLiteral("Gate North") : QStringLiteral("Lobby"), n, QString());
    world.show();
    world.pages()->updateTotalCnt(30, 2);
    auto* filter = world.page->findChild<vemo_base::SearchBox*>();
    filter->setText(QStringLiteral("NORTH"));
    QCOMPARE(world.table()->rowCount(), 3);
    QCOMPARE(world.pages()->getCurPageNum(), 1);
    filter->setText(QStringLiteral("xy"));
    filter->setText(QStringLiteral("xyz"));
    QVERIFY2(world.alerts.isEmpty(), "the box takes the rest of the word");
    QTRY_COMPARE(world.alerts, QStringList{QStringLiteral("search none local recordings")});
    world.click("searchBt");
    world.settle();
    QVERIFY(filter->text().isEmpty());
    QCOMPARE(world.table()->rowCount(), 20);
    QCOMPARE(world.alerts.size(), 1);
}

void LocalRecordingsPageTest::deletesWhatIsCheckedHoweverSorted()
{
    PageWorld world;
    QStringList files;
    for (int n = 0; n < 4; ++n)
        files.append(world.add(QStringLiteral("Gate"), n, m_clip));
    QFile sideIndex(vemo_worker::SystemAssistant::vdxPath(files.at(3)));
    QVERIFY(sideIndex.open(QIODevice::WriteOnly));
    sideIndex.close();
    world.show();
    world.click("deleteBt");
    QCOMPARE(world.alerts, QStringList{QStringLiteral("Please select local recordings to delete")});

    world.table()->sortRows(2, Qt::DescendingOrder);
    const QString begin = world.column(2).first();
    world.check(0);
    world.answer = 0;
    world.click("deleteBt");
    QCOMPARE(world.questions, QStringList{QStringLiteral("Do you want to delete select local recordings?")});
    world.answer = 1;
    world.click("deleteBt");
    QTRY_COMPARE(world.table()->rowCount(), 3);
    vemo_worker::SystemAssistant::instance().finishRemovals();
    QVERIFY2(!QFile::exists(files.at(3)) && !sideIndex.exists(), "the newest was checked");
    QVERIFY(QFile::exists(files.at(0)));
    QTRY_VERIFY(world.column(2).first() < begin);
    QCOMPARE(world.pages()->getPageCnt(), 1);

    QStringList log;
    vemo_worker::FilesCenterLogs::instance().query({}, world.page.get(), [&log](const auto& entries) {
        for (const auto& entry : entries)
            log.append(entry.channelName + QLatin1Char('|') + entry.text);
    });
    QTRY_COMPARE(log.size(), 1);
    QVERIFY(log.first().startsWith(QStringLiteral("Gate|Record begin time:%1,file size:").arg(begin)));
    world.click("searchBt");
    world.settle();
    QCOMPARE(world.table()->rowCount(), 3);
}

void LocalRecordingsPageTest::stepsBackFromAnEmptyLastPage()
{
    PageWorld world;
    for (int n = 0; n < 21; ++n)
        world.add(QStringLiteral("Gate"), n, n == 20 ? m_clip : QString());
    world.show();
    world.page->findChild<QToolButton*>(QStringLiteral("nextPage"))->click();
    QCOMPARE(world.table()->rowCount(), 1);
    QCOMPARE(world.table()->firstOrderNumber(), 21);
    world.table()->visibleCellWidget(0, 4)->findChild<QToolButton*>(QStringLiteral("cleanBt"))->click();
    QVERIFY(world.questions.first().startsWith(QLatin1String("Do you want to delete the recording:Gate(")));
    QTRY_COMPARE(world.table()->rowCount(), 20);
    QCOMPARE(world.pages()->getCurPageNum(), 1);
    QCOMPARE(world.table()->firstOrderNumber(), 1);
    QVERIFY(world.alerts.isEmpty());
}

void LocalRecordingsPageTest::changesNothingWhenTheIndexRefuses()
{
    PageWorld world;
    const QString file = world.add(QStringLiteral("Gate"), 1, m_clip);
    world.show();
    world.check(0);
    world.click("deleteBt");
    const QString asked = world.page->findChild<vemo_base::DisabledWaitingWt*>()->getUuid().toString();
    emit LocalRecordingIndexes::instance().signalDeleteLocalRecordingIndexesResult(asked, {file}, false);
    QCOMPARE(world.alerts, QStringList{QStringLiteral("Failed to delete local recordings")});
    QTest::qWait(100); // the index' own answer is one to an earlier request now
    QCOMPARE(world.table()->rowCount(), 1);
    QVERIFY(QFile::exists(file));
}

void LocalRecordingsPageTest::keepsTheRecordOfAFileThatWillNotGo()
{
    PageWorld world;
    const QString stubborn = world.add(QStringLiteral("Gate"), 1, QString());
    QVERIFY(QDir().mkpath(stubborn)); // a folder is never removed
    world.add(QStringLiteral("Gate"), 2, m_clip);
    world.show();
    world.check(0);
    world.check(1);
    world.click("deleteBt");
    QTRY_VERIFY(!world.alerts.isEmpty() && world.alerts.last().contains(QLatin1String("recording 1.mp4")));
    QVERIFY(world.alerts.last().startsWith(QLatin1String("Failed to delete local recordings")));
    QTRY_COMPARE(world.table()->rowCount(), 1);
    world.click("searchBt");
    world.settle();
    QCOMPARE(world.table()->rowCount(), 1);
}

void LocalRecordingsPageTest::savesTwoOfOneName()
{
    PageWorld world;
    world.add(QStringLiteral("Gate: North/1"), 1, m_clip);
    QFile other(world.add(QStringLiteral("Gate: North/1"), 2, m_clip, 1));
    QVERIFY(other.open(QIODevice::Append));
    other.write("more");
    other.close();
    world.show();
    world.click("saveAsBt");
    QCOMPARE(world.alerts, QStringList{QStringLiteral("Please select local recordings to save as")});
    world.folder = world.world.path(QStringLiteral("copies"));
    QVERIFY(QDir().mkpath(world.folder));
    world.page->findChild<QCheckBox*>(QStringLiteral("selAll"))->click();
    QCOMPARE(world.table()->checkedCount(), 2);
    world.click("saveAsBt");
    const auto copies = [&world] { return QDir(world.folder).entryList(QDir::Files, QDir::Name); };
    QTRY_COMPARE(copies().filter(QRegularExpression(QStringLiteral("\\.mp4$"))).size(), 2);
    world.settle();
    QVERIFY2(copies().first().startsWith(QLatin1String("Gate North1(")), qPrintable(copies().first()));
    QCOMPARE(copies().size(), 2);
    QCOMPARE(world.alerts.size(), 1);
}

void LocalRecordingsPageTest::tellsWhatCouldNotBeSaved()
{
    PageWorld world;
    world.add(QStringLiteral("Gate"), 1, QString());
    world.add(QStringLiteral("Gate"), 2, m_clip);
    world.show();
    world.folder = world.world.path(QStringLiteral("copies"));
    QVERIFY(QDir().mkpath(world.folder));
    world.check(0);
    world.check(1);
    world.click("saveAsBt");
    QTRY_COMPARE(world.alerts.size(), 1);
    QVERIFY(world.alerts.first().startsWith(QLatin1String("Save as file failed:Gate(")));
    QCOMPARE(QDir(world.folder).entryList(QDir::Files).size(), 1);
}

void LocalRecordingsPageTest::namesCopiesLegally_data()
{
    QTest::addColumn<QString>("channel");
    QTest::addColumn<QString>("begin"); // of the name
    QTest::newRow("separators") << "../a\\b:c"
                                << "abc(";
    QTest::newRow("control characters") << QStringLiteral("a\n\t\u202eb") << "ab(";
    QTest::newRow("reserved") << "CON"
                              << "CON(";
    QTest::newRow("nothing") << "..."
                             << "(";
    QTest::newRow("right to left") << QStringLiteral("\u05e9\u05e2\u05e8") << QStringLiteral("\u05e9\u05e2\u05e8(");
    QTest::newRow("long") << QString(300, QChar(0x8eca)) << QString(50, QChar(0x8eca));
}

void LocalRecordingsPageTest::namesCopiesLegally()
{
    QFETCH(QString, channel);
    QFETCH(QString, begin);
    const QString name =
        vemo_base::SaveAsName::fileName(channel, QStringLiteral("2026-01-10 08_00_00~"), QStringLiteral(".mp4"));
    QVERIFY2(name.startsWith(begin) && name.endsWith(QLatin1String("(2026-01-10 08_00_00~).mp4")), qPrintable(name));
    QVERIFY(name.toUtf8().size() < 250);
}

void LocalRecordingsPageTest::showsFilesFoundByARescanAndKeepsChecks()
{
    PageWorld world;
    world.add(QStringLiteral("Gate"), 1, m_clip);
    world.show();
    world.check(0);
    const QString folder = vemo_worker::SystemConfig::instance().getLocalRecordingPath();
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(QFile::copy(m_clip, folder + QStringLiteral("/from elsewhere.mp4")));
    VCOMMON::LocalIndexRescan::instance().start({folder});
    QTRY_COMPARE(world.table()->rowCount(), 2);
    const int checked = world.table()->checkedRows().value(0, -1);
    QVERIFY2(checked >= 0 && world.table()->item(checked, 1)->text() == QLatin1String("Gate"), "the check is lost");
    QVERIFY(world.alerts.isEmpty());
}

void LocalRecordingsPageTest::fillsAPageOfTwoHundred()
{
    PageWorld world;
    for (int n = 0; n < 400; ++n)
        world.add(QStringLiteral("Gate"), n, QString());
    world.show();
    auto* sizes = world.pages()->findChild<QComboBox*>(QStringLiteral("pageSize"));
    sizes->setCurrentIndex(3);
    QElapsedTimer clock;
    clock.start();
    emit sizes->activated(3);
    world.table()->visibleCellWidget(0, 4);
    qInfo("a page of %d rows: %lld ms", world.table()->rowCount(), clock.elapsed());
    QCOMPARE(world.table()->rowCount(), 200);
    clock.start();
    world.page->findChild<QToolButton*>(QStringLiteral("nextPage"))->click();
    qInfo("the next one: %lld ms", clock.elapsed());
    QVERIFY2(clock.elapsed() < 250, "far from what a person takes for at once");
}

QTEST_MAIN(LocalRecordingsPageTest)
#include "LocalRecordingsPageTest.moc"
