#include "LocalPageWorld.h"

#include "local/LocalFilesDelegate.h"
#include "local/LocalFilesMgrPage.h"
#include "local/LocalFilesView.h"

#include <DisabledWaitingWt.h>
#include <EmptyStateWt.h>
#include <ImageViewerDlg.h>
#include <LocalPlaybackDlg.h>
#include <SearchBox.h>

#include <QDir>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMimeData>
#include <QStackedWidget>
#include <QtTest>

using vemo_filesCenter::LocalFilesDelegate;
using vemo_filesCenter::LocalFilesMgrPage;
using vemo_filesCenter::LocalFilesView;

class LocalFilesPageTest final : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsRecordingsAndImagesAlone();
    void filtersByName_data();
    void filtersByName();
    void takesAFolderOnlyWhenItCanBeUsed();
    void opensFilesByTheirKind();
    void asksBeforeItDeletes();
    void tellsWhenAFileWillNotGo();
    void savesBySize_data();
    void savesBySize();
    void saysThatTheFolderIsGone();
    void givesFilesAwayAsCopies();
    void namesFilesOnTwoLines_data();
    void namesFilesOnTwoLines();

private:
    QString file(const QString& name, qint64 bytes = 10) const;
    void open(const QString& folder);
    QStringList shown() const;
    void select(const QString& name) const;
    LocalFilesView* view() const { return m_page->findChild<LocalFilesView*>(); }
    QFileSystemModel* model() const { return static_cast<QFileSystemModel*>(view()->model()); }
    int content() const { return m_page->findChild<QStackedWidget*>()->currentIndex(); }

    std::unique_ptr<LocalPageWorld> m_world;
    std::unique_ptr<LocalFilesMgrPage> m_page;
    QString m_folder;
};

void LocalFilesPageTest::init()
{
    m_world = std::make_unique<LocalPageWorld>();
    m_folder = m_world->world.path(QStringLiteral("files"));
    QVERIFY(QDir().mkpath(m_folder));
    m_page = std::make_unique<LocalFilesMgrPage>();
    m_page->resize(1100, 700);
    m_page->show();
}

void LocalFilesPageTest::cleanup()
{
    m_page.reset();
    m_world.reset();
}

QString LocalFilesPageTest::file(const QString& name, qint64 bytes) const
{
    QFile file(m_folder + QLatin1Char('/') + name);
    if (!file.open(QIODevice::WriteOnly) || !file.resize(bytes))
        qFatal("cannot write a test file");
    return file.fileName();
}

void LocalFilesPageTest::open(const QString& folder)
{
    m_world->chosen = folder;
    m_world->click(*m_page, "openDirBt");
    QTRY_COMPARE(model()->rootPath(), folder);
}

QStringList LocalFilesPageTest::shown() const
{
    QStringList names;
    for (int row = 0; row < model()->rowCount(view()->rootIndex()); ++row)
        names.append(model()->index(row, 0, view()->rootIndex()).data().toString());
    names.sort();
    return names;
}

void LocalFilesPageTest::select(const QString& name) const
{
    view()->setCurrentIndex(model()->index(m_folder + QLatin1Char('/') + name));
    QVERIFY(view()->currentIndex().isValid());
}

void LocalFilesPageTest::showsRecordingsAndImagesAlone()
{
    for (const char* name : {"a.mp4", "b.JPG", "c.png", "d.txt", "e.mp4.part", ".f.mp4"})
        file(QLatin1String(name));
    QVERIFY(QDir(m_folder).mkdir(QStringLiteral("g.mp4")));
    open(m_folder);
    QTRY_COMPARE(shown(), (QStringList{QStringLiteral("a.mp4"), QStringLiteral("b.JPG"), QStringLiteral("c.png")}));
    file(QStringLiteral("h.mp4"));
    QTRY_COMPARE(shown().size(), 4);
}

void LocalFilesPageTest::filtersByName_data()
{
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QStringList>("expected");
    const QStringList all{QStringLiteral("cam1 x.jpg"), QStringLiteral("cam10.mp4"), QStringLiteral("lobby%1.png")};
    QTest::newRow("none") << QString() << all;
    QTest::newRow("part of a name") << QStringLiteral("CAM1") << QStringList(all.mid(0, 2));
    QTest::newRow("wildcard") << QStringLiteral("c?m1 ") << QStringList(all.mid(0, 1));
    QTest::newRow("a place marker") << QStringLiteral("%1") << QStringList(all.mid(2));
    QTest::newRow("no hit") << QStringLiteral("gate") << QStringList();
}

