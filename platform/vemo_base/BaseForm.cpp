#include "BaseForm.h"

namespace vemo_base {

BaseForm::BaseForm(FormType formType, QWidget* parent)
    : QWidget(parent)
    , m_formType(formType)
{
    connect(this, &QWidget::windowTitleChanged, this, &BaseForm::signalTitleChanged);
}

BaseForm::~BaseForm() = default;

void BaseForm::setTitle(const QString& title)
{
    setWindowTitle(title);
}

} // namespace vemo_base
