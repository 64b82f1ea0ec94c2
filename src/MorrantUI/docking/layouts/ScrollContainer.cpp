// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/layouts/ScrollContainer.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <utility>

namespace {

constexpr int kSmallest = 48; ///< logical pixels, in a direction that scrolls

QSize neededBy(const QWidget& content)
{
    return content.minimumSizeHint().expandedTo(content.minimumSize());
}

} // namespace

ScrollContainer::ScrollContainer(QWidget* content, Qt::Orientations scrolled, QWidget* parent)
    : QScrollArea(parent)
    , m_scrolled(scrolled)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    viewport()->setAutoFillBackground(false);
    const auto policyFor = [scrolled](Qt::Orientation direction) {
        return scrolled.testFlag(direction) ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    };
    setHorizontalScrollBarPolicy(policyFor(Qt::Horizontal));
    setVerticalScrollBarPolicy(policyFor(Qt::Vertical));
    if (content) {
        setWidget(content);
        content->setAutoFillBackground(false);
        setSizePolicy(content->sizePolicy());
    }
}

ScrollContainer::~ScrollContainer() = default;

QSize ScrollContainer::sizeHint() const
{
    return widget() ? widget()->sizeHint().expandedTo(neededBy(*widget())) + m_barRoom : QSize();
}

QSize ScrollContainer::minimumSizeHint() const
{
    if (!widget()) {
        return {};
    }
    QSize smallest = neededBy(*widget()) + m_barRoom;
    if (m_scrolled.testFlag(Qt::Horizontal)) {
        smallest.setWidth(qMin(smallest.width(), kSmallest));
    }
    if (m_scrolled.testFlag(Qt::Vertical)) {
        smallest.setHeight(qMin(smallest.height(), kSmallest));
    }
    return smallest;
}

/// What a scroll bar takes across the one direction that scrolls.
QSize ScrollContainer::barRoom() const
{
    const QSize needed = neededBy(*widget());
    if (m_scrolled == Qt::Horizontal && needed.width() > width()) {
        return {0, horizontalScrollBar()->sizeHint().height()};
    }
    if (m_scrolled == Qt::Vertical && needed.height() > height()) {
        return {verticalScrollBar()->sizeHint().width(), 0};
    }
    return {0, 0};
}

void ScrollContainer::followRoom()
{
    if (!isVisible() || !widget()) {
        return; // no size of its own so far
    }
    const QSize before = std::exchange(m_barRoom, barRoom());
    if (before != m_barRoom) {
        updateGeometry();
    }
}

bool ScrollContainer::eventFilter(QObject* watched, QEvent* event)
{
    const bool filtered = QScrollArea::eventFilter(watched, event);
    if (event->type() == QEvent::LayoutRequest && watched == widget()) {
        updateGeometry();
        followRoom();
    }
    return filtered;
}

void ScrollContainer::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    followRoom();
}

void ScrollContainer::showEvent(QShowEvent* event)
{
    QScrollArea::showEvent(event);
    followRoom();
}

void ScrollContainer::wheelEvent(QWheelEvent* event)
{
    if (m_scrolled == Qt::Horizontal && event->angleDelta().x() == 0) {
        QCoreApplication::sendEvent(horizontalScrollBar(), event);
    } else {
        QScrollArea::wheelEvent(event);
    }
}
