// SPDX-License-Identifier: Apache-2.0
#include "RosetteView.h"

#include "Document.h"
#include <MorrantUI/theme/colors.h>

#include <include/core/SkCanvas.h>
#include <include/core/SkPaint.h>
#include <include/core/SkRRect.h>

namespace {

constexpr float kMargin = 16.0F;     ///< around the rosette, logical pixels
constexpr float kPetalShare = 0.28F; ///< of its length, across

/// From the centre upwards, one unit long.
SkRRect petal()
{
    return SkRRect::MakeOval(SkRect::MakeLTRB(-kPetalShare / 2, -1.0F, kPetalShare / 2, 0.0F));
}

} // namespace

RosetteView::RosetteView(const Document& document, QWidget* parent)
    : SkiaQWidgetAdapter(parent)
    , m_document(document)
{
    setMinimumSize(120, 120);
    connect(&document, &Document::changed, this, qOverload<>(&QWidget::update));
}

QSize RosetteView::sizeHint() const
{
    return {480, 480};
}

// [skia]
void RosetteView::paintSkia(SkCanvas* canvas, const SkPaint& paint)
{
    const Rosette& rosette = m_document.rosette();
    canvas->clear(ui::color("WindowBase")); // by name, at paint time
    const float room = static_cast<float>(qMin(width(), height())) / 2 - kMargin;
    SkPaint petalPaint = paint; // the common one: antialiased, filling
    petalPaint.setColor(rosette.color.rgba());
    petalPaint.setAlpha(160);
    petalPaint.setBlendMode(SkBlendMode::kScreen);

    canvas->translate(static_cast<float>(width()) / 2, static_cast<float>(height()) / 2);
    canvas->scale(
        room * static_cast<float>(rosette.width) / 100.0F,
        room * static_cast<float>(rosette.height) / 100.0F);
    canvas->rotate(static_cast<float>(rosette.turn));
    const int count = qRound(rosette.petals);
    for (int i = 0; i < count; ++i) {
        canvas->drawRRect(petal(), petalPaint);
        canvas->rotate(360.0F / static_cast<float>(count));
    }
}
// [skia]
