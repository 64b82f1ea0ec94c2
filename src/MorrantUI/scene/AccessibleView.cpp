// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/scene/AccessibleView.h"

#include <MorrantUI/scene/GraphicsView.h>

#include <QGraphicsScene>
#include <QPointer>

namespace ui {

namespace {

/// -1 for what is none of them.
int indexOf(const QAccessibleInterface* child, const QObjectList& objects)
{
    return child ? static_cast<int>(objects.indexOf(child->object())) : -1;
}

} // namespace

AccessibleView::AccessibleView(GraphicsView* view)
    : AccessibleNamed(view, QAccessible::Canvas)
{}

QObjectList AccessibleView::parts() const
{
    const auto* const view = static_cast<const GraphicsView*>(widget());
    QObjectList parts = view->listsForReaders();
    for (int i = 0; i < AccessibleNamed::childCount(); ++i) {
        QAccessibleInterface* const child = AccessibleNamed::child(i);
        if (child && child->object() != view->viewport()) { // which is the canvas
            parts.append(child->object());
        }
    }
    return parts;
}

int AccessibleView::childCount() const
{
    return static_cast<int>(parts().size());
}

QAccessibleInterface* AccessibleView::child(int index) const
{
    return QAccessible::queryAccessibleInterface(parts().value(index));
}

int AccessibleView::indexOfChild(const QAccessibleInterface* child) const
{
    return indexOf(child, parts());
}

AccessibleSceneItem::AccessibleSceneItem(
    QObject* object, QGraphicsItem* item, QAccessible::Role role)
    : QAccessibleObject(object)
    , m_item(item)
    , m_role(role)
{}

void* AccessibleSceneItem::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

GraphicsView* AccessibleSceneItem::view() const
{
    const QGraphicsScene* const scene = isValid() ? m_item->scene() : nullptr;
    return scene ? qobject_cast<GraphicsView*>(scene->views().value(0)) : nullptr;
}

QWindow* AccessibleSceneItem::window() const
{
    QAccessibleInterface* const above = parent();
    return above ? above->window() : nullptr;
}

QAccessibleInterface* AccessibleSceneItem::parent() const
{
    QObject* const above = isValid() ? list() : nullptr;
    return QAccessible::queryAccessibleInterface(above ? above : view());
}

int AccessibleSceneItem::childCount() const
{
    return isValid() ? static_cast<int>(items().size()) : 0;
}

QAccessibleInterface* AccessibleSceneItem::child(int index) const
{
    return isValid() ? QAccessible::queryAccessibleInterface(items().value(index)) : nullptr;
}

int AccessibleSceneItem::indexOfChild(const QAccessibleInterface* child) const
{
    return isValid() ? indexOf(child, items()) : -1;
}

QAccessible::State AccessibleSceneItem::state() const
{
    QAccessible::State state;
    const GraphicsView* const seenIn = view();
    if (!seenIn) {
        state.invalid = true;
        return state;
    }
    state.invisible = !seenIn->isVisible();
    state.offscreen = !seenIn->viewport()->rect().intersects(
        seenIn->mapFromScene(m_item->sceneBoundingRect()).boundingRect());
    state.disabled = !seenIn->isEnabled();
    state.selectable = m_item->flags().testFlag(QGraphicsItem::ItemIsSelectable);
    state.selected = m_item->isSelected();
    state.focusable = state.selectable && list();
    state.focused = state.focusable && state.selected && seenIn->hasFocus()
                    && m_item->scene()->selectedItems().size() == 1;
    return state;
}

QRect AccessibleSceneItem::rect() const
{
    const GraphicsView* const seenIn = view();
    if (!seenIn) {
        return {};
    }
    const QRect inView = seenIn->mapFromScene(m_item->sceneBoundingRect()).boundingRect();
    return {seenIn->viewport()->mapToGlobal(inView.topLeft()), inView.size()};
}

QString AccessibleSceneItem::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name && isValid() ? name() : QString();
}

QStringList AccessibleSceneItem::actionNames() const
{
    const QAccessible::State now = state();
    return now.selectable && !now.disabled ? QStringList{pressAction()} : QStringList();
}

void AccessibleSceneItem::doAction(const QString& action)
{
    if (actionNames().contains(action)) {
        const QPointer<QObject> alive(object());
        m_item->scene()->clearSelection();
        if (alive) {
            m_item->setSelected(true);
        }
    }
}

QStringList AccessibleSceneItem::keyBindingsForAction(const QString& /*action*/) const
{
    return {};
}

} // namespace ui
