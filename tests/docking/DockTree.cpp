// SPDX-License-Identifier: Apache-2.0
#include "docking/DockTree.h"

#include "support/paths.h"
#include "support/themes.h"
#include <MorrantUI/docking/DockableHeader.h>
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/DockableTabWidget.h>
#include <MorrantUI/docking/DropIndicatorMain.h>
#include <MorrantUI/docking/SolidSplitter.h>
#include <MorrantUI/theme/VisualDesignDark.h>

#include <QtTest>
#include <QtWidgets>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>

namespace ui::test {

/// That a window manager may give it.
static void waitForFrame(QWidget& window)
{
    if (!QTest::qWaitForWindowExposed(&window)) {
        QTest::qFail("a window does not show", __FILE__, __LINE__);
    }
}

DockTree::DockTree(const QString& notation, QSize size)
{
    // Before the first window, which looks the colour of all focus frames up.
    [[maybe_unused]] static const auto& theme = makeTheme<VisualDesignDark>(assetsPath());
    m_root = std::make_unique<DockableGroup>();
    gMainWindow = m_root.get();
    m_root->setAttribute(Qt::WA_DeleteOnClose, false);
    m_root->resize(size);
    m_root->move(20, 20);
    if (notation.isEmpty()) {
        return;
    }
    m_root->setLayoutMode(static_cast<DockableGroup::LayoutMode>(notation.startsWith(u'V')));
    QStringView rest = QStringView(notation).mid(1);
    m_root->show();
    buildChildren(rest, *m_root);
    waitForFrame(*m_root);
    settle();
    while (!rest.isEmpty()) {
        rest = rest.mid(1); // the space
        DockableWindow* floating = build(rest);
        floating->move(m_root->geometry().bottomLeft() + QPoint(0, 40));
        floating->show();
        waitForFrame(*floating);
    }
    settle();
}

DockTree::~DockTree()
{
    if (hand.isDown()) {
        hand.release();
    }
    if (m_root) {
        settle();
        QStringList broken = brokenInvariants();
        if (mouseEventsAreKept()) {
            broken << u"mouse events are kept"_qs;
        }
        if (!broken.isEmpty()) {
            QTest::qFail(qPrintable(broken.join(u'\n')), __FILE__, __LINE__);
        }
    }
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

/// What the text begins with up to one of those characters, which is taken off.
static QString cutUntil(QStringView& text, QStringView ends)
{
    const auto end = std::find_if(
        text.begin(), text.end(), [ends](QChar letter) { return ends.contains(letter); });
    const qsizetype length = end - text.begin();
    const QString cut = text.first(length).toString();
    text = text.mid(length);
    return cut;
}

DockableWindow* DockTree::build(QStringView& notation)
{
    DockableGroup* group = nullptr;
    QString name = cutUntil(notation, u"( =)");
    if (notation.startsWith(u'(')) {
        group = name == u"T" ? new DockableTabGroup : new DockableGroup;
        group->setLayoutMode(static_cast<DockableGroup::LayoutMode>(name == u"V"));
        buildChildren(notation, *group);
    }
    DockableWindow* window = group ? group : panel(name);
    if (notation.startsWith(u'=')) {
        notation = notation.mid(1);
        const QStringList size = cutUntil(notation, u" )").split(u'x');
        window->resize(size.first().toInt(), size.last().toInt());
    }
    return window;
}

void DockTree::buildChildren(QStringView& notation, DockableGroup& group)
{
    QList<int> sizes;
    const QStringView all = notation;
    const bool upright = group.getLayoutMode() == DockableGroup::LayoutMode::Vertical;
    do {
        notation = notation.mid(1); // the bracket or the space
        if (!notation.startsWith(u')')) {
            DockableWindow* child = build(notation);
            sizes << (upright ? child->height() : child->width());
            group.appendChild(child);
        }
    } while (!notation.startsWith(u')'));
    notation = notation.mid(1);
    if (&group == m_root.get() && all.first(all.size() - notation.size()).contains(u'=')) {
        const int handles = 6 * static_cast<int>(sizes.size() - 1);
        const int length = std::accumulate(sizes.begin(), sizes.end(), handles) + 12;
        waitForFrame(group); // a window manager's late answer would bring the size before back
        upright ? group.resize(group.width(), length) : group.resize(length, group.height());
        settle();
        group.setSizes(sizes);
    }
}

DockableWindow* DockTree::panel(const QString& title, QSize size)
{
    auto* window = new DockableWindow(new QWidget);
    window->setText(title);
    if (title.startsWith(u"bar")) {
        window->content()->setMaximumHeight(30);
    }
    window->resize(size);
    return window;
}

DockableWindow* DockTree::operator[](const QString& name)
{
    if (name.startsWith(u'^')) {
        DockableWindow* inside = (*this)[name.mid(1)];
        return inside ? inside->findDockableParent() : nullptr;
    }
    if (name == u"root") {
        return m_root.get();
    }
    for (DockableWindow* window : m_root->findChildren<DockableWindow*>()) {
        if (window->getText() == name && !window->isClosing()) {
            return window;
        }
    }
    return nullptr;
}

DockableGroup* DockTree::group(const char* name)
{
    return qobject_cast<DockableGroup*>((*this)[name]);
}

DockableTabGroup* DockTree::tabs(const char* name)
{
    return qobject_cast<DockableTabGroup*>((*this)[name]);
}

/// A window does something, some with another; the last word tells more.
using Operation = void (*)(DockableWindow&, DockableWindow*, const QString&);

static const QHash<QString, Operation>& operations()
{
    using W = DockableWindow;
    static const auto group = [](W* window) { return qobject_cast<DockableGroup*>(window); };
    static const QHash<QString, Operation> all{
        {u"dock"_qs, [](W& w, W* o, auto& area) { o->dockInArea(&w, areaOf(area)); }},
        {u"insert"_qs, [](W& w, W* o, auto& i) { group(o)->insertChild(i.toInt(), &w); }},
        {u"undock"_qs, [](W& w, W*, auto&) { w.undock(true); }},
        {u"leave"_qs, [](W& w, W*, auto&) { w.undock(false); }},
        {u"tear"_qs, [](W& w, W*, auto&) { w.mouseUndock(); }},
        {u"tidy"_qs, [](W& w, W* o, auto&) { w.cleanupOldParent(o); }},
        {u"collapse"_qs, [](W& w, W*, auto&) { group(&w)->collapseGroup(); }},
        {u"close"_qs, [](W& w, W*, auto&) { w.undockAndClose(); }},
        {u"shut"_qs, [](W& w, W*, auto&) { w.close(); }},
        {u"delete"_qs, [](W& w, W*, auto&) { delete &w; }},
        {u"keep"_qs, [](W& w, W*, auto&) { w.setAttribute(Qt::WA_DeleteOnClose, false); }},
        {u"hide"_qs, [](W& w, W*, auto&) { w.hide(); }},
        {u"rename"_qs, [](W& w, W*, auto& title) { w.setText(title); }},
        {u"select"_qs, [](W& w, W*, auto&) {
             auto* tabs = qobject_cast<DockableTabGroup*>(w.findDockableParentGroup());
             tabs->setActiveIndex(tabs->indexOfChild(&w));
         }}};
    return all;
}

void DockTree::play(const QString& steps)
{
    for (const QString& step : steps.split(u", "_qs)) {
        const QStringList words = step.split(u' ');
        DockableWindow* window = words.size() > 1 ? (*this)[words.at(1)] : nullptr;
        if (!window && (words.first() == u"dock" || words.first() == u"insert")) {
            window = panel(words.at(1));
        }
        DockableWindow* other = words.size() > 2 ? (*this)[words.at(2)] : nullptr;
        const Operation operation = operations().value(words.first());
        if (step == u"settle") {
            settle();
        } else if (operation && window && (other || words.size() < 4)) {
            operation(*window, other, words.last());
        } else {
            QTest::qFail(qPrintable(u"who does what? "_qs + step), __FILE__, __LINE__);
        }
    }
}

QString DockTree::text()
{
    QStringList floating;
    QStringList zones;
    QList<DockableWindow*> windows = m_root->findChildren<DockableWindow*>();
    windows << m_root.get();
    for (DockableWindow* window : windows) {
        if (window->isFloating() && window->isVisible()) {
            const bool half = std::abs(window->windowOpacity() - 0.5) < 0.01;
            floating << text(*window) + (half ? u"~"_qs : QString());
        }
        for (const DropIndicatorMain* indicator : window->findChildren<DropIndicatorMain*>()) {
            if (indicator->parentWidget() == window && indicator->isVisible()) {
                zones << text(*window) + u':' + nameOf(window->dropArea());
            }
        }
    }
    floating.sort();
    const QStringList broken =
        brokenInvariants(hand.isDown() ? Moment::Dragging : Moment::Unsettled);
    return (QStringList(text(*m_root)) + floating + zones + broken).join(u' ');
}

QString DockTree::sizes()
{
    return text(*m_root, true);
}

QString DockTree::text(DockableWindow& window, bool withSizes)
{
    auto* group = qobject_cast<DockableGroup*>(&window);
    if (!group) {
        return window.getText();
    }
    const bool tabs = group->windowMode() == DockableWindow::WindowMode::TabGroup;
    const QList<int> sizes = withSizes && !tabs ? group->sizes() : QList<int>();
    QStringList children;
    for (int i = 0; i < group->childCount(); ++i) {
        const QString child = text(*group->getChild(i), withSizes);
        children << (sizes.isEmpty() ? child : child + u'=' + QString::number(sizes.value(i)));
    }
    const bool vertical = group->getLayoutMode() == DockableGroup::LayoutMode::Vertical;
    return (tabs ? u"T("_qs : vertical ? u"V("_qs : u"H("_qs) + children.join(u' ') + u')';
}

SeenMenu DockTree::menuDuring(const std::function<void()>& action, const QString& choice)
{
    SeenMenu seen;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu || !menu->isVisible()) {
            return;
        }
        if (hand.isDown()) {
            hand.release();
        }
        seen.place = menu->pos();
        seen.texts.clear();
        for (QAction* entry : menu->actions()) {
            seen.texts << (entry->isEnabled() ? QString() : u"-"_qs) + entry->text();
            if (entry->text() == choice) {
                menu->setActiveAction(entry);
            }
        }
        QTest::keyClick(menu, seen.texts.contains(choice) ? Qt::Key_Return : Qt::Key_Escape);
    });
    timer.start(0);
    action();
    if (hand.isReal() && !QTest::qWaitFor([&seen] { return !seen.texts.isEmpty(); })) {
        QTest::qFail("no menu came", __FILE__, __LINE__);
    }
    settle();
    return seen;
}

