#include "ViewNameDialog.h"

#include "LiveViews.h"

#include <Theme.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int dialogWidth = 420;

} // namespace

ViewNameDialog::ViewNameDialog(const QString& title, const QString& sentence, const QString& name, const QString& deed,
                               const std::function<QString(const QString& name)>& take, QWidget* parent)
    : TitledDialog(title, sentence, dialogWidth, parent)
    , m_name(new QLineEdit(name, this))
    , m_problem(new QLabel(this))
    , m_take(take)
{
    m_name->setMaxLength(LiveViews::mostNameChars);
    m_name->setAccessibleName(tr("Name of the view"));
    m_name->selectAll();
    m_problem->setWordWrap(true);
    m_problem->setText(QStringLiteral(" ")); // its room is kept
    QPalette colors = m_problem->palette();
    colors.setColor(QPalette::WindowText, vemo_base::Theme::instance().color(vemo_base::Token::Error));
    m_problem->setPalette(colors);
    body()->addWidget(m_name);
    body()->addWidget(m_problem);
    auto* save = new QPushButton(deed, this);
    save->setProperty("kind", QStringLiteral("primary"));
    save->setDefault(true);
    buttons()->addWidget(save);
    connect(save, &QPushButton::clicked, this, &ViewNameDialog::accept);
    connect(m_name, &QLineEdit::textChanged, m_problem, [this] { m_problem->setText(QStringLiteral(" ")); });
    m_name->setFocus(Qt::TabFocusReason);
}

void ViewNameDialog::accept()
{
    const QString name = LiveViews::legalName(m_name->text());
    const QString problem = name.isEmpty() ? tr("The view needs a name.") : m_take(name);
    if (problem.isEmpty())
        return TitledDialog::accept();
    m_problem->setText(problem);
    m_name->setFocus(Qt::OtherFocusReason);
}

} // namespace vemo_client
