#pragma once

#include <QWidget>

class QHBoxLayout;
class QToolButton;

namespace vemo_client {

class TopBarEntry;

/// The bar above everything: the product's mark and name, the modules, and at the trailing end notices and theme. GUI
/// thread.
class TopBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TopBar)

public:
    explicit TopBar(QWidget* parent = nullptr);

    void addModule(const QString& key, const QString& text, const QString& iconName);
    void setCurrentModule(const QString& key);

signals:
    void signalModule(const QString& key);
    /// "dark", "light" or "system"
    void signalThemeChosen(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QToolButton* makeThemeButton();

    QHBoxLayout* m_modules = nullptr;
    QList<TopBarEntry*> m_entries;
};

} // namespace vemo_client
