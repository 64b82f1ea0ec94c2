// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/WindowLayout.h"

#include <QWidget>

namespace {

/// A splitter sets a limit of its own, the least of its children's: it must not keep the splitter
/// from growing before it can lift theirs.
class FillingItem final : public QWidgetItem
{
public:
    using QWidgetItem::QWidgetItem;

    QSize maximumSize() const override { return {QLAYOUTSIZE_MAX, QLAYOUTSIZE_MAX}; }
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal | Qt::Vertical; }
    void setGeometry(const QRect& rect) override
    {
        const QSize most = widget()->maximumSize();
        if (most.expandedTo(rect.size()) != most) {
            widget()->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        }
        widget()->setGeometry(rect);
    }
};

} // namespace

WindowLayout::WindowLayout(QWidget* window)
    : QBoxLayout(QBoxLayout::TopToBottom, window)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(0);
}

WindowLayout::~WindowLayout() = default;

QSize WindowLayout::maximumSize() const
{
    const QSize own = contentsMaximum();
    return {
        m_lifted.testFlag(Qt::Horizontal) ? QLAYOUTSIZE_MAX : own.width(),
        m_lifted.testFlag(Qt::Vertical) ? QLAYOUTSIZE_MAX : own.height()};
}

bool WindowLayout::lift(Qt::Orientations limits)
{
    const bool changes = limits != m_lifted;
    m_lifted = limits;
    return changes;
}

void WindowLayout::addFilling(QWidget* widget)
{
    addChildWidget(widget);
    addItem(new FillingItem(widget));
    setStretch(count() - 1, 1);
}
