#include <FormsMgr.h>
#include <ModuleAccess.h>

#include <QSignalSpy>
#include <QTest>

#include <memory>

using vemo_base::BaseForm;
using vemo_base::FormsMgr;

/// Forms on request of modules, up to their limit.
class tst_FormsMgr : public QObject
{
    Q_OBJECT

private slots:
    void leavesRequestsAloneWhereNothingIsRegistered();
    void makesOneFilesCenterAndAnotherOnlyWhenItIsGone();
};

void tst_FormsMgr::leavesRequestsAloneWhereNothingIsRegistered()
{
    QVERIFY2(!FormsMgr::isFormsCntToLimit(vemo_base::FilesCenterFormType), "no form, and yet at the limit");
    emit vemo_contact::ModuleAccess::instance().signalCreateModuleForm(vemo_base::FilesCenterFormType);
    QVERIFY(FormsMgr::instance().forms(vemo_base::FilesCenterFormType).isEmpty());
}

void tst_FormsMgr::makesOneFilesCenterAndAnotherOnlyWhenItIsGone()
{
    FormsMgr& forms = FormsMgr::instance();
    int made = 0;
    forms.registerForm(vemo_base::FilesCenterFormType, [&made] {
        ++made;
        return new BaseForm(vemo_base::FilesCenterFormType);
    });
    std::unique_ptr<BaseForm> placed;
    connect(&forms, &FormsMgr::signalFormCreated, this, [&placed](BaseForm* form) { placed.reset(form); });

    const auto request = [] {
        emit vemo_contact::ModuleAccess::instance().signalCreateModuleForm(vemo_base::FilesCenterFormType);
    };
    request();
    QCOMPARE(made, 1);
    QVERIFY(placed && FormsMgr::isFormsCntToLimit(vemo_base::FilesCenterFormType));
    request();
    QCOMPARE(made, 1);
    emit vemo_contact::ModuleAccess::instance().signalCreateModuleForm(7);
    QCOMPARE(made, 1);

    placed.reset();
    QVERIFY(!FormsMgr::isFormsCntToLimit(vemo_base::FilesCenterFormType));
    request();
    QCOMPARE(made, 2);
}

QTEST_MAIN(tst_FormsMgr)
#include "tst_FormsMgr.moc"
