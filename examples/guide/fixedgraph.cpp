// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <Core/Core.h>

#include <QVBoxLayout>

namespace {

/// A response curve and its editor.
class ResponseEditor : public QWidget
{
public:
    ResponseEditor();

private:
    GraphCurveData m_curve;
};

ResponseEditor::ResponseEditor()
{
    auto* column = new QVBoxLayout(this);
    // [fixedgraph]
    m_curve.add(0, 0, morrant::KeyInterpolationType::Bezier);
    m_curve.add(1, 1, morrant::KeyInterpolationType::Bezier);
    auto* view = new FixedGraphView(&m_curve);
    view->setMinimumPoints(2);
    view->fillGraph(true);

    connect(view, &FixedGraphView::pointMoved, this, [this, view](GraphPointWidget* point) {
        m_curve.replace(view->shownKey(point)); // place, handles, lock and interpolation
    });
    connect(
        view, &FixedGraphView::pointAdded, this, [this, view](QPointF, GraphPointWidget* point) {
            const GraphCurveKey key = view->shownKey(point);
            point->setIndex(m_curve.add(key.time, key.value, key.interpolation));
        });
    connect(view, &FixedGraphView::pointRemoved, this, [this](unsigned long index) {
        m_curve.remove(static_cast<int>(index)); // the view then fills itself anew
    });
    connect(view, &FixedGraphView::interpolationChanged, this, [view](short type) {
        for (GraphPointWidget* point : view->utils()->pointItems(true)) { // pointMoved() follows
            point->setInterpolation(static_cast<ui::Graph::Interpolation>(type), false);
        }
    });
    // [fixedgraph]
    column->addWidget(view);
}

} // namespace

QWidget* fixedGraphChapter()
{
    return new ResponseEditor;
}
