#include "SystemAssistant.h"

#include <QTextStream>

#include <cstdio>

namespace vemo_worker {

SystemAssistant::SystemAssistant() = default;

SystemAssistant& SystemAssistant::instance()
{
    static SystemAssistant assistant;
    return assistant;
}

void SystemAssistant::setPresenter(Presenter presenter)
{
    m_presenter = std::move(presenter);
}

void SystemAssistant::messageAlert(const QString& title, const QString& text)
{
    if (m_presenter) {
        const Presenter present = m_presenter; // may be replaced while the box is open
        present(title, text);
        return;
    }
    QTextStream(stderr) << title << ": " << text << QLatin1Char('\n');
}

} // namespace vemo_worker
