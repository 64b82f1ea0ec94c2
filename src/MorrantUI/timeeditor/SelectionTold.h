// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QPointer>

#include <set>

namespace ui {

/// While one lives, changes of the selection are not told, but once at its end: Qt goes on with an
/// item after it has told of it, and a slot may delete the item.
class SelectionTold
{
public:
    explicit SelectionTold(QGraphicsScene& scene)
        : m_scene(&scene)
        , m_before(selected(scene))
        , m_wasQuiet(scene.blockSignals(true))
    {}
    ~SelectionTold()
    {
        if (!m_scene) {
            return;
        }
        m_scene->blockSignals(m_wasQuiet);
        if (selected(*m_scene) != m_before) {
            Q_EMIT m_scene->selectionChanged();
        }
    }
    Q_DISABLE_COPY_MOVE(SelectionTold)

private:
    static std::set<const QGraphicsItem*> selected(const QGraphicsScene& scene)
    {
        const QList<QGraphicsItem*> items = scene.selectedItems();
        return {items.begin(), items.end()};
    }

    QPointer<QGraphicsScene> m_scene;
    std::set<const QGraphicsItem*> m_before; ///< only compared
    bool m_wasQuiet = false;
};

} // namespace ui
