#include "MorrantUI/controls/gestures/PlainDragFilter.h"

PlainDragFilter::PlainDragFilter(QWidget* target)
    : MouseWrapDragFilter(target)
{}

PlainDragFilter::~PlainDragFilter()
{
    forceEndDrag();
}

void PlainDragFilter::dragBegins(const QPointF& /*position*/)
{}

void PlainDragFilter::pointerMoved(const QPointF& position)
{
    m_current = position;
    commitDrag(m_current, m_current - startPosition());
}

void PlainDragFilter::dragEnds()
{}
