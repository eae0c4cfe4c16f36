#pragma once

#include "BaseForm.h"
#include "vemo_base_global.h"

#include <QHash>
#include <QList>
#include <QObject>

#include <functional>

namespace vemo_base {

/// Makes forms by type and counts them. A process-wide object on the GUI thread. The host registers how each type is
/// made; from then on a form is made by createForm() or by ModuleAccess::signalCreateModuleForm, up to the limit of its
/// type. A form belongs to the widget that the host places it in; one that was deleted no longer counts. Where no type
/// is registered, as in a run without windows, requests are left alone.
class VEMO_BASE_EXPORT FormsMgr final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FormsMgr)

public:
    using Factory = std::function<BaseForm*()>;

    static FormsMgr& instance();

    /// Whether as many forms of the type exist as may. Type 19, the Files Center, has a limit of one.
    static bool isFormsCntToLimit(FormType type);
    static bool isFormsCntToLimit(int type) { return isFormsCntToLimit(static_cast<FormType>(type)); }

    void registerForm(FormType type, const Factory& factory);
    /// The new form, or nullptr when the type is not registered or its limit is reached.
    BaseForm* createForm(FormType type);
    QList<BaseForm*> forms(FormType type) const;

signals:
    /// The receiver places the form and becomes its owner.
    void signalFormCreated(vemo_base::BaseForm* form);

private slots:
    void slotCreateModuleForm(int type);

private:
    explicit FormsMgr(QObject* parent = nullptr);

    static int limitOf(FormType type);

    QHash<int, Factory> m_factories;
    QHash<int, QList<BaseForm*>> m_forms;
};

} // namespace vemo_base