void LocalFilesPageTest::filtersByName()
{
    QFETCH(QString, keyword);
    QFETCH(QStringList, expected);
    for (const char* name : {"cam10.mp4", "cam1 x.jpg", "lobby%1.png", "cam1.txt"})
        file(QLatin1String(name));
    open(m_folder);
    QTRY_COMPARE(shown().size(), 3);
    m_page->findChild<vemo_base::SearchBox*>()->setText(keyword);
    QTRY_COMPARE(shown(), expected);
    QTRY_COMPARE(content(), expected.isEmpty() ? 2 : 0);
}

void LocalFilesPageTest::takesAFolderOnlyWhenItCanBeUsed()
{
    file(QStringLiteral("a.mp4"));
    open(m_folder);
    const auto* dir = m_page->findChild<QLineEdit*>(QStringLiteral("dir"));
    QCOMPARE(dir->text(), QDir::toNativeSeparators(m_folder));
    for (const QString& refused : QStringList{QString(), m_folder, m_folder + QStringLiteral("/nowhere")}) {
        m_world->chosen = refused;
        m_world->click(*m_page, "openDirBt");
        QTest::qWait(50);
        QCOMPARE(dir->text(), QDir::toNativeSeparators(m_folder));
    }
    QVERIFY(m_world->alerts.isEmpty());
}

void LocalFilesPageTest::opensFilesByTheirKind()
{
    file(QStringLiteral("Gate.MP4"));
    QVERIFY(QFile::copy(m_world->image(QStringLiteral("x.jpg")), m_folder + QStringLiteral("/x.jpg")));
    open(m_folder);
    QTRY_COMPARE(shown().size(), 2);
    for (int round = 0; round < 2; ++round) {
        select(QStringLiteral("x.jpg"));
        emit view()->activated(view()->currentIndex());
        const auto viewers = m_page->findChildren<vemo_base::ImageViewerDlg*>();
        QCOMPARE(viewers.size(), 1);
        QVERIFY(viewers.first()->isVisible());
        QCOMPARE(viewers.first()->windowTitle(), QStringLiteral("x.jpg"));
        viewers.first()->close();
    }
    select(QStringLiteral("Gate.MP4"));
    emit view()->activated(view()->currentIndex());
    const auto players = m_page->findChildren<vemo_base::LocalPlaybackDlg*>();
    QCOMPARE(players.size(), 1);
    QCOMPARE(players.first()->windowTitle(), QStringLiteral("Gate.MP4"));
    players.first()->close();
}

void LocalFilesPageTest::asksBeforeItDeletes()
{
    const QString kept = file(QStringLiteral("kept%1.mp4"));
    const QString gone = file(QStringLiteral("gone.mp4"));
    open(m_folder);
    QTRY_COMPARE(shown().size(), 2);
    view()->setCurrentIndex({});
    m_world->click(*m_page, "deleteBt");
    QCOMPARE(m_world->alerts, QStringList{QStringLiteral("Please select a file to delete")});
    m_world->answer = 0;
    select(QStringLiteral("kept%1.mp4"));
    m_world->click(*m_page, "deleteBt");
    m_world->answer = 1;
    select(QStringLiteral("gone.mp4"));
    QTest::keyClick(view(), Qt::Key_Delete);
    QTRY_COMPARE(shown(), QStringList{QStringLiteral("kept%1.mp4")});
    QCOMPARE(m_world->questions, (QStringList{QStringLiteral("Do you want to delete file:kept%1.mp4?"),
                                              QStringLiteral("Do you want to delete file:gone.mp4?")}));
    QVERIFY(QFile::exists(kept) && !QFile::exists(gone));
}

void LocalFilesPageTest::tellsWhenAFileWillNotGo()
{
    const QString path = file(QStringLiteral("a.mp4"));
    open(m_folder);
    QTRY_COMPARE(shown().size(), 1);
    select(QStringLiteral("a.mp4"));
    m_world->whileAsked = [path] { // a folder takes its place, which is not removed
        QVERIFY(QFile::remove(path) && QDir().mkdir(path));
    };
    m_world->click(*m_page, "deleteBt");
    QTRY_COMPARE(m_world->alerts, QStringList{QStringLiteral("Failed to delete file")});
}

