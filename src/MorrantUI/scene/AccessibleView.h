// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/controls/accessibility.h"

#include <QAccessibleObject>
#include <QGraphicsItem>

class GraphicsView;

/// The animation editors' views and what lies in them, as assistive tools see it: a canvas with
/// lists (rows, curves), and their items (keys, points).
namespace ui {

/// A view: the lists in it, then what holds its scroll bars.
class AccessibleView : public AccessibleNamed
{
public:
    explicit AccessibleView(GraphicsView* view);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    QObjectList parts() const;
};

/// Something in the scene of a GraphicsView. Pressing what can be selected selects it alone.
class AccessibleSceneItem : public QAccessibleObject, public QAccessibleActionInterface
{
public:
    /// Both are the same thing.
    AccessibleSceneItem(QObject* object, QGraphicsItem* item, QAccessible::Role role);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QWindow* window() const override;
    QAccessibleInterface* parent() const override; ///< the view, or the list
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

    QAccessible::Role role() const override { return m_role; }
    /// Of what is selected alone while the view has the focus, the keyboard is there.
    QAccessible::State state() const override;
    QRect rect() const override; ///< on screen
    /// Only the name, by name().
    QString text(QAccessible::Text kind) const override;

    QStringList actionNames() const override;
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString& action) const override;

protected:
    virtual QString name() const = 0;
    /// What the list holds, in the order in which it is read.
    virtual QObjectList items() const { return {}; }
    /// Null in a list of the view.
    virtual QObject* list() const { return nullptr; }

private:
    GraphicsView* view() const;

    QGraphicsItem* m_item;
    QAccessible::Role m_role;
};

/// A QObjectList of objects of any class.
template <class Objects>
QObjectList objectsOf(const Objects& objects)
{
    return {objects.begin(), objects.end()};
}

} // namespace ui
