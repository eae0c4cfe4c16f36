#include "FormsMgr.h"

#include "ModuleAccess.h"

namespace vemo_base {

FormsMgr& FormsMgr::instance()
{
    static FormsMgr mgr;
    return mgr;
}

FormsMgr::FormsMgr(QObject* parent)
    : QObject(parent)
{
    connect(&vemo_contact::ModuleAccess::instance(), &vemo_contact::ModuleAccess::signalCreateModuleForm, this,
            &FormsMgr::slotCreateModuleForm);
}

int FormsMgr::limitOf(FormType type)
{
    return type == FilesCenterFormType ? 1 : 0;
}

bool FormsMgr::isFormsCntToLimit(FormType type)
{
    return instance().m_forms.value(type).size() >= limitOf(type);
}

void FormsMgr::registerForm(FormType type, const Factory& factory)
{
    m_factories.insert(type, factory);
}

BaseForm* FormsMgr::createForm(FormType type)
{
    const Factory factory = m_factories.value(type);
    if (!factory || isFormsCntToLimit(type))
        return nullptr;
    BaseForm* form = factory();
    if (!form)
        return nullptr;
    m_forms[type].append(form);
    connect(form, &QObject::destroyed, this, [this, type, form] { m_forms[type].removeOne(form); });
    emit signalFormCreated(form);
    return form;
}

QList<BaseForm*> FormsMgr::forms(FormType type) const
{
    return m_forms.value(type);
}

void FormsMgr::slotCreateModuleForm(int type)
{
    createForm(static_cast<FormType>(type));
}

} // namespace vemo_base
