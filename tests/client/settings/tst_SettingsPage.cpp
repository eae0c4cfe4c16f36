// The page of settings as a person uses it: nothing is stored before Save, and every setting that is shown is kept.
#include "TestWorld.h"

#include "settings/AutoStart.h"
#include "settings/SettingField.h"
#include "settings/SettingsPage.h"

#include <SegmentedBar.h>
#include <SystemConfig.h>
#include <SystemWorker.h>
#include <Theme.h>
#include <ToggleSwitch.h>
#include <VMessageBox.h>

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using vemo_client::SettingField;
using vemo_client::SettingsPage;
using vemo_worker::SystemConfig;
using vemo_worker::SystemWorker;

namespace {

SettingField* fieldOf(const SettingsPage& page, const char* label)
{
    const auto fields = page.findChildren<SettingField*>();
    for (SettingField* field : fields) {
        if (field->label() == QLatin1String(label))
            return field;
    }
    qFatal("no field %s", label);
    return nullptr;
}

QPushButton* buttonOf(const SettingsPage& page, const char* text)
{
    const auto buttons = page.findChildren<QPushButton*>();
    for (QPushButton* button : buttons) {
        if (button->text() == QLatin1String(text))
            return button;
    }
    return nullptr;
}

/// As a person would: another choice, the other position, another text.
void change(const SettingField* field)
{
    if (auto* toggle = field->findChild<vemo_base::ToggleSwitch*>()) {
        toggle->click();
    } else if (auto* bar = field->findChild<vemo_base::SegmentedBar*>()) {
        bar->setValue(1 - bar->value());
        emit bar->signalChosen(bar->value());
    } else if (auto* number = field->findChild<QDoubleSpinBox*>()) {
        number->setValue(number->value() + 12.5);
    } else if (auto* box = field->findChild<QComboBox*>()) {
        box->setCurrentIndex(box->currentIndex() == 0 ? 1 : 0);
        emit box->activated(box->currentIndex());
    }
}

void type(const SettingField* field, const QString& path)
{
    auto* edit = field->findChild<QLineEdit*>();
    edit->setText(path);
    emit edit->textEdited(path);
    emit edit->editingFinished();
}

} // namespace

class SettingsPageTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<TestWorld>();
        qputenv("HOME", m_world->path(QString()).toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", m_world->path(QStringLiteral("xdg")).toLocal8Bit());
        SystemConfig::instance().setVideoFilePath(m_world->path(QStringLiteral("videos")));
        QDir(m_world->path({})).mkdir(QStringLiteral("videos"));
        m_page = std::make_unique<SettingsPage>(QStringList{QStringLiteral("en"), QStringLiteral("de")});
        m_page->resize(1200, 800);
        m_page->show();
    }
    void cleanup()
    {
        m_page.reset();
        SystemWorker::instance().setCurUser(QStringLiteral("admin"), SystemWorker::allPowers);
        m_world.reset();
    }

    void keepsEverySetting_data()
    {
        QTest::addColumn<QString>("label");
        for (const char* label : {"Language", "When you log in to this computer", "Keep log entries", "Date format",
                                  "Snapshot format", "Largest file", "When the client starts", "When a copy is deleted",
                                  "Highest rate", "Wall clock", "Theme", "Good news", "Warnings", "Downloads"})
            QTest::newRow(label) << QString::fromLatin1(label);
    }
    void keepsEverySetting()
    {
        QFETCH(QString, label);
        SettingField* field = fieldOf(*m_page, label.toLatin1().constData());
        const QVariant before = field->value();
        change(field);
        const QVariant chosen = field->value();
        QVERIFY2(chosen != before, qPrintable(chosen.toString()));
        QCOMPARE(m_page->changes(), 1);
        {
            const SettingsPage other({QStringLiteral("en"), QStringLiteral("de")});
            QCOMPARE(fieldOf(other, label.toLatin1().constData())->value(), before);
        }
        buttonOf(*m_page, "Save")->click();
        QCOMPARE(m_page->changes(), 0);
        const SettingsPage other({QStringLiteral("en"), QStringLiteral("de")});
        QCOMPARE(fieldOf(other, label.toLatin1().constData())->value(), chosen);
        vemo_base::Theme::instance().setChoice(vemo_base::Theme::Choice::System);
    }

    void discardShowsWhatIsStored()
    {
        SettingField* field = fieldOf(*m_page, "Largest file");
        const QVariant before = field->value();
        change(field);
        change(fieldOf(*m_page, "Warnings"));
        QCOMPARE(m_page->changes(), 2);
        buttonOf(*m_page, "Discard")->click();
        QCOMPARE(m_page->changes(), 0);
        QCOMPARE(field->value(), before);
        QVERIFY(!buttonOf(*m_page, "Save")->isEnabled());
    }

    void holdsBackAFolderThatWillNotDo()
    {
        m_page->showSection(QStringLiteral("storage"));
        SettingField* field = fieldOf(*m_page, "Download path");
        const QString before = SystemConfig::instance().getDownloadPath();
        QTRY_VERIFY(field->isAcceptable());
        type(field, QStringLiteral("/proc/self"));
        QTRY_VERIFY(!field->isAcceptable());
        QVERIFY(!buttonOf(*m_page, "Save")->isEnabled());

        const QString missing = m_world->path(QStringLiteral("a/new one"));
        type(field, missing);
        QPushButton* make = buttonOf(*m_page, "Make folder");
        QTRY_VERIFY(make->isVisible());
        QVERIFY(!buttonOf(*m_page, "Save")->isEnabled());
        make->click();
        QTRY_VERIFY(field->isAcceptable());
        QTRY_VERIFY(buttonOf(*m_page, "Save")->isEnabled());
        QCOMPARE(SystemConfig::instance().getDownloadPath(), before);
        buttonOf(*m_page, "Save")->click();
        QCOMPARE(SystemConfig::instance().getDownloadPath(), missing);
        QVERIFY(QFileInfo(missing).isDir());
    }

    void movesTheVideoFolderAndLeavesTheOthersWhereTheyAre()
    {
        const QString downloads = SystemConfig::instance().getDownloadPath();
        m_page->showSection(QStringLiteral("storage"));
        SettingField* field = fieldOf(*m_page, "Local recording and snapshot path");
        const QString other = m_world->path(QStringLiteral("other"));
        QVERIFY(QDir().mkpath(other));
        type(field, other);
        QTRY_VERIFY(field->isAcceptable() && buttonOf(*m_page, "Save")->isEnabled());
        buttonOf(*m_page, "Save")->click();
        QCOMPARE(SystemConfig::instance().getDownloadPath(), downloads);
        QCOMPARE(SystemConfig::instance().getLocalSnapshotPath(), QString(other + QStringLiteral("/Snapshots")));
    }

    void asksBeforeChangesAreGivenUp_data()
    {
        QTest::addColumn<bool>("givesUp");
        QTest::newRow("stays") << false;
        QTest::newRow("gives up") << true;
    }
    void asksBeforeChangesAreGivenUp()
    {
        QFETCH(bool, givesUp);
        QVERIFY(m_page->mayLeave());
        change(fieldOf(*m_page, "Warnings"));
        QTimer::singleShot(0, this, [givesUp] {
            auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (box)
                box->done(givesUp ? QDialog::Accepted : QDialog::Rejected);
        });
        QCOMPARE(m_page->mayLeave(), givesUp);
        QCOMPARE(m_page->changes(), givesUp ? 0 : 1);
    }

    void leavesToOthersOnlyWhatIsTheirs()
    {
        SystemWorker::instance().setCurUser(QStringLiteral("guard"), vemo_worker::PowerLive);
        const auto fields = m_page->findChildren<SettingField*>();
        for (const SettingField* field : fields) {
            QCOMPARE(field->isEnabled(), field->label() == QStringLiteral("Theme"));
            QVERIFY(field->isEnabled() || !field->toolTip().isEmpty());
        }
    }

    void findsASettingByItsWords()
    {
        auto* search = m_page->findChild<QLineEdit*>();
        const auto edits = m_page->findChildren<QLineEdit*>();
        for (QLineEdit* edit : edits) {
            if (edit->placeholderText() == QStringLiteral("Search settings"))
                search = edit;
        }
        QApplication::setActiveWindow(m_page.get());
        search->setFocus();
        QTest::keyClicks(search, QStringLiteral("clock"));
        QTest::keyClick(search, Qt::Key_Return);
        const SettingField* field = fieldOf(*m_page, "Wall clock");
        QTRY_VERIFY(field->isVisible());
        QCOMPARE(search->text(), QString());
    }

    void quotesTheCommandOfTheAutostart_data()
    {
        QTest::addColumn<QString>("argument");
        QTest::addColumn<QString>("line");
        QTest::newRow("spaces") << QStringLiteral("/opt/My App/vemo") << QStringLiteral("\"/opt/My App/vemo\"");
        QTest::newRow("percent") << QStringLiteral("100%") << QStringLiteral("\"100%%\"");
        QTest::newRow("dollar") << QStringLiteral("a$b") << QStringLiteral("\"a\\\\$b\"");
        QTest::newRow("quote") << QStringLiteral("a\"b") << QStringLiteral("\"a\\\\\"b\"");
        QTest::newRow("backslash") << QStringLiteral("a\\b") << QStringLiteral("\"a\\\\\\\\b\"");
    }
    void quotesTheCommandOfTheAutostart()
    {
        QFETCH(QString, argument);
        QTEST(vemo_client::AutoStart::execLine({argument}), "line");
    }

private:
    std::unique_ptr<TestWorld> m_world;
    std::unique_ptr<SettingsPage> m_page;
};

QTEST_MAIN(SettingsPageTest)
#include "tst_SettingsPage.moc"
