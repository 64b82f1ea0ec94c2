// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/controls/accessibility.h"

#include <QAccessibleObject>
#include <QGraphicsItem>

#include <algorithm>
#include <functional>

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

/// A list of the view. @tparam kName QString (const List&) @tparam kItems the member of List,
/// or function of one, that returns its items in the order in which they are read
template <class List, auto kName, auto kItems>
class AccessibleList : public AccessibleSceneItem
{
public:
    explicit AccessibleList(List* list)
        : AccessibleSceneItem(list, list, QAccessible::List)
        , m_list(list)
    {}

protected:
    QString name() const override { return kName(*m_list); }
    QObjectList items() const override
    {
        const auto all = std::invoke(kItems, *m_list);
        return {all.begin(), all.end()};
    }

private:
    List* m_list;
};

/// An item of such a list. @tparam kName QString (const Item&, int number), the number being 1 for
/// the first item of the list @tparam kItems as in AccessibleList @tparam kList gives the item's
template <class Item, auto kName, auto kItems, auto kList = &Item::curve>
class AccessibleListItem : public AccessibleSceneItem
{
public:
    explicit AccessibleListItem(Item* item)
        : AccessibleSceneItem(item, item, QAccessible::ListItem)
        , m_item(item)
    {}

protected:
    QObject* list() const override { return std::invoke(kList, *m_item); }
    QString name() const override
    {
        const auto* const list = std::invoke(kList, *m_item);
        const auto all = list ? std::invoke(kItems, *list) : decltype(std::invoke(kItems, *list))();
        const auto found = std::find(all.begin(), all.end(), m_item);
        return kName(*m_item, found == all.end() ? 0 : static_cast<int>(found - all.begin()) + 1);
    }

private:
    Item* m_item;
};

} // namespace ui
