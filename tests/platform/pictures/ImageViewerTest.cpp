#include <ImageViewerDlg.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using vemo_base::ImageViewerDlg;

class ImageViewerTest final : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_dialog.reset(); }
    void stepsThroughTheList_data();
    void stepsThroughTheList();
    void copiesWhatIsShown();
    void saysWhatCannotBeRead();
    void canBeDeletedWhileItLoads();

private:
    QString text(const char* name) const { return m_dialog->findChild<QLabel*>(QLatin1String(name))->text(); }

    QTemporaryDir m_dir;
    QStringList m_files;
    std::unique_ptr<ImageViewerDlg> m_dialog;
};

void ImageViewerTest::init()
{
    if (m_files.isEmpty()) {
        for (int i = 0; i < 4; ++i) {
            QImage image(400 + i, 300, QImage::Format_RGB32);
            image.fill(Qt::darkBlue);
            m_files.append(m_dir.filePath(QStringLiteral("%1.jpg").arg(i)));
            QVERIFY(image.save(m_files.last()));
        }
        QFile broken(m_dir.filePath(QStringLiteral("broken.jpg")));
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no picture") > 0);
        m_files.append(broken.fileName());
    }
    m_dialog = std::make_unique<ImageViewerDlg>();
}

void ImageViewerTest::stepsThroughTheList_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("expected");
    QTest::newRow("on") << 1 << int(Qt::Key_Right) << 2;
    QTest::newRow("back") << 1 << int(Qt::Key_Left) << 0;
    QTest::newRow("not before the first") << 0 << int(Qt::Key_PageUp) << 0;
    QTest::newRow("not behind the last") << 4 << int(Qt::Key_PageDown) << 4;
    QTest::newRow("to the last") << 0 << int(Qt::Key_End) << 4;
    QTest::newRow("a start behind the end") << 99 << int(Qt::Key_Home) << 0;
}

void ImageViewerTest::stepsThroughTheList()
{
    QFETCH(int, start);
    QFETCH(int, key);
    QFETCH(int, expected);
    m_dialog->setImageFiles(m_files, {QStringLiteral("Gate North 08:14:22")}, start);
    m_dialog->show();
    QTest::keyClick(m_dialog.get(), static_cast<Qt::Key>(key));
    QCOMPARE(m_dialog->currentIndex(), expected);
    QCOMPARE(text("viewerPlace"), QStringLiteral("%1 of 5").arg(expected + 1));
    QCOMPARE(m_dialog->windowTitle(), expected == 0   ? QStringLiteral("Gate North 08:14:22")
                                      : expected == 4 ? QStringLiteral("broken.jpg")
                                                      : QStringLiteral("%1.jpg").arg(expected));
}

void ImageViewerTest::copiesWhatIsShown()
{
    QPixmap pixmap(120, 80);
    pixmap.fill(Qt::green);
    m_dialog->setImages({pixmap}, 0);
    m_dialog->show();
    QTRY_COMPARE(text("viewerScale"), QStringLiteral("100%"));
    QTest::keyClick(m_dialog.get(), Qt::Key_R);
    QTest::keyClick(m_dialog.get(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->image().size(), QSize(80, 120));
    QTest::keyClick(m_dialog.get(), Qt::Key_Plus);
    QCOMPARE(text("viewerScale"), QStringLiteral("125%"));
    QTest::keyClick(m_dialog.get(), Qt::Key_0);
    QCOMPARE(text("viewerScale"), QStringLiteral("100%"));
}

void ImageViewerTest::saysWhatCannotBeRead()
{
    m_dialog->setImageFiles(m_files, {}, 3);
    m_dialog->show();
    QTRY_VERIFY(!text("viewerScale").isEmpty());
    QTest::keyClick(m_dialog.get(), Qt::Key_Right);
    QTRY_VERIFY2(text("viewerScale").isEmpty(), "it can be zoomed, though it can't be read");
    const QImage before = QGuiApplication::clipboard()->image();
    QTest::keyClick(m_dialog.get(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->image(), before);
}

void ImageViewerTest::canBeDeletedWhileItLoads()
{
    for (int i = 0; i < 20; ++i) {
        ImageViewerDlg dialog;
        dialog.setImageFiles(m_files, {}, i % m_files.size());
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Right);
        if (i % 3 == 0)
            dialog.close();
    }
    QCoreApplication::processEvents();
}

QTEST_MAIN(ImageViewerTest)
#include "ImageViewerTest.moc"
