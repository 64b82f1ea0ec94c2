// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/FixedGraphPointWidget.h"

#include <MorrantUI/graph/FixedGraphView.h>

FixedGraphPointWidget::FixedGraphPointWidget(GeneralGraphView* view, QGraphicsWidget* parent)
    : GraphPointWidget(view, parent)
{
    setFlag(ItemStacksBehindParent, false);
}

void FixedGraphPointWidget::notifyPointChanged()
{
    if (auto* const view = qobject_cast<FixedGraphView*>(parentView())) {
        view->tellMoved(this);
    }
}
