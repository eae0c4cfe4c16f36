#include "StatePage.h"

#include <EmptyStateWt.h>

#include <QLabel>
#include <QVBoxLayout>

namespace vemo_client {

StatePage::StatePage(QWidget* parent)
    : QWidget(parent)
{
    (new QVBoxLayout(this))->setContentsMargins(0, 0, 0, 0);
}

void StatePage::say(const QString& icon, const QString& missing, const QString& advice, const QString& deed,
                    const std::function<void()>& act)
{
    const QString key = QStringList{icon, missing, advice, deed}.join(QLatin1Char('\n'));
    if (key == m_key)
        return;
    if (m_state) {
        layout()->removeWidget(m_state);
        m_state->hide();
        m_state->deleteLater();
    }
    m_key = key;
    m_state = new vemo_base::EmptyStateWt(icon, missing, advice, deed);
    // Wrapped words need their height said, or the last lines, such as those of a fingerprint, are cut.
    const QList<QLabel*> labels = m_state->findChildren<QLabel*>();
    for (QLabel* label : labels) {
        label->ensurePolished();
        label->setMinimumHeight(label->heightForWidth(label->minimumWidth()));
    }
    m_state->setButtonSecondary(); // the page's primary button is Download
    if (act)
        connect(m_state, &vemo_base::EmptyStateWt::signalButtonClicked, this, act, Qt::QueuedConnection);
    layout()->addWidget(m_state);
}

} // namespace vemo_client
