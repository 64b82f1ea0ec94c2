// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <QCoreApplication>

#include <include/core/SkCanvas.h>
#include <include/core/SkPaint.h>

namespace {

// [canvas]
class PosterView : public CanvasView
{
    Q_DECLARE_TR_FUNCTIONS(PosterView)

public:
    PosterView()
    {
        setAccessibleName(tr("Poster"));
        setPageSize({1920, 1080});
        connect(this, &CanvasView::clicked, this, [this](QPointF point) {
            m_centre = point; // in the page's pixels
            update();
        });
    }

protected:
    void paintPage(SkCanvas& canvas, const SkPaint& paint) override
    {
        SkPaint disc = paint; // the common one: antialiased, filling
        disc.setColor(ui::color("Accent1"));
        canvas.drawCircle(float(m_centre.x()), float(m_centre.y()), 300, disc);
    }

    void paintOverlay(
        SkCanvas& canvas, const SkPaint& paint, const ui::CanvasMapping& shown) override
    {
        const QPointF centre = ui::middleOfPixel(shown.toView(m_centre), devicePixelRatioF());
        const float x = float(centre.x());
        const float y = float(centre.y());
        canvas.drawLine(x - 6, y, x + 6, y, paint); // as long at any zoom
        canvas.drawLine(x, y - 6, x, y + 6, paint);
    }

private:
    QPointF m_centre{960, 540};
};
// [canvas]

} // namespace

QWidget* canvasChapter()
{
    return new PosterView;
}
