// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QSize>

#include <include/core/SkRefCnt.h>
#include <include/core/SkSurface.h>

class SkCanvas;
class SkPaint;

namespace ui {

/// A Widget whose content Skia draws, over the background, into an off-screen raster surface that
/// is then copied to the screen.
///
/// The surface has one pixel for each device pixel. It is made by the first paint, kept across
/// paints, and made anew only after the size or the device pixel ratio has changed.
class MORRANT_UI_EXPORT SkiaQWidgetAdapter : public Widget
{
    Q_OBJECT

public:
    explicit SkiaQWidgetAdapter(QWidget* parent = nullptr);
    ~SkiaQWidgetAdapter() override;

    /// The current surface, shared; null before the first paint, and when Skia refused the size.
    sk_sp<SkSurface> surface() const { return m_surface; }

    /// Makes a new surface for the widget's present size and ratio.
    void updateSurface();

    /// Makes a new surface only when size or ratio differ from those of the current one.
    void updateSurfaceIfDifferent();

protected:
    void paintEvent(QPaintEvent* event) override;

    /// Draws the content.
    /// @param canvas cleared to transparent; its units are logical pixels. Clip, matrix and layers
    ///        that are left on it do not reach the next paint.
    /// @param paint the application's common paint, to copy and colour
    virtual void paintSkia(SkCanvas* canvas, const SkPaint& paint) = 0;

private:
    QSize m_surfaceSize; ///< device pixels
    double m_devicePixelRatio = 0.0;
    sk_sp<SkSurface> m_surface;
};

} // namespace ui
