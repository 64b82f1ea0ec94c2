#include "docking/DockTree.h"

#include "support/paths.h"
#include "support/themes.h"
#include <MorrantUI/docking/DropIndicatorMain.h>
#include <MorrantUI/docking/SolidSplitter.h>
#include <MorrantUI/theme/VisualDesignDark.h>

#include <QApplication>
#include <QLayout>
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

class Inspector
{
public:
    explicit Inspector(bool settled)
        : m_settled(settled)
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
        check(window.updatesEnabled(), window, "updates are off");
        check(std::abs(window.windowOpacity() - 1.0) < 0.01, window, "not opaque");
        check(
            !window.findChild<DropIndicatorMain*>(QString(), Qt::FindDirectChildrenOnly)
                 ->isVisible(),
            window,
            "shows drop zones");
        DockableGroup* parent = window.findDockableParentGroup();
        if (parent) {
            const int index = parent->indexOfChild(&window);
            check(index >= 0 && parent->getChild(index) == &window, window, "group lost it");
            check(!window.testAttribute(Qt::WA_NativeWindow), window, "docked, yet native");
            check(
                window.x() >= 0 && window.y() >= 0 && window.width() >= 0 && window.height() >= 0,
                window,
                "negative geometry");
        } else if (&window != gMainWindow) {
            check(window.isFloating(), window, "neither docked nor floating");
            check(
                window.parentWidget() == gMainWindow, window, "does not belong to the main window");
        }
        if (auto* group = qobject_cast<DockableGroup*>(&window)) {
            inspectGroup(*group, parent != nullptr);
        }
    }

    void inspectGroup(DockableGroup& group, bool nested)
    {
        std::set<DockableWindow*> children;
        for (int i = 0; i < group.childCount(); ++i) {
            DockableWindow* child = group.getChild(i);
            check(child && group.indexOfChild(child) == i, group, "index and child disagree");
            check(child && children.insert(child).second, group, "the same child twice");
            check(child && child->findDockableParentGroup() == &group, group, "child elsewhere");
        }
        if (group.windowMode() != DockableWindow::WindowMode::Group) {
            return;
        }
        check(group.isBorderHidden() == nested, group, "border flag");
        check(group.layout()->contentsMargins().left() == (nested ? 0 : 6), group, "margin");
        auto* splitter = group.findChild<SolidSplitter*>(QString(), Qt::FindDirectChildrenOnly);
        check(splitter && splitter->count() == group.childCount(), group, "splitter count");
        if (m_settled && splitter && group.isVisible() && group.childCount() > 0) {
            inspectSizes(group, *splitter);
        }
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

    bool m_settled;
    QStringList m_broken;
};

} // namespace

int emptyShellsInSight()
{
    const auto groups = gMainWindow->findChildren<DockableGroup*>();
    return static_cast<int>(std::count_if(groups.begin(), groups.end(), [](DockableGroup* group) {
        return group->isVisible() && group->childCount() == 0;
    }));
}

QStringList brokenInvariants(bool settled)
{
    return gMainWindow ? Inspector(settled).inspect() : QStringList();
}

} // namespace ui::test
