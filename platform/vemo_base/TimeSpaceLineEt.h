#pragma once

#include "vemo_base_global.h"

#include <QDateTime>
#include <QLineEdit>

namespace vemo_base {

/// A field that shows a span of time, "01-03 00:00:00 ~ 01-10 23:59:59", and is not typed into: a click, or Enter,
/// Space or the down key, asks its owner to open what the span is chosen by. GUI thread.
class VEMO_BASE_EXPORT TimeSpaceLineEt final : public QLineEdit
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TimeSpaceLineEt)

public:
    explicit TimeSpaceLineEt(QWidget* parent = nullptr);

    void setDateTimeSpace(const QDateTime& begin, const QDateTime& end);
    QDateTime getBeginDateTime() const { return m_begin; }
    QDateTime getEndDateTime() const { return m_end; }
    /// Whether the dates are shown with their year; they are until this says otherwise. The tool tip always has it.
    void setUsingYearInTimeSpaceDescription(bool usesYear);

    /// `dateFormat` is one of QDate::toString(). Without the year its separator goes as well: "dd.MM.yyyy" is "dd.MM".
    static QString description(const QDateTime& begin, const QDateTime& end, const QString& dateFormat, bool usesYear);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void clicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void showSpan();

    QDateTime m_begin;
    QDateTime m_end;
    bool m_usesYear = true;
};

} // namespace vemo_base
