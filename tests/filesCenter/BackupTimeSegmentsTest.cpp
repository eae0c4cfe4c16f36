#include "../platform/TestWorld.h"

#include <backup/BackupTimeSegmentsSettingWt.h>
#include <backup/BackupTimeSegmentWt.h>
#include <UiSettings.h>

#include <QLabel>
#include <QToolButton>
#include <QtTest>

using vemo_filesCenter::BackupTimeSegmentsSettingWt;
using vemo_filesCenter::BackupTimeSegmentWt;

namespace {

QString key()
{
    return QStringLiteral("backup_time_segments");
}

QString textOf(const QList<vemo_data::BackupTimeSegment>& segments)
{
    QStringList texts;
    for (const vemo_data::BackupTimeSegment& segment : segments)
        texts.append(segment.start.toString(QStringLiteral("HH:mm:ss.zzz")) + QLatin1Char('-') +
                     segment.end.toString(QStringLiteral("HH:mm:ss.zzz")));
    return texts.join(QLatin1Char(' '));
}

/// "08:00 10:00 ..."
QVariantList timesOf(const QString& text)
{
    QVariantList times;
    for (const QString& time : text.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        times.append(QTime::fromString(time, QStringLiteral("HH:mm")));
    return times;
}

QList<BackupTimeSegmentWt*> rowsOf(const BackupTimeSegmentsSettingWt& editor)
{
    QList<BackupTimeSegmentWt*> rows;
    for (BackupTimeSegmentWt* row : editor.findChildren<BackupTimeSegmentWt*>()) {
        if (!row->isHidden())
            rows.append(row);
    }
    return rows;
}

} // namespace

class BackupTimeSegmentsTest : public QObject
{
    Q_OBJECT

private slots:
    void comeBackMergedAndAscending_data()
    {
        QTest::addColumn<QString>("entered");
        QTest::addColumn<QString>("returned");
        QTest::newRow("touching") << "08:00 10:00 10:00 12:00"
                                  << "08:00:00.000-12:00:59.000";
        QTest::newRow("other order") << "14:00 15:00 09:00 10:00"
                                     << "09:00:00.000-10:00:59.000 14:00:00.000-15:00:59.000";
        QTest::newRow("one bridges two") << "08:00 09:00 12:00 13:00 08:30 12:30"
                                         << "08:00:00.000-13:00:59.000";
        QTest::newRow("one holds another") << "08:00 18:00 09:00 10:00"
                                           << "08:00:00.000-18:00:59.000";
        QTest::newRow("a minute apart") << "08:00 09:00 09:01 10:00"
                                        << "08:00:00.000-09:00:59.000 09:01:00.000-10:00:59.000";
        QTest::newRow("as it starts") << ""
                                      << "00:00:00.000-00:00:59.000";
        QTest::newRow("start after end") << "14:00 08:00"
                                         << "14:00:00.000-08:00:59.000";
    }

    void comeBackMergedAndAscending()
    {
        QFETCH(QString, entered);
        const TestWorld world;
        BackupTimeSegmentsSettingWt editor;
        const QVariantList times = timesOf(entered);
        auto* add = editor.findChild<QToolButton*>(QStringLiteral("addBt"));
        for (int i = 0; i < times.size(); i += 2) {
            if (i > 0)
                add->click();
            rowsOf(editor).last()->setTimes(times.at(i).toTime(), times.at(i + 1).toTime());
        }
        const QString returned = textOf(editor.getTimeSegments());
        QTEST(returned, "returned");
        // What was returned is what the next editor begins with.
        BackupTimeSegmentsSettingWt next;
        QCOMPARE(textOf(next.getTimeSegments()), returned);
    }

    void startWithTheStoredOnes_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("rows");
        QTest::newRow("twelve values") << "01:00 02:00 03:00 04:00 05:00 06:00 07:00 08:00 09:00 10:00 11:00 12:00"
                                       << 5;
        QTest::newRow("three values") << "01:00 02:00 03:00" << 1;
        QTest::newRow("one value") << "01:00" << 0;
        QTest::newRow("nothing") << "" << 1;
    }

    void startWithTheStoredOnes()
    {
        QFETCH(QString, stored);
        const TestWorld world;
        vemo_worker::UiSettings::instance().setValue(key(), timesOf(stored));
        const BackupTimeSegmentsSettingWt editor;
        QTEST(rowsOf(editor).size(), "rows");
        for (int i = 0; !stored.isEmpty() && i < rowsOf(editor).size(); ++i) {
            QCOMPARE(rowsOf(editor).at(i)->startTime(), timesOf(stored).at(2 * i).toTime());
            QCOMPARE(rowsOf(editor).at(i)->endTime(), timesOf(stored).at(2 * i + 1).toTime());
        }
    }

    void areFiveAtMostAndNumberedAnew()
    {
        const TestWorld world;
        BackupTimeSegmentsSettingWt editor;
        auto* add = editor.findChild<QToolButton*>(QStringLiteral("addBt"));
        for (int i = 0; i < 4; ++i)
            add->click();
        QVERIFY2(add->isHidden(), "a sixth segment can be added");
        rowsOf(editor).at(1)->findChild<QToolButton*>(QStringLiteral("deleteBt"))->click();
        QVERIFY(!add->isHidden());
        QCOMPARE(rowsOf(editor).size(), 4);
        QStringList names;
        for (const BackupTimeSegmentWt* row : rowsOf(editor))
            names.append(row->findChild<QLabel*>()->text());
        QCOMPARE(names.join(QLatin1Char(',')),
                 QStringLiteral("Time Segment 1,Time Segment 2,Time Segment 3,Time Segment 4"));
    }

    void mayAllBeDeleted()
    {
        const TestWorld world;
        BackupTimeSegmentsSettingWt editor;
        rowsOf(editor).first()->findChild<QToolButton*>(QStringLiteral("deleteBt"))->click();
        QVERIFY(editor.getTimeSegments().isEmpty());
    }
};

QTEST_MAIN(BackupTimeSegmentsTest)
#include "BackupTimeSegmentsTest.moc"
