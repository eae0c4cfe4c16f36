#pragma once

#include <QWidget>

#include <memory>

namespace vemo_base {
class PageHeader;
} // namespace vemo_base

namespace vemo_filesCenter {

class LocalFilesSaveAs;

namespace Ui {
class LocalSnapImagesMgrPage;
}

/// Page of the snapshots on this computer: searched by a span of time, grouped by channel, filtered by the channels'
/// names; enlarged, copied elsewhere, deleted. It searches by itself when it is shown for the first time. A deletion
/// takes log line, file and record together, and what is shown goes at once; the list is not searched again. GUI
/// thread, owned by the form.
class LocalSnapImagesMgrPage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalSnapImagesMgrPage)

public:
    explicit LocalSnapImagesMgrPage(QWidget* parent = nullptr);
    ~LocalSnapImagesMgrPage() override;

public slots: // in this order: it is the order of their indexes
    void slotSearchBtClicked();
    void slotDeleteBtClicked();
    void slotSaveAsBtClicked();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void setUpEmptyStates();
    void setUpConnections();
    /// True when there are snapshots in the span.
    bool search();
    void showContent();

    const std::unique_ptr<Ui::LocalSnapImagesMgrPage> m_ui;
    LocalFilesSaveAs* const m_saveAs;
    vemo_base::PageHeader* m_header = nullptr;
    bool m_hasSearched = false;
};

} // namespace vemo_filesCenter
