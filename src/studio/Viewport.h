// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"
#include <MorrantUI/canvas/CanvasView.h>

#include <memory>

namespace studio {

/// Shows one frame of a document. A click chooses a layer, whose outline lies over it.
class Viewport : public CanvasView
{
    Q_OBJECT

public:
    explicit Viewport(QWidget* parent = nullptr);
    ~Viewport() override;

    /// Shows a document, fitted; null shows how to open one.
    void setDocument(std::shared_ptr<const Document> document);
    void setFrame(int frame);
    int frame() const { return m_frame; }
    /// Outlines a layer of the main composition where it is shown; -1 for none, as with every
    /// document at first.
    void setLayer(int layer);

Q_SIGNALS:
    /// The topmost layer under a click that is neither hidden nor locked; -1 for none.
    void layerClicked(int layer);
    /// A layer of the document cost too much to draw it whole. From within painting.
    void leftUnfinished(const studio::MissingFeature& layer);

protected:
    void paintPage(SkCanvas& canvas, const SkPaint& paint) override;
    void paintOverlay(
        SkCanvas& canvas, const SkPaint& paint, const ui::CanvasMapping& shown) override;

private:
    void chooseLayer(QPointF point);

    std::shared_ptr<const Document> m_document;
    int m_frame = 0;
    int m_layer = -1; ///< outlined
};

} // namespace studio
