#pragma once

#include <QString>

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;
class QWidget;

namespace vemo_base {
class EmptyStateWt;
class PageHeader;
class TimeSpaceLineEt;
} // namespace vemo_base

namespace vemo_filesCenter {

/// What the pages of the recordings and of the snapshots on this computer have in common: the bar with a span of time,
/// a filter and the deeds on what is checked, and what stands in the place of an empty list. Belongs to the page, whose
/// widgets it sets up. GUI thread.
class LocalPageBar final
{
public:
    /// Widgets of the page's form.
    struct Parts
    {
        QVBoxLayout* pageLayout;
        QLabel* timeRangeLabel;
        vemo_base::TimeSpaceLineEt* timeRange;
        QPushButton* searchBt;
        QLineEdit* filterWt;
        QFrame* separator;
        QPushButton* saveAsBt;
        QPushButton* deleteBt;
        QStackedWidget* content;
    };

    template <typename Ui>
    LocalPageBar(QWidget* page, const Ui& ui)
        : LocalPageBar(page, Parts{ui.pageLayout, ui.timeRangeLabel, ui.timeRange, ui.searchBt, ui.filterWt,
                                   ui.separator, ui.saveAsBt, ui.deleteBt, ui.content})
    {}

    /// Heading, icons, the span of the last days and its picker, the shortcut to the filter.
    vemo_base::PageHeader* setUp(const QString& title) const;
    /// For a span without files; its button is the caller's.
    vemo_base::EmptyStateWt* addNothing(const QString& icon, const QString& sentence, const QString& advice,
                                        const QString& button) const;
    /// For a filter that nothing matches.
    void addNoHit(const QString& sentence, const QString& advice, const QString& button) const;

private:
    LocalPageBar(QWidget* page, const Parts& parts)
        : m_page(page)
        , m_parts(parts)
    {}

    QWidget* const m_page;
    const Parts m_parts;
};

} // namespace vemo_filesCenter
