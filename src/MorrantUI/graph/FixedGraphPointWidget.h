// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/GraphPointWidget.h>

/// A point of a FixedGraphView, in front of its curve. What changes it by more than its place is
/// told by the view's pointMoved().
class MORRANT_UI_EXPORT FixedGraphPointWidget : public GraphPointWidget
{
    Q_OBJECT

public:
    FixedGraphPointWidget(GeneralGraphView* view, QGraphicsWidget* parent);

    void notifyPointChanged() override;
};
