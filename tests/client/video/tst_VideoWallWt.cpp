#include "devices/ChannelMime.h"
#include "video/VideoTileWt.h"
#include "video/VideoWallWt.h"

#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest>

using vemo_client::ChannelMime;
using vemo_client::ChannelRef;
using vemo_client::VideoTileWt;
using vemo_client::VideoWallWt;

class VideoWallTest final : public QObject
{
    Q_OBJECT

private slots:
    void movesTheSelectionAndEnlargesByKeys();
    void takesChannelsThatAreDropped();
};

void VideoWallTest::movesTheSelectionAndEnlargesByKeys()
{
    VideoWallWt wall;
    wall.resize(920, 620);
    wall.setTileCount(9);
    wall.show();
    const QVector<QPair<Qt::Key, int>> keys{{Qt::Key_Right, 1}, {Qt::Key_Down, 4}, {Qt::Key_Left, 3}, {Qt::Key_Left, 3},
                                            {Qt::Key_Down, 6},  {Qt::Key_Down, 6}, {Qt::Key_Up, 3}};
    for (const QPair<Qt::Key, int>& step : keys) {
        QTest::keyClick(&wall, step.first);
        QCOMPARE(wall.selected(), step.second);
        QVERIFY(wall.tile(step.second)->isSelected());
    }
    QTest::keyClick(&wall, Qt::Key_Return);
    QCOMPARE(wall.enlarged(), 3);
    QVERIFY(wall.tile(3)->width() > 900 && !wall.tile(4)->isVisible());
    QTest::keyClick(&wall, Qt::Key_Escape);
    QCOMPARE(wall.enlarged(), -1);
    QVERIFY(wall.tile(4)->isVisible());

    wall.setTileCount(1);
    QCOMPARE(wall.selected(), 0);
    QSignalSpy removed(&wall, &VideoWallWt::signalRemoveWanted);
    QTest::keyClick(&wall, Qt::Key_Delete);
    QCOMPARE(removed.size(), 1);
}

void VideoWallTest::takesChannelsThatAreDropped()
{
    VideoWallWt wall;
    wall.setTileCount(4);
    qRegisterMetaType<ChannelRef>("vemo_client::ChannelRef");
    QSignalSpy dropped(&wall, &VideoWallWt::signalChannelDropped);
    const ChannelRef channel{QStringLiteral("dév 1"), 12};
    QMimeData data;
    data.setData(ChannelMime::type(), ChannelMime::encode(channel));
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(wall.tile(2), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(wall.tile(2), &event);
    QCOMPARE(dropped.size(), 1);
    QCOMPARE(dropped.first().first().toInt(), 2);
    QVERIFY(dropped.first().last().value<ChannelRef>() == channel);
    QCOMPARE(wall.selected(), 2);
}

QTEST_MAIN(VideoWallTest)
#include "tst_VideoWallWt.moc"
