#pragma once

#include "VCOMMON_widgets_global.h"

#include <ThemeTokens.h>

#include <QWidget>

namespace VCOMMON {

/// A widget with a ground of its own. GUI thread.
class VCOMMON_WIDGETS_EXPORT VWidget : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(VWidget)

public:
    explicit VWidget(QWidget* parent = nullptr);

    void setBackground(vemo_base::Token token);
    /// Dark in both themes: what stands in it is drawn as in the dark one.
    void setDarkIsland();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    vemo_base::Token m_background = vemo_base::Token::Base;
};

} // namespace VCOMMON