QRect onScreen(const QWidget& window)
{
    return {window.mapToGlobal(QPoint()), window.size()};
}

QPoint zoneOf(DockableWindow& window, DockableArea area)
{
    const QRect rect = window.rect();
    auto* tabs = qobject_cast<DockableTabGroup*>(&window);
    const QWidget* title = tabs ? static_cast<const QWidget*>(tabs->tabAt(0)) : window.header();
    const int top = title && title->isVisible() ? title->height() : 0;
    const QPoint points[] = {
        {rect.width() / 2, (rect.height() + top) / 2},
        {rect.width() - 8, rect.height() / 2},
        {rect.width() / 2, top + 8},
        {8, rect.height() / 2},
        {rect.width() / 2, rect.height() - 8},
        {rect.width() / 2, top / 2}};
    return window.mapToGlobal(points[static_cast<int>(area)]);
}

static const QStringList& areaNames()
{
    static const QStringList names = u"none right top left bottom center"_qs.split(u' ');
    return names;
}

QString nameOf(DockableArea area)
{
    return areaNames().value(static_cast<int>(area));
}

DockableArea areaOf(const QString& name)
{
    return static_cast<DockableArea>(areaNames().indexOf(name));
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

bool isEmptyShell(DockableWindow& window)
{
    auto* group = qobject_cast<DockableGroup*>(&window);
    return group && &window != gMainWindow && group->isVisible() && group->childCount() == 0;
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
        QWidget* focus = QApplication::focusWidget();
        const bool seen = m_moment != Moment::Settled || !focus || focus->isVisible()
                          || focus->window()->isHidden(); // off screen it may stay the active one
        DockableWindow* hidden = seen ? nullptr : DockableWindow::findDockableParent(focus);
        const QString where =
            seen ? QString()
                 : QLatin1String(focus->metaObject()->className())
                       + (hidden ? u" in "_qs + DockTree::text(*hidden) : QString());
        const QString claim = u"a hidden widget has the focus: "_qs + where;
        check(seen, *gMainWindow, qPrintable(claim));
        return m_broken;
    }

private:
    void check(bool holds, DockableWindow& window, const char* claim)
    {
        if (!holds) {
            m_broken << DockTree::text(window) + u": "_qs + QLatin1String(claim);
        }
    }

    void inspectWindow(DockableWindow& window)
    {
        m_faint += window.windowOpacity() < 0.99 ? 1 : 0;
        for (const DropIndicatorMain* indicator : innerWidgets<DropIndicatorMain>(window)) {
            m_indicators += indicator->isVisible() ? 1 : 0;
        }
        check(window.updatesEnabled(), window, "updates are off");
        QWidget* focus = window.focusWidget(); // which may no longer live: compared only
        const bool own =
            !focus || focus == &window || window.findChildren<QWidget*>().contains(focus);
        check(own, window, "remembers the focus of what has left");
        DockableWindow* above = window.findDockableParent();
        const QString claim = (hasOwnSizePolicy(window) ? u"has its size policy in "_qs
                                                        : u"has no size policy in "_qs)
                              + (above ? DockTree::text(*above) : QString());
        check(hasOwnSizePolicy(window) == isFrontOrNoTab(window), window, qPrintable(claim));
        DockableGroup* parent = window.findDockableParentGroup();
        if (parent) {
            const int index = parent->indexOfChild(&window);
            check(index >= 0 && parent->getChild(index) == &window, window, "group lost it");
            check(!window.testAttribute(Qt::WA_NativeWindow), window, "docked, yet native");
            const bool inside = window.x() >= 0 && window.y() >= 0;
            const bool asked = m_moment == Moment::Settled && window.isVisible();
            check(inside || !asked, window, "outside its group");
        } else if (&window != gMainWindow) {
            check(window.isFloating(), window, "neither docked nor floating");
            check(window.parentWidget() == gMainWindow, window, "is not the main window's");
        }
        const bool mayBeEmpty = parent || m_moment != Moment::Settled;
        check(mayBeEmpty || !isEmptyShell(window), window, "floats without children");
        if (auto* group = qobject_cast<DockableGroup*>(&window)) {
            auto* tabs = qobject_cast<DockableTabGroup*>(group);
            tabs ? inspectTabs(*tabs) : inspectGroup(*group, parent != nullptr);
        }
    }

    void inspectGroup(DockableGroup& group, bool nested)
    {
        check(group.isBorderHidden() == nested, group, "border flag");
        check(group.layout()->contentsMargins().left() == (nested ? 0 : 6), group, "margin");
        const bool mayBeEmpty = !nested || m_moment != Moment::Settled;
        check(mayBeEmpty || group.childCount() > 0, group, "empty");
        const auto splitters = innerWidgets<SolidSplitter>(group);
        const bool one = splitters.size() == 1;
        check(one && splitters.first()->count() == group.childCount(), group, "splitter count");
        const bool seen = group.isVisible() && !group.window()->isMinimized();
        if (one && m_moment == Moment::Settled && seen && group.childCount() > 0) {
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
        const bool upright = splitter.orientation() == Qt::Vertical;
        int used = -6;
        const QSize inside = group.rect().marginsRemoved(group.layout()->contentsMargins()).size();
        bool across = splitter.size() == inside || (group.header() && group.header()->isVisible());
        for (int i = 0; i < group.childCount(); ++i) {
            DockableWindow& child = *group.getChild(i);
            if (!child.isHidden()) {
                used += 6 + (upright ? child.height() : child.width());
                across &= upright ? child.width() == splitter.width()
                                  : child.height() == splitter.height();
            }
        }
        const int length = upright ? splitter.height() : splitter.width();
        const QString claim = u"does not fill %1: "_qs.arg(length) + DockTree::text(group, true);
        check(used < 0 || (used == length && across), group, qPrintable(claim));
        inspectLimits(group, upright);
    }

    /// Nobody is larger than it should be as long as there is a panel that may be.
    void inspectLimits(DockableGroup& group, bool upright)
    {
        bool beyond = false;
        bool boundless = false;
        for (int i = 0; i < group.childCount(); ++i) {
            const DockableWindow& child = *group.getChild(i);
            const auto* box = qobject_cast<QBoxLayout*>(child.layout());
            if (child.windowMode() == DockableWindow::WindowMode::Panel && child.isVisible()) {
                const QSize most = box->QBoxLayout::maximumSize(); // the lifted limits, too
                const int limit = upright ? most.height() : most.width();
                boundless |= limit >= QLAYOUTSIZE_MAX;
                beyond |= (upright ? child.height() : child.width()) > limit;
            }
        }
        const QString claim = u"limits do not hold: "_qs + DockTree::text(group, true);
        check(!beyond || !boundless, group, qPrintable(claim));
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

QStringList brokenInvariants(Moment moment)
{
    return gMainWindow ? Inspector(moment).inspect() : QStringList();
}

} // namespace ui::test
