// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DockableTabGroup.h"

#include "MorrantUI/docking/Answers.h"
#include "MorrantUI/docking/DockTabStrip.h"
#include "MorrantUI/docking/LayoutChange.h"
#include "MorrantUI/docking/PageStack.h"
#include "MorrantUI/docking/WindowLayout.h"
#include "MorrantUI/docking/docktree.h"
#include <MorrantUI/docking/DockableTabWidget.h>

#include <QBoxLayout>

#include <algorithm>
#include <set>
#include <utility>

using ui::docking::Answers;
using ui::docking::TreeAccess;

namespace {

const QSizePolicy& noSay()
{
    static const QSizePolicy ignored(QSizePolicy::Ignored, QSizePolicy::Ignored);
    return ignored;
}

} // namespace

DockableTabGroup::DockableTabGroup()
    : DockableGroup(WindowMode::TabGroup)
    , m_strip(new DockTabStrip(this))
    , m_stack(new PageStack(this))
{
    auto* below = new QVBoxLayout; // wherever the header is
    below->setContentsMargins(0, 0, 0, 0);
    below->setSpacing(0);
    below->addWidget(m_strip);
    below->addWidget(m_stack, 1);
    m_layout->addLayout(below, 1);
    m_strip->installEventFilter(&m_dragHandler); // where no tab is
    connect(m_strip, &DockTabStrip::chosen, this, &DockableTabGroup::setActiveIndex);
    connect(m_stack, &QStackedWidget::widgetRemoved, this, &DockableTabGroup::forgetTab);
}

DockableTabGroup::~DockableTabGroup()
{
    m_stack->disconnect(this); // it outlives this part of the group
    for (int i = 0; i < childCount(); ++i) {
        handOver(*getChild(i));
    }
}

int DockableTabGroup::childCount() const
{
    return m_stack->count();
}

DockableWindow* DockableTabGroup::getChild(int index)
{
    return qobject_cast<DockableWindow*>(m_stack->widget(index));
}

int DockableTabGroup::indexOfChild(DockableWindow* window)
{
    return window ? m_stack->indexOf(window) : -1;
}

DockableTabWidget* DockableTabGroup::tabAt(int index) const
{
    return m_strip->tabAt(index);
}

void DockableTabGroup::appendChild(DockableWindow* window)
{
    insertChild(-1, window);
}

void DockableTabGroup::insertChild(int index, DockableWindow* window)
{
    const auto later = [this, index, guest = QPointer(window)] { insertChild(index, guest); };
    if (Answers::putOff(*this, later)) {
        return;
    }
    if (!ui::docking::restoreBefore(*this, window) || !canTake(window)) {
        return;
    }
    ui::docking::LayoutChange change;
    const QPointer<DockableGroup> old = receive(*window);
    const int place = placeFor(index);
    if (childCount() == 0 && isFloating()) {
        resize(window->size() + QSize(0, m_strip->sizeHint().height()));
    }
    const bool meets = isFloating() && window->isWindow();
    const Kept kept{
        window, window->sizePolicy(), window->shownTitle(), meets ? window->size() : QSize()};
    if (!TreeAccess::hideFor(*this, *window) || indexOfChild(window) >= 0) {
        return;
    }
    m_kept[window] = kept;
    window->setSizePolicy(noSay());
    if (window->windowMode() == WindowMode::Panel) {
        window->setHeaderVisible(false);
    }
    TreeAccess::setLimits(*window, {}, Qt::Horizontal | Qt::Vertical); // a page fills its group
    addTab(place, *window);
    m_stack->insertWidget(place, window);
    window->move(QPoint()); // where it would be: a page has no place until it is seen
    handDownDirection(*window);
    if (!m_active) {
        setActiveIndex(place);
    }
    tidyAfterReceiving(old);
}

void DockableTabGroup::addTab(int index, DockableWindow& window)
{
    auto* tab = new DockableTabWidget(m_kept.at(&window).title);
    tab->installEventFilter(&window.m_dragHandler);
    const QPointer<DockableWindow> child(&window);
    connect(tab, &DockableTabWidget::pressed, this, [this, child] {
        setActiveIndex(indexOfChild(child));
    });
    m_strip->insertTab(index, tab);
    window.installEventFilter(this);
}

