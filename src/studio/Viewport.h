// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"
#include "viewmapping.h"
#include <MorrantUI/controls/gestures/GestureDoors.h>
#include <MorrantUI/theme/SkiaQWidgetAdapter.h>

#include <memory>

namespace studio {

/// What lies behind a composition, which itself is transparent.
enum class Backdrop
{
    Chequer,
    Light,
    Dark,
};

/// Shows one frame of a document. The wheel zooms at the pointer, a drag with the left or the
/// middle button pans, a click chooses a layer. Repaints only when frame, document, backdrop,
/// chosen layer or mapping change.
class Viewport : public ui::SkiaQWidgetAdapter
{
    Q_OBJECT

public:
    explicit Viewport(QWidget* parent = nullptr);
    ~Viewport() override;

    /// Shows a document from its first frame, fitted; null shows how to open one.
    void setDocument(std::shared_ptr<const Document> document);
    void setFrame(int frame);
    int frame() const { return m_frame; }
    void setBackdrop(Backdrop backdrop);
    /// Outlines a layer of the main composition where it is shown; -1 for none, as with every
    /// document at first.
    void setLayer(int layer);

    const ViewMapping& mapping() const { return m_mapping; }

    /// Fits the composition, and keeps it fitted when the viewport's size changes.
    void fit();
    /// Zooms at the middle of the viewport. @param factor above 1 enlarges
    void zoomBy(double factor);
    /// One logical pixel for each composition pixel, centred.
    void showActualSize();

Q_SIGNALS:
    void scaleChanged(double scale);
    /// The topmost layer under a click that is neither hidden nor locked; -1 for none.
    void layerClicked(int layer);
    /// A layer of the document cost too much to draw it whole. From within painting.
    void leftUnfinished(const studio::MissingFeature& layer);

protected:
    void paintEvent(QPaintEvent* event) override;
    void paintSkia(SkCanvas* canvas, const SkPaint& paint) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// What the held button does.
    enum class Press
    {
        None,
        Click, ///< of the left button, until it has moved too far for one
        Pan,
    };

    void beginPan();
    void endPress();
    void click(QPointF point);
    QSizeF compositionSize() const;
    void setMapping(const ViewMapping& mapping);
    void zoomAt(QPointF anchor, double factor);
    void paintBackdrop(SkCanvas& canvas, const SkPaint& paint, const QRectF& area) const;
    void paintBorder(SkCanvas& canvas, const SkPaint& paint, const QRectF& area) const;
    void paintOutline(SkCanvas& canvas, const SkPaint& paint, const ViewMapping& mapping) const;

    std::shared_ptr<const Document> m_document;
    int m_frame = 0;
    Backdrop m_backdrop = Backdrop::Chequer;
    ViewMapping m_mapping;
    bool m_fitted = true;
    int m_layer = -1; ///< outlined
    Press m_press = Press::None;
    Qt::MouseButton m_button = Qt::NoButton; ///< that is held
    QPointF m_from;                          ///< of the press; while panning the last place
    GestureDoors m_doors;                    ///< watched while a button is held
};

} // namespace studio