void LocalFilesPageTest::savesBySize_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<qint64>("kib");
    QTest::addColumn<bool>("canBeSaved");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("alerts");
    const QString video = QStringLiteral("Video(*.mp4)");
    const QString images = QStringLiteral("Images(*.jpg *.png)");
    const QStringList good{QStringLiteral("Save file as successful")};
    const QStringList bad{QStringLiteral("Save file as failure")};
    QTest::newRow("10 MiB") << QStringLiteral("a.mp4") << qint64(10240) << true << video << good;
    QTest::newRow("a KiB less") << QStringLiteral("a.mp4") << qint64(10239) << true << video << QStringList();
    QTest::newRow("image") << QStringLiteral("a.JPG") << qint64(1) << true << images << QStringList();
    QTest::newRow("large, no folder") << QStringLiteral("a.png") << qint64(20000) << false << images << bad;
    QTest::newRow("small, no folder") << QStringLiteral("a.png") << qint64(1) << false << images << bad;
}

void LocalFilesPageTest::savesBySize()
{
    QFETCH(QString, name);
    QFETCH(qint64, kib);
    QFETCH(bool, canBeSaved);
    QFETCH(QString, filter);
    QFETCH(QStringList, alerts);
    file(name, kib * 1024);
    open(m_folder);
    QTRY_COMPARE(shown().size(), 1);
    view()->setCurrentIndex({});
    m_world->click(*m_page, "saveAsBt");
    QCOMPARE(m_world->alerts, QStringList{QStringLiteral("Please select a file to save as")});
    m_world->alerts.clear();
    select(name);
    m_world->chosen = m_world->world.path(canBeSaved ? QStringLiteral("copy.x") : QStringLiteral("nowhere/copy.x"));
    m_world->click(*m_page, "saveAsBt");
    QCOMPARE(m_world->filters.last(), filter);
    if (canBeSaved)
        QTRY_COMPARE(QFileInfo(m_world->chosen).size(), kib * 1024);
    QTRY_COMPARE(m_world->alerts, alerts);
    QTRY_VERIFY(m_page->findChildren<vemo_base::DisabledWaitingWt*>().isEmpty());
}

void LocalFilesPageTest::saysThatTheFolderIsGone()
{
    file(QStringLiteral("a.mp4"));
    open(m_folder);
    QTRY_COMPARE(content(), 0);
    QVERIFY(QDir(m_folder).removeRecursively());
    QTRY_COMPARE(content(), 3);
    QVERIFY(QDir().mkpath(m_folder));
    file(QStringLiteral("b.mp4"));
    QTRY_COMPARE(shown(), QStringList{QStringLiteral("b.mp4")}); // without being asked
    QTRY_COMPARE(content(), 0);
}

void LocalFilesPageTest::givesFilesAwayAsCopies()
{
    const QString path = file(QStringLiteral("a b.mp4"));
    open(m_folder);
    QTRY_COMPARE(shown().size(), 1);
    select(QStringLiteral("a b.mp4"));
    const std::unique_ptr<QMimeData> dragged(model()->mimeData({view()->currentIndex()}));
    QCOMPARE(dragged->urls(), QList<QUrl>{QUrl::fromLocalFile(path)});
    QCOMPARE(model()->supportedDragActions(), Qt::DropActions(Qt::CopyAction));
    QVERIFY(view()->dragEnabled());
}

void LocalFilesPageTest::namesFilesOnTwoLines_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("lines");
    QTest::addColumn<QString>("lastLine"); ///< empty: does not matter
    QTest::newRow("short") << QStringLiteral("Site plan.png") << 1 << QStringLiteral("Site plan.png");
    QTest::newRow("channel and times") << QStringLiteral("Laderampe S\u00fcd - Kennzeichenerfassung@2026-01-08 "
                                                         "05_00_00~06_30_00.mp4")
                                       << 2 << QStringLiteral("05_00_00~06_30_00.mp4");
    QTest::newRow("without a space") << QString(300, QLatin1Char('x')) + QStringLiteral(".mp4") << 2 << QString();
    QTest::newRow("turned around") << QStringLiteral("a\u202egpj.mp4") << 1 << QStringLiteral("a\ufffdgpj.mp4");
}

void LocalFilesPageTest::namesFilesOnTwoLines()
{
    QFETCH(QString, name);
    QFETCH(int, lines);
    QFETCH(QString, lastLine);
    const QFontMetrics metrics(m_page->font());
    constexpr int width = 224;
    const QStringList shown = LocalFilesDelegate::nameLines(name, metrics, width);
    QCOMPARE(shown.size(), lines);
    for (const QString& line : shown)
        QVERIFY2(metrics.horizontalAdvance(line) <= width, qPrintable(line));
    if (!lastLine.isEmpty())
        QCOMPARE(shown.last(), lastLine);
}

QTEST_MAIN(LocalFilesPageTest)
#include "LocalFilesPageTest.moc"
