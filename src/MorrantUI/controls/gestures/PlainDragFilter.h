#pragma once

#include <MorrantUI/controls/gestures/MouseWrapDragFilter.h>

/// A drag by mouse moves alone: it ends at the screen's edge.
class PlainDragFilter final : public MouseWrapDragFilter
{
    Q_OBJECT

public:
    explicit PlainDragFilter(QWidget* target);
    ~PlainDragFilter() override;

protected:
    void dragBegins(const QPointF& position) override;
    void pointerMoved(const QPointF& position) override;
    void dragEnds() override;
};
