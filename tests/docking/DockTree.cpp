#include "docking/DockTree.h"

#include "support/paths.h"
#include "support/themes.h"
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/DockableTabWidget.h>
#include <MorrantUI/docking/DropIndicatorMain.h>
#include <MorrantUI/docking/SolidSplitter.h>
#include <MorrantUI/theme/VisualDesignDark.h>

#include <QApplication>
#include <QLayout>
#include <QMouseEvent>
#include <QStackedWidget>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>

namespace ui::test {

DockTree::DockTree(QSize size)
{
    // Before the first window, which looks the colour of all focus frames up.
    [[maybe_unused]] static const auto& theme = makeTheme<VisualDesignDark>(assetsPath());
    m_root = std::make_unique<DockableGroup>();
    gMainWindow = m_root.get();
    m_root->setAttribute(Qt::WA_DeleteOnClose, false);
    m_root->resize(size);
}

DockTree::~DockTree()
{
    destroy();
    for (QWidget* widget : QApplication::allWidgets()) {
        if (qobject_cast<DockableWindow*>(widget)) {
            QTest::qFail("a dockable window outlives the main window", __FILE__, __LINE__);
        }
    }
}

void DockTree::destroy()
{
    m_root.reset();
    gMainWindow = nullptr;
}

DockableWindow* DockTree::panel(const QString& title, QSize size)
{
    auto* window = new DockableWindow(new QWidget);
    window->setText(title);
    window->resize(size);
    return window;
}

DockableWindow* DockTree::panelIn(DockableWindow& target, DockableArea area, const QString& title)
{
    DockableWindow* window = panel(title);
    target.dockInArea(window, area);
    return window;
}

void DockTree::show()
{
    m_root->show();
    settle();
}

void DockTree::showRow(const QList<int>& widths)
{
    for (qsizetype i = 0; i < widths.size(); ++i) {
        panelIn(*m_root, DockableArea::Right, QChar(u'a' + static_cast<char16_t>(i)));
    }
    const int handles = 6 * static_cast<int>(widths.size() - 1);
    m_root->resize(std::accumulate(widths.begin(), widths.end(), handles) + 12, m_root->height());
    show();
    m_root->setSizes(widths);
}

QString DockTree::text(DockableWindow& window)
{
    auto* group = qobject_cast<DockableGroup*>(&window);
    if (!group) {
        return window.getText();
    }
    QStringList children;
    for (int i = 0; i < group->childCount(); ++i) {
        children << text(*group->getChild(i));
    }
    const bool tabs = group->windowMode() == DockableWindow::WindowMode::TabGroup;
    const bool vertical = group->getLayoutMode() == DockableGroup::LayoutMode::Vertical;
    return QLatin1String(tabs ? "T" : (vertical ? "V" : "H")) + u'(' + children.join(u' ') + u')';
}

void settle()
{
    for (int round = 0; round < 4; ++round) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

namespace {

/// The inner widgets of that kind in a window, but for those of windows in it.
template <typename Inner>
QList<Inner*> innerWidgets(DockableWindow& window)
{
    QList<Inner*> found = window.findChildren<Inner*>();
    found.removeIf([&](Inner* inner) {
        return DockableWindow::findDockableParent(inner->parentWidget()) != &window;
    });
    return found;
}

bool isFrontOrNoTab(DockableWindow& window)
{
    auto* tabs = qobject_cast<DockableTabGroup*>(window.findDockableParent());
    return !tabs || tabs->activeChild() == &window;
}

bool hasOwnSizePolicy(const DockableWindow& window)
{
    const QSizePolicy policy = window.sizePolicy();
    return policy.horizontalPolicy() != QSizePolicy::Ignored
           && policy.verticalPolicy() != QSizePolicy::Ignored;
}

class Inspector
{
public:
    explicit Inspector(Moment moment)
        : m_moment(moment)
    {}
    QStringList inspect()
    {
        QList<DockableWindow*> windows = gMainWindow->findChildren<DockableWindow*>();
        windows.prepend(gMainWindow);
        for (DockableWindow* window : windows) {
            if (!window->isClosing()) {
                inspectWindow(*window);
            }
        }
        const int expected = m_moment == Moment::Dragging ? 1 : 0;
        check(m_faint <= expected, *gMainWindow, "windows are not opaque");
        check(m_indicators <= expected, *gMainWindow, "windows show drop zones");
        const QWidget* focus = QApplication::focusWidget();
        check(
            m_moment != Moment::Settled || !focus || focus->isVisible(),
            *gMainWindow,
            "a hidden widget has the focus");
        return m_broken;
    }

private:
    void check(bool holds, const DockableWindow& window, const char* claim)
    {
        if (!holds) {
            const QString name = window.getText();
            m_broken << (name.isEmpty() ? QStringLiteral("a group") : name) + QStringLiteral(": ")
                            + QLatin1String(claim);
        }
    }

    void inspectWindow(DockableWindow& window)
    {
        m_faint += window.windowOpacity() < 0.99 ? 1 : 0;
        for (const DropIndicatorMain* indicator : innerWidgets<DropIndicatorMain>(window)) {
            m_indicators += indicator->isVisible() ? 1 : 0;
        }
        check(window.updatesEnabled(), window, "updates are off");
        check(hasOwnSizePolicy(window) == isFrontOrNoTab(window), window, "another's size policy");
        DockableGroup* parent = window.findDockableParentGroup();
        if (parent) {
            const int index = parent->indexOfChild(&window);
            check(index >= 0 && parent->getChild(index) == &window, window, "group lost it");
            check(!window.testAttribute(Qt::WA_NativeWindow), window, "docked, yet native");
            check(
                m_moment != Moment::Settled || !window.isVisible()
                    || (window.x() >= 0 && window.y() >= 0),
                window,
                "outside its group");
        } else if (&window != gMainWindow) {
            check(window.isFloating(), window, "neither docked nor floating");
            check(
                window.parentWidget() == gMainWindow, window, "does not belong to the main window");
        }
        if (auto* group = qobject_cast<DockableGroup*>(&window)) {
            inspectChildren(*group);
            auto* tabs = qobject_cast<DockableTabGroup*>(group);
            tabs ? inspectTabs(*tabs) : inspectGroup(*group, parent != nullptr);
        }
    }

    void inspectChildren(DockableGroup& group)
    {
        std::set<DockableWindow*> children;
        for (int i = 0; i < group.childCount(); ++i) {
            DockableWindow* child = group.getChild(i);
            check(child && group.indexOfChild(child) == i, group, "index and child disagree");
            check(child && children.insert(child).second, group, "the same child twice");
            check(child && child->findDockableParentGroup() == &group, group, "child elsewhere");
        }
    }

    void inspectGroup(DockableGroup& group, bool nested)
    {
        check(group.isBorderHidden() == nested, group, "border flag");
        check(group.layout()->contentsMargins().left() == (nested ? 0 : 6), group, "margin");
        const auto splitters = innerWidgets<SolidSplitter>(group);
        const bool one = splitters.size() == 1;
        check(one && splitters.first()->count() == group.childCount(), group, "splitter count");
        if (one && m_moment == Moment::Settled && group.isVisible() && group.childCount() > 0) {
            inspectSizes(group, *splitters.first());
        }
    }

    void inspectTabs(DockableTabGroup& group)
    {
        const int count = group.childCount();
        const int active = group.activeIndex();
        const auto stacks = innerWidgets<QStackedWidget>(group);
        check(stacks.size() == 1 && stacks.first()->count() == count, group, "pages");
        check(stacks.size() == 1 && stacks.first()->currentIndex() == active, group, "page shown");
        check(group.getChild(active) == group.activeChild(), group, "active child");
        check(count == 0 ? active == -1 : active >= 0 && active < count, group, "active index");
        check(!group.tabAt(count) && !group.tabAt(-1), group, "a tab too many");
        const bool settled = m_moment == Moment::Settled;
        std::set<DockableTabWidget*> tabs;
        for (int i = 0; i < count; ++i) {
            DockableTabWidget* tab = group.tabAt(i);
            check(tab && tabs.insert(tab).second, group, "a tab of its own for each child");
            check(tab && tab->isActive() == (i == active), group, "active tab");
            const bool shown = group.getChild(i)->isVisibleTo(&group);
            check(!settled || shown == (i == active), group, "another child than the active shown");
            const QString title = group.getChild(i)->getText();
            const bool free = title.isEmpty() || (tab && tab->text().isEmpty()); // given to the tab
            check(tab && (free || tab->text() == title), group, "text of a tab");
        }
        const qsizetype all = innerWidgets<DockableTabWidget>(group).size();
        check(!settled || all == count, group, "tabs left over");
    }

    void inspectSizes(DockableGroup& group, const SolidSplitter& splitter)
    {
        const QList<int> sizes = group.sizes();
        int seen = 0;
        for (int i = 0; i < group.childCount(); ++i) {
            seen += group.getChild(i)->isHidden() ? 0 : 1;
        }
        const bool upright = splitter.orientation() == Qt::Vertical;
        const int length = upright ? splitter.height() : splitter.width();
        const int used = std::accumulate(sizes.begin(), sizes.end(), 6 * (seen - 1));
        const QString claim = QStringLiteral("sizes in %1 do not add up: %2 in %3")
                                  .arg(DockTree::text(group))
                                  .arg(used)
                                  .arg(length);
        check(seen == 0 || used == length, group, qPrintable(claim));
    }

    Moment m_moment;
    QStringList m_broken;
    int m_faint = 0;
    int m_indicators = 0;
};

/// A widget that counts the mouse events that reach it.
class Probe : public QWidget
{
public:
    int seen = 0;

protected:
    void mouseMoveEvent(QMouseEvent* /*event*/) override { ++seen; }
    void mouseReleaseEvent(QMouseEvent* /*event*/) override { ++seen; }
};

} // namespace

bool mouseEventsAreKept()
{
    Probe probe;
    const QPointF point(1, 1);
    QMouseEvent move(QEvent::MouseMove, point, point, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(
        QEvent::MouseButtonRelease, point, point, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&probe, &move);
    QCoreApplication::sendEvent(&probe, &release);
    return probe.seen != 2;
}

int emptyShellsInSight()
{
    const auto groups = gMainWindow->findChildren<DockableGroup*>();
    return static_cast<int>(std::count_if(groups.begin(), groups.end(), [](DockableGroup* group) {
        return group->isVisible() && group->childCount() == 0;
    }));
}

QStringList brokenInvariants(Moment moment)
{
    return gMainWindow ? Inspector(moment).inspect() : QStringList();
}

} // namespace ui::test
