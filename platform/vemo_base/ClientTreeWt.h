#pragma once

#include "ClientTree.h"
#include "vemo_base_global.h"

#include <QWidget>

class QLineEdit;
class QStackedLayout;
class QToolButton;

namespace vemo_base {

class LocalViewTree;
class VideoPointTree;

/// The client's channels in a well below a filter, as a tree by device or as a list by name; a button beside the filter
/// changes between the two and takes along what is checked. GUI thread.
class VEMO_BASE_EXPORT ClientTreeWt : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ClientTreeWt)

public:
    enum TreeType : int { VideoPointTreeType = 0, LocalViewTreeType };

    explicit ClientTreeWt(ClientTree::Refusal refusal, QWidget* parent = nullptr);

    TreeType getCurShowTreeType() const;
    void showTree(TreeType type);

    VideoPointTree* videoPointTree() const { return m_videoPoints; }
    LocalViewTree* localViewTree() const { return m_localView; }

protected:
    ClientTree* shownTree() const;
    void paintEvent(QPaintEvent* event) override;

private:
    QLineEdit* m_filter;
    QToolButton* m_byName;
    VideoPointTree* m_videoPoints;
    LocalViewTree* m_localView;
    QWidget* m_well;
    QStackedLayout* m_trees;
};

} // namespace vemo_base
