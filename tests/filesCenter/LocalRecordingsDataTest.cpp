#include "../platform/TestWorld.h"

#include <local/LocalRecordingItem.h>
#include <local/LocalRecordingsData.h>

#include <BaseTools.h>
#include <DevsMgrData.h>
#include <LocalRecordingIndexInfo.h>

#include <QtTest>

using VCOMMON::LocalRecordingIndexInfo;
using vemo_filesCenter::LocalRecordingItem;
using vemo_filesCenter::LocalRecordingsData;

namespace {

const QDateTime day(QDate(2026, 1, 10), QTime(0, 0));

LocalRecordingIndexInfo recordOf(const QString& channel, int hour)
{
    LocalRecordingIndexInfo record;
    record.channelName = channel;
    record.beginTime = day.addSecs(hour * 3600);
    record.endTime = record.beginTime.addSecs(600);
    record.filePath = channel + QLatin1Char('-') + QString::number(hour);
    return record;
}

QString textOf(const QList<LocalRecordingIndexInfo>& records)
{
    QStringList names;
    for (const LocalRecordingIndexInfo& record : records)
        names.append(record.filePath);
    return names.join(QLatin1Char(' '));
}

} // namespace

/// Order, filter, pages and removal as the page of local recordings shows them.
class LocalRecordingsDataTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_data.setRecordings({recordOf(QStringLiteral("Gate10"), 1), recordOf(QStringLiteral("gate2"), 9),
                              recordOf(QStringLiteral("Gate2"), 3), recordOf(QStringLiteral("Yard"), 2),
                              recordOf(QStringLiteral("Gate10"), 0)});
    }

    void cutsTheFilteredRecordsIntoPages_data()
    {
        QTest::addColumn<QString>("keyword");
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("found");
        QTest::newRow("all, by name and begin") << "" << 9 << 1 << "Gate2-3 gate2-9 Gate10-0 Gate10-1 Yard-2";
        QTest::newRow("page 0 is page 1") << "" << 2 << 0 << "Gate2-3 gate2-9";
        QTest::newRow("the last page") << "" << 2 << 3 << "Yard-2";
        QTest::newRow("behind the last") << "" << 5 << 2 << "";
        QTest::newRow("far behind it") << "" << 0x7fffffff << 0x7fffffff << "";
        QTest::newRow("capital or small") << "GATE" << 2 << 2 << "Gate10-0 Gate10-1";
        QTest::newRow("none") << "no such" << 9 << 1 << "";
    }

    void cutsTheFilteredRecordsIntoPages()
    {
        QFETCH(QString, keyword);
        QFETCH(int, size);
        QFETCH(int, page);
        m_data.filter(keyword);
        QTEST(textOf(m_data.getPage(size, page)), "found");
    }

    void removesRowsOfAPage_data()
    {
        QTest::addColumn<QString>("keyword");
        QTest::addColumn<int>("page");
        QTest::addColumn<QList<int>>("rows");
        QTest::addColumn<QString>("left");
        QTest::newRow("of the second page") << "" << 2 << QList<int>{0, 1} << "Gate2-3 gate2-9 Yard-2";
        QTest::newRow("of a filtered page") << "yard" << 1 << QList<int>{0} << "Gate2-3 gate2-9 Gate10-0 Gate10-1";
        QTest::newRow("rows that there are not")
            << "" << 3 << QList<int>{-7, 0, 1, 99} << "Gate2-3 gate2-9 Gate10-0 Gate10-1";
    }

    void removesRowsOfAPage()
    {
        QFETCH(QString, keyword);
        QFETCH(int, page);
        QFETCH(QList<int>, rows);
        m_data.filter(keyword);
        m_data.removeRecords(2, page, keyword, rows);
        m_data.filter(QString());
        QTEST(textOf(m_data.getPage(9, 1)), "left");
    }

    void followsAChannelThatIsRenamed()
    {
        const TestWorld world;
        vemo_data::DevsMgrData& devs = vemo_data::DevsMgrData::instance();
        vemo_data::DevRecord device;
        device.name = QStringLiteral("NVR");
        device.address = QUrl(QStringLiteral("http://10.0.0.5"));
        const QString devId = devs.addSessionDev(device);
        LocalRecordingIndexInfo record = recordOf(QStringLiteral("Old"), 1);
        record.devId = devId;
        record.channelId = vemo_base::BaseTools::instance().formatChannelId(devId, 7);
        m_data.setRecordings({record});
        m_data.filter(QStringLiteral("channel 7")); // what it is called now, its own name is not known
        QCOMPARE(m_data.filteredCount(), 1);
        QCOMPARE(LocalRecordingItem(record).devName(), QStringLiteral("NVR"));
        devs.removeDev(devId);
        m_data.filter(QStringLiteral("old"));
        QCOMPARE(m_data.filteredCount(), 1);
        QCOMPARE(LocalRecordingItem(record).devName(), devId);
    }

    void sortsItemsAsTheListIsSorted()
    {
        const LocalRecordingItem early(recordOf(QStringLiteral("Gate2"), 1));
        const LocalRecordingItem late(recordOf(QStringLiteral("Gate2"), 2));
        const LocalRecordingItem other(recordOf(QStringLiteral("Gate10"), 0));
        QVERIFY(early < late && !(late < early));
        QVERIFY(late < other && !(other < late));
    }

private:
    LocalRecordingsData m_data;
};

QTEST_MAIN(LocalRecordingsDataTest)
#include "LocalRecordingsDataTest.moc"
