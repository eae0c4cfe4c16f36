#pragma once

#include <QWidget>

class QHBoxLayout;
class QToolButton;

namespace vemo_client {

class TopBarEntry;

/// The bar above everything: the product's mark and name, the modules, and at the trailing end help, notices, theme
/// and user. GUI thread.
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
    /// The user is to be another one.
    void signalLogOut();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QToolButton* makeHelpButton();

    QHBoxLayout* m_modules = nullptr;
    QList<TopBarEntry*> m_entries;
};

} // namespace vemo_client