bool DockableTabGroup::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShowToParent && watched != m_active) {
        // Later, when the stack is done with what it may be doing: it shows a neighbour of each
        // page that leaves.
        const QPointer<DockableWindow> child = qobject_cast<DockableWindow*>(watched);
        const auto bringForward = [this, child] {
            if (child && !child->isHidden()) {
                setActiveIndex(indexOfChild(child));
            }
        };
        QMetaObject::invokeMethod(this, bringForward, Qt::QueuedConnection);
    }
    return DockableGroup::eventFilter(watched, event);
}

DockableWindow* DockableTabGroup::takeChild(int index)
{
    const QPointer<DockableWindow> child = getChild(index);
    if (Answers::areDue()) {
        return nullptr; // it could not be out at once
    }
    if (ui::docking::restoreBefore(*this, child) && indexOfChild(child) >= 0) {
        ui::docking::LayoutChange change; // slots that hear of it may delete the child
        change.note(*child);
        takeOut(*child);
    }
    return child;
}

void DockableTabGroup::takeOut(DockableWindow& child)
{
    if (&child == m_active) {
        const QPointer<DockableTabGroup> self(this);
        const QPointer<DockableWindow> leaver(&child);
        // Instead of the neighbour, which Qt would show.
        setActiveIndex(indexOfChild(&child) == 0 ? 1 : 0);
        if (!self || !leaver || indexOfChild(leaver) < 0) {
            return; // a page that heard of it has been quicker
        }
    }
    const QSize size = isFloating() ? floatSizeOf(child) : QSize();
    letGoOf(child, indexOfChild(&child));
    m_stack->removeWidget(&child);
    release(child);
    if (size.isValid()) {
        child.resize(size);
    }
    if (child.windowMode() == WindowMode::Panel) {
        child.setHeaderVisible(true);
    }
    setActiveIndex(0);
}

void DockableTabGroup::handOver(DockableWindow& child)
{
    handOverFrom(indexOfChild(&child), child);
}

void DockableTabGroup::handOverFrom(int index, DockableWindow& child)
{
    letGoOf(child, index);
    child.setHeaderVisible(child.windowMode() == WindowMode::Panel);
    DockableGroup::handOver(child);
}

/// A child on its way out gets back what it came with.
void DockableTabGroup::letGoOf(DockableWindow& child, int index)
{
    Kept& kept = m_kept.at(&child);
    kept.child.clear();
    tabAt(index)->removeEventFilter(&child.m_dragHandler);
    if (&child != m_active) {
        child.setSizePolicy(kept.policy);
    }
    child.removeEventFilter(this);
}

/// After a child has left the stack, taken out or deleted or given another parent.
void DockableTabGroup::forgetTab(int index)
{
    // Qt goes on with the stack after this, which a slot might delete.
    ui::docking::LayoutChange change(ui::docking::LayoutChange::Report::Later);
    change.noteTabs();
    std::set<const QWidget*> left;
    for (int i = 0; i < childCount(); ++i) {
        left.insert(m_stack->widget(i));
    }
    const auto hasLeft = [&left](const auto& entry) {
        return !left.contains(entry.first); // compared only: it may be on its way out
    };
    const auto leaver = std::find_if(m_kept.begin(), m_kept.end(), hasLeft);
    if (leaver != m_kept.end() && leaver->second.child) { // without takeChild()
        handOverFrom(index, *leaver->second.child);
    }
    m_strip->removeTab(index);
    std::erase_if(m_kept, hasLeft);
    if (indexOfChild(m_active) < 0) {
        m_active.clear();
        setActiveIndex(0);
    }
}

