#include "MainWindow.h"

#include "ShellWt.h"

#include <Notices.h>
#include <UiSettings.h>
#include <VMessageBox.h>

#include <QCloseEvent>
#include <QScreen>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

const QSize smallestSize(1024, 640);
const QSize firstSize(1280, 800);

QString geometrySetting()
{
    return QStringLiteral("main_window_geometry");
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Vemo"));
    setMinimumSize(smallestSize);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    restorePlace();
}

MainWindow::~MainWindow() = default;

void MainWindow::setBody(QWidget* body)
{
    delete m_body;
    m_body = body;
    layout()->addWidget(body);
}

void MainWindow::comeToFront()
{
    setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    show();
    raise();
    activateWindow();
}

void MainWindow::tellStore(const QString& text)
{
    if (!m_storeTold) {
        m_storeTold = true;
        vemo_base::VMessageBox::tell(vemo_base::VMessageBox::Kind::Warning, tr("Stored data"), text, this);
        return;
    }
    vemo_base::Notice notice;
    notice.kind = vemo_base::Notice::Kind::Error;
    notice.title = tr("Stored data");
    notice.text = text;
    vemo_base::Notices::instance().add(notice);
}

void MainWindow::restorePlace()
{
    const QByteArray place = vemo_worker::UiSettings::instance().value(geometrySetting()).toByteArray();
    if (!place.isEmpty() && restoreGeometry(place))
        return;
    resize(firstSize.boundedTo(screen()->availableSize()).expandedTo(smallestSize));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    auto* shell = qobject_cast<ShellWt*>(m_body);
    if (shell && !shell->mayQuit()) {
        event->ignore();
        return;
    }
    vemo_worker::UiSettings::instance().setValue(geometrySetting(), saveGeometry());
    if (shell)
        shell->remember();
    QWidget::closeEvent(event);
}

} // namespace vemo_client
