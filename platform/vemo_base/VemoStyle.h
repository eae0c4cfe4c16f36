#pragma once

#include "vemo_base_global.h"

#include <QProxyStyle>

namespace vemo_base {

/// The client's style: Fusion underneath, our shapes and measures on top. Push buttons say how they weigh by the
/// property `kind`
/// ("primary", "quiet", "danger"; nothing: secondary), fields with wrong content set the property `invalid`, progress
/// bars that are paused set `paused`. Colours come from the palette's theme, so a widget with the dark palette is drawn
/// dark in both themes.
class VEMO_BASE_EXPORT VemoStyle final : public QProxyStyle
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(VemoStyle)

public:
    VemoStyle();
    ~VemoStyle() override;

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void polish(QApplication* application) override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                  QStyleHintReturn* returnData = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget = nullptr) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget = nullptr) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl subControl,
                         const QWidget* widget = nullptr) const override;
};

} // namespace vemo_base
