#pragma once

#include "vemo_base_global.h"

#include <QWidget>

namespace vemo_base {

/// Kinds of forms that modules offer to the host; the numbers are those of ModuleAccess::signalCreateModuleForm.
enum FormType : int {
    UnknownForm = 0,
    FilesCenterFormType = 19,
};

/// A page of the client's main window, made by a module and placed by the host. Lives on the GUI thread; whoever asked
/// the module for it owns it, the FormsMgr as a rule. Its title is the window title.
class VEMO_BASE_EXPORT BaseForm : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BaseForm)

public:
    explicit BaseForm(FormType formType, QWidget* parent = nullptr);
    ~BaseForm() override;

    FormType formType() const { return m_formType; }

    QString title() const { return windowTitle(); }
    void setTitle(const QString& title);

signals:
    void signalTitleChanged(const QString& title);

private:
    const FormType m_formType;
};

} // namespace vemo_base
