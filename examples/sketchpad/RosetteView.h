// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/theme/SkiaQWidgetAdapter.h>

class Document;

/// The rosette, drawn by Skia.
class RosetteView : public ui::SkiaQWidgetAdapter
{
    Q_OBJECT

public:
    /// @param document outlives the view
    explicit RosetteView(const Document& document, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintSkia(SkCanvas* canvas, const SkPaint& paint) override;

private:
    const Document& m_document;
};
