// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/theme/SkiaQWidgetAdapter.h>

namespace studio {

/// A small picture drawn by Skia: a row of shapes eased along a curve, the curve itself, its keys
/// and their tangent handles.
class BezierPicture : public ui::SkiaQWidgetAdapter
{
    Q_OBJECT

public:
    explicit BezierPicture(QWidget* parent = nullptr);
    ~BezierPicture() override;

    QSize sizeHint() const override;

protected:
    void paintSkia(SkCanvas* canvas, const SkPaint& paint) override;
};

} // namespace studio