void DockableTabGroup::setActiveIndex(int index)
{
    DockableWindow* const next = getChild(index);
    const auto later = [this, child = QPointer(next)] { setActiveIndex(indexOfChild(child)); };
    if (!next || !m_kept.contains(next) || Answers::putOff(*this, later)) {
        return;
    }
    if (next == m_active && m_stack->currentIndex() == index) {
        next->show(); // it may have been hidden, or closed and kept
        return;
    }
    ui::docking::LayoutChange change;
    change.noteTabs();
    const QSize leastBefore = m_stack->minimumSizeHint();
    const QPointer<DockableTabGroup> self(this);
    const QPointer<DockableWindow> before = m_active;
    bool focusOnTab = false;
    m_active = next;
    next->setSizePolicy(m_kept.at(next).policy); // while it is hidden: nobody asks about it yet
    if (before && before != next) {
        m_kept[before].policy = before->sizePolicy(); // the host may have changed it meanwhile
        DockableTabWidget* tab = tabAt(indexOfChild(before));
        focusOnTab = tab->hasFocus();
        tab->setActive(false);
    }
    tabAt(index)->setActive(true);
    m_stack->showPage(index); // the pages hear of it, and may do anything
    if (!self) {
        return;
    }
    if (before && before != m_active && indexOfChild(before) >= 0) {
        before->setSizePolicy(noSay());
    }
    m_strip->reveal(activeIndex());
    if (DockableTabWidget* tab = tabAt(activeIndex()); tab && focusOnTab) {
        tab->setFocus(Qt::OtherFocusReason);
    }
    if (!self) {
        return;
    }
    if (m_stack->minimumSizeHint() != leastBefore) {
        m_stack->updateGeometry();
    }
}

int DockableTabGroup::activeIndex() const
{
    return m_active ? m_stack->indexOf(m_active) : -1;
}

DockableWindow* DockableTabGroup::activeChild() const
{
    return m_active;
}

void DockableTabGroup::setTabTextForChild(DockableWindow* window, const QString& text)
{
    DockableTabWidget* tab = tabAt(indexOfChild(window));
    if (tab) {
        tab->setText(text);
        window->setText(text); // which ignores an empty one
    }
}

int DockableTabGroup::topOffset()
{
    return m_strip->isVisible() ? m_strip->geometry().bottom() + 1 : 0;
}

DockableWindow* DockableTabGroup::frontChild() const
{
    return m_active;
}

/// The page in front and what is above it.
ui::docking::Limits DockableTabGroup::limits()
{
    ui::docking::Limits limits = m_active ? TreeAccess::limitsOf(*m_active) : ui::docking::Limits();
    const int above = minimumSizeHint().height() - m_stack->minimumSizeHint().height();
    limits.most.rheight() = std::min(limits.most.height() + above, QLAYOUTSIZE_MAX);
    return limits;
}

bool DockableTabGroup::takesDirectly(DockableArea area)
{
    return area == DockableArea::Center;
}

/// Any place among the tabs will do.
bool DockableTabGroup::hasAt(DockableWindow& window, DockableArea area)
{
    const bool nothingToSplit = area == DockableArea::Center || childCount() == 1;
    return nothingToSplit && indexOfChild(&window) >= 0;
}

QWidget* DockableTabGroup::tabFor(DockableWindow& child)
{
    return tabAt(indexOfChild(&child));
}

void DockableTabGroup::bringForward(DockableWindow& child)
{
    setActiveIndex(indexOfChild(&child));
}

/// The child gets a header instead of the strip.
QPoint DockableTabGroup::floatPlaceOf(const DockableWindow& /*child*/) const
{
    return pos();
}

/// Those that met while they floated get their sizes back.
QSize DockableTabGroup::floatSizeOf(const DockableWindow& child) const
{
    const QSize alone = m_kept.at(&child).alone;
    return alone.isValid() ? alone : child.size();
}

/// A tab keeps a text that it was given until the title of its child is another.
void DockableTabGroup::showTitles()
{
    DockableGroup::showTitles();
    for (int i = 0; i < childCount(); ++i) {
        DockableWindow* child = getChild(i);
        QString title = child ? child->shownTitle() : QString();
        if (child && title != m_kept[child].title) {
            tabAt(i)->setText(title);
            m_kept[child].title = std::move(title);
        }
    }
}

bool DockableTabGroup::reportActive()
{
    const int index = activeIndex();
    if (index == m_activeIndex && m_active == m_reported) {
        return false;
    }
    m_activeIndex = index;
    m_reported = m_active;
    Q_EMIT activeIndexChanged(index);
    return true;
}
