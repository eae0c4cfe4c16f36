#include "shell/NoticeBell.h"

#include <Notices.h>

#include <QListView>
#include <QPushButton>
#include <QtTest>

using vemo_base::Notice;
using vemo_base::Notices;
using vemo_client::NoticeBell;

Q_DECLARE_METATYPE(vemo_base::Notice::Kind)

class NoticeBellTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { Notices::instance().clear(); }

    void countsFailuresThatNobodyHasRead_data()
    {
        QTest::addColumn<QVector<Notice::Kind>>("kinds");
        QTest::addColumn<QString>("tip");
        using Kinds = QVector<Notice::Kind>;
        QTest::newRow("nothing") << Kinds{} << "Notices";
        QTest::newRow("good news") << Kinds{Notice::Kind::Success, Notice::Kind::Information} << "Notices: 2 new";
        QTest::newRow("failures among them") << Kinds{Notice::Kind::Error, Notice::Kind::Success, Notice::Kind::Warning}
                                             << "Notices: 3 new, 2 of them tell of failures";
    }

    void countsFailuresThatNobodyHasRead()
    {
        QFETCH(QVector<Notice::Kind>, kinds);
        QFETCH(QString, tip);
        NoticeBell bell;
        for (const Notice::Kind kind : kinds)
            add(kind, QString::number(Notices::instance().all().size()));
        QCOMPARE(bell.toolTip(), tip);
        bell.click();
        QCOMPARE(bell.toolTip(), QStringLiteral("Notices"));
        add(Notice::Kind::Error, QStringLiteral("while the list is open"));
        QCOMPARE(bell.toolTip(), QStringLiteral("Notices"));
    }

    void listsTheNewestFirstAndDoesWhatItOffers()
    {
        NoticeBell bell;
        bool isDone = false;
        add(Notice::Kind::Information, QStringLiteral("older"), [&isDone] { isDone = true; });
        add(Notice::Kind::Error, QStringLiteral("newer"));
        bell.click();
        auto* list = bell.findChild<QListView*>();
        QCOMPARE(list->model()->rowCount(), 2);
        QCOMPARE(list->currentIndex().data().toString(), QStringLiteral("newer"));
        QTest::keyClick(list, Qt::Key_Return);
        QVERIFY2(list->isVisible(), "a notice without a deed closed the list");
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
        QVERIFY(isDone && !list->isVisible());
    }

    void forgetsThemAll()
    {
        NoticeBell bell;
        add(Notice::Kind::Error, QStringLiteral("one"));
        bell.click();
        auto* clear = bell.findChild<QPushButton*>();
        QVERIFY(clear->isEnabled());
        clear->click();
        QVERIFY(Notices::instance().all().isEmpty() && !clear->isEnabled());
        QVERIFY(!bell.findChild<QListView*>()->isVisible());
    }

private:
    static void add(Notice::Kind kind, const QString& title, const std::function<void()>& deed = {})
    {
        Notice notice;
        notice.kind = kind;
        notice.title = title;
        if (deed)
            notice.actions = {{QStringLiteral("Do it"), deed}};
        Notices::instance().add(notice);
    }
};

QTEST_MAIN(NoticeBellTest)
#include "tst_NoticeBell.moc"
