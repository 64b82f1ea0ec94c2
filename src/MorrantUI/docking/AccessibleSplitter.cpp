// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/AccessibleSplitter.h"

#include <MorrantUI/docking/SolidSplitter.h>
#include <MorrantUI/docking/arrangement.h>
#include <MorrantUI/theme/events.h>

#include <QEvent>

#include <algorithm>
#include <utility>

namespace ui {

AccessibleSplitter::AccessibleSplitter(QSplitter* splitter)
    : AccessibleParts(splitter, QAccessible::Grouping)
{}

QWidgetList AccessibleSplitter::parts() const
{
    QWidgetList inOrder;
    const auto* splitter = static_cast<QSplitter*>(widget());
    for (int i = 0; i < splitter->count(); ++i) {
        if (!splitter->handle(i)->isHidden()) { // that of the first child always is
            inOrder.append(splitter->handle(i));
        }
        inOrder.append(splitter->widget(i));
    }
    return inOrder;
}

namespace {

/// Opens what QSplitterHandle keeps to those who derive from it.
class HandleMover : public QSplitterHandle
{
public:
    static void bring(QSplitterHandle& handle, int place)
    {
        (handle.*&HandleMover::moveSplitter)(place);
    }
};

int placeOf(const QSplitterHandle& handle)
{
    return handle.orientation() == Qt::Horizontal ? handle.x() : handle.y();
}

/// Where a handle may go, from the least to the most.
std::pair<int, int> reachOf(QSplitterHandle& handle)
{
    std::pair<int, int> reach;
    handle.splitter()->getRange(handle.splitter()->indexOf(&handle), &reach.first, &reach.second);
    return reach;
}

void movedByReader(QSplitterHandle& handle, double place)
{
    const auto [least, most] = reachOf(handle);
    const bool isLocked = isLayoutLocked() && qobject_cast<SolidSplitter*>(handle.splitter());
    if (!isLocked && least <= most) {
        HandleMover::bring(handle, qRound(std::clamp<double>(place, least, most)));
    }
}

constexpr int kFew = 8; ///< children that may name a part; lists have thousands

/// Of a part, or else of the first in it that has a name.
QString firstName(QWidget* part)
{
    QAccessibleInterface* const seen = part ? QAccessible::queryAccessibleInterface(part) : nullptr;
    QString name = seen ? seen->text(QAccessible::Name) : QString();
    const int count = seen ? std::min(kFew, seen->childCount()) : 0;
    for (int i = 0; i < count && name.isEmpty(); ++i) {
        QAccessibleInterface* const child = seen->child(i);
        name = child ? firstName(qobject_cast<QWidget*>(child->object())) : QString();
    }
    return name;
}

} // namespace

AccessibleSplitHandle::AccessibleSplitHandle(QSplitterHandle* handle)
    : AccessibleNumberControl(
        handle,
        QAccessible::Splitter,
        {.value = [handle] { return placeOf(*handle); },
         .setValue = [handle](double place) { movedByReader(*handle, place); },
         .minimum = [handle] { return reachOf(*handle).first; },
         .maximum = [handle] { return reachOf(*handle).second; },
         .step = [] { return 1; }})
{
    const auto tell = [handle, told = placeOf(*handle)](QObject*, QEvent* event) mutable {
        if (event->type() != QEvent::Move) { // other events come from its destructor too
            return false;
        }
        if (const int place = placeOf(*handle); std::exchange(told, place) != place) {
            notifyAccessibleValue(handle, place);
        }
        return false;
    };
    installEventFilter(handle, tell, handle);
}

QString AccessibleSplitHandle::text(QAccessible::Text kind) const
{
    const QString own = AccessibleNumberControl::text(kind);
    if (kind != QAccessible::Name || !own.isEmpty()) {
        return own;
    }
    auto* const handle = static_cast<QSplitterHandle*>(widget());
    const QSplitter& splitter = *handle->splitter();
    const int index = splitter.indexOf(handle);
    int before = index - 1;
    while (before > 0 && splitter.widget(before)->isHidden()) {
        --before;
    }
    const QString first = firstName(splitter.widget(before));
    const QString second = firstName(splitter.widget(index));
    return first.isEmpty() || second.isEmpty()
               ? SolidSplitter::tr("Splitter")
               : SolidSplitter::tr("Between %1 and %2").arg(first, second);
}

} // namespace ui
