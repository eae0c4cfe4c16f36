#include "TestWorld.h"

#include <IndexesInfoResult.h>
#include <LocalRecordingIndexes.h>

#include <QSignalSpy>
#include <QtTest>

using VCOMMON::ChannelInfo;
using VCOMMON::IndexesInfoResult;
using VCOMMON::LocalRecordingIndexes;
using VCOMMON::LocalRecordingIndexInfo;

namespace {

QDateTime at(int hour, int minute = 0)
{
    return {QDate(2026, 1, 10), QTime(hour, minute)};
}

LocalRecordingIndexInfo makeRecord(const QString& devId, int channelNo, int hour)
{
    LocalRecordingIndexInfo record;
    record.devId = devId;
    record.channelNo = channelNo;
    record.beginTime = at(hour);
    record.endTime = at(hour + 1);
    record.filePath = QStringLiteral("/videos/%1-%2-%3.mp4").arg(devId).arg(channelNo).arg(hour);
    return record;
}

} // namespace

class LocalRecordingIndexesTest : public QObject
{
    Q_OBJECT

private slots:
    void findsWhatTouchesTheSpanOfTheChannels_data()
    {
        QTest::addColumn<QDateTime>("begin");
        QTest::addColumn<QDateTime>("end");
        QTest::addColumn<QList<int>>("hours");
        QTest::newRow("within one file") << at(9, 10) << at(9, 20) << QList<int>{9};
        QTest::newRow("over an edge") << at(8, 30) << at(9, 30) << QList<int>{8, 9};
        QTest::newRow("edges do not touch") << at(9) << at(10) << QList<int>{9};
        QTest::newRow("before everything") << at(1) << at(2) << QList<int>{};
        QTest::newRow("the whole day") << at(0) << at(23) << QList<int>{8, 9, 10};
    }

    void findsWhatTouchesTheSpanOfTheChannels()
    {
        QFETCH(QDateTime, begin);
        QFETCH(QDateTime, end);
        QFETCH(QList<int>, hours);
        const TestWorld world;
        LocalRecordingIndexes& indexes = LocalRecordingIndexes::instance();
        for (int hour : {10, 8, 9}) { // not in order
            indexes.addLocalRecordingIndex(makeRecord(QStringLiteral("a"), 1, hour));
            indexes.addLocalRecordingIndex(makeRecord(QStringLiteral("a"), 2, hour));
            indexes.addLocalRecordingIndex(makeRecord(QStringLiteral("b"), 1, hour));
        }
        ChannelInfo channel;
        channel.devId = QStringLiteral("a");
        channel.channelNo = 1;

        IndexesInfoResult result(QStringLiteral("mine"));
        const IndexesInfoResult other(QStringLiteral("another's"));
        QSignalSpy answers(&result, &IndexesInfoResult::signalIndexesInfoResult);
        QSignalSpy otherAnswers(&other, &IndexesInfoResult::signalIndexesInfoResult);
        emit indexes.signalGetChannelsLocalRecordingIndexesInfo(QStringLiteral("mine"), {channel}, begin, end, 0);
        QCOMPARE(answers.size(), 0); // later, never from within
        QVERIFY(answers.wait());
        QCOMPARE(otherAnswers.size(), 0);
        QList<int> found;
        for (const auto& record : answers.at(0).at(0).value<QList<LocalRecordingIndexInfo>>()) {
            QCOMPARE(record.devId, QStringLiteral("a"));
            QCOMPARE(record.channelNo, 1);
            QCOMPARE(record.filePath, makeRecord(record.devId, 1, record.beginTime.time().hour()).filePath);
            found.append(record.beginTime.time().hour());
        }
        QCOMPARE(found, hours);
    }
};

QTEST_GUILESS_MAIN(LocalRecordingIndexesTest)
#include "LocalRecordingIndexesTest.moc"
