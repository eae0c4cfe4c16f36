#pragma once

#include "vemo_base_global.h"

#include <QPushButton>

namespace vemo_base {

/// A button that stands for a job while it runs: its text, the percent and a thin bar along its foot. Shown only while
/// it works. GUI thread.
class VEMO_BASE_EXPORT ProgressButton final : public QPushButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ProgressButton)

public:
    explicit ProgressButton(QWidget* parent = nullptr);

    bool isWorking() const { return m_isWorking; }
    void startWorking(const QString& text);
    void stopWorking();
    /// 0 to 100; less than before is not shown.
    void setProgress(int percent);
    int progress() const { return m_percent; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showText();

    QString m_words;
    int m_percent = 0;
    bool m_isWorking = false;
};

} // namespace vemo_base
