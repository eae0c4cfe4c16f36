#include "MainWindow.h"

#include "StatusBar.h"
#include "TopBar.h"

#include <BaseForm.h>
#include <ModuleAccess.h>
#include <NavigationWidget.h>
#include <Theme.h>
#include <UiSettings.h>

#include <QApplication>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

const QSize smallestSize(1024, 640);
const QSize firstSize(1280, 800);
constexpr int downloadingSubPage = 1;

QString geometrySetting()
{
    return QStringLiteral("main_window_geometry");
}

QString filesCenterKey()
{
    return QStringLiteral("files_center");
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QWidget(parent)
    , m_topBar(new TopBar(this))
    , m_forms(new QStackedWidget(this))
    , m_statusBar(new StatusBar(this))
{
    setWindowTitle(QStringLiteral("Vemo"));
    setMinimumSize(smallestSize);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_topBar);
    layout->addWidget(m_forms, 1);
    layout->addWidget(m_statusBar);

    connect(m_topBar, &TopBar::signalThemeChosen, this, &MainWindow::chooseTheme);
    connect(m_topBar, &TopBar::signalModule, this, &MainWindow::showModule);
    connect(m_statusBar, &StatusBar::signalRateClicked, this, &MainWindow::showDownloads);
    connect(new QShortcut(QKeySequence(Qt::Key_F6), this), &QShortcut::activated, this, &MainWindow::nextArea);
    restorePlace();
}

MainWindow::~MainWindow() = default;

QString MainWindow::themeSetting()
{
    return QStringLiteral("theme");
}

void MainWindow::placeForm(vemo_base::BaseForm* form)
{
    if (form->formType() != vemo_base::FilesCenterFormType)
        return;
    m_topBar->addModule(filesCenterKey(), tr("Files Center"), QStringLiteral("files"));
    m_formByKey.insert(filesCenterKey(), form);
    m_forms->addWidget(form);
    showModule(filesCenterKey());
}

void MainWindow::comeToFront()
{
    setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    raise();
    activateWindow();
}

void MainWindow::showModule(const QString& key)
{
    if (vemo_base::BaseForm* form = m_formByKey.value(key)) {
        m_forms->setCurrentWidget(form);
        m_topBar->setCurrentModule(key);
    }
}

void MainWindow::showDownloads()
{
    showModule(filesCenterKey());
    emit vemo_contact::ModuleAccess::instance().signalSwitchToSubPageInFilesCenter(downloadingSubPage);
}

void MainWindow::chooseTheme(const QString& name)
{
    using Choice = vemo_base::Theme::Choice;
    const Choice choice = name == QLatin1String("dark")    ? Choice::Dark
                          : name == QLatin1String("light") ? Choice::Light
                                                           : Choice::System;
    vemo_base::Theme::instance().setChoice(choice);
    vemo_worker::UiSettings::instance().setValue(themeSetting(), name);
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
    vemo_worker::UiSettings::instance().setValue(geometrySetting(), saveGeometry());
    QWidget::closeEvent(event);
}

void MainWindow::nextArea()
{
    QList<QWidget*> areas{m_topBar};
    if (const QWidget* form = m_forms->currentWidget()) {
        if (auto* navigation = form->findChild<vemo_base::NavigationWidget*>())
            areas.append(navigation);
        if (auto* pages = form->findChild<QStackedWidget*>(); pages && pages->currentWidget())
            areas.append(pages->currentWidget());
    }
    areas.append(m_statusBar);

    const QWidget* focused = QApplication::focusWidget();
    int current = -1;
    for (int i = 0; i < areas.size(); ++i) {
        if (focused && (areas.at(i) == focused || areas.at(i)->isAncestorOf(focused)))
            current = i;
    }
    for (int step = 1; step <= areas.size(); ++step) {
        const QWidget* area = areas.at((current + step) % areas.size());
        const QList<QWidget*> children = area->findChildren<QWidget*>();
        for (QWidget* child : children) {
            if (child->isVisible() && child->isEnabled() && child->focusPolicy() & Qt::TabFocus) {
                child->setFocus(Qt::TabFocusReason);
                return;
            }
        }
    }
}

} // namespace vemo_client
