// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/controls/accessibility.h"

class DockTabStrip;
class DockableHeader;
class DockableTabWidget;
class DockableWindow;

/// Dockable windows, their headers and their tabs as assistive tools see them.
namespace ui {

/// A panel or group, named by its title: a window while it floats, else a pane. Its children are
/// what lies in its layout and is shown, so no overlays.
class AccessibleDockable : public AccessibleParts
{
public:
    explicit AccessibleDockable(DockableWindow* window);

    QAccessible::Role role() const override;
    QString text(QAccessible::Text kind) const override;

protected:
    QWidgetList parts() const override;
};

/// What the user grabs a window by. Its menu opens through the event queue, since it waits for an
/// answer.
class AccessibleGrip : public AccessibleNamed
{
public:
    using AccessibleNamed::AccessibleNamed;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
};

/// A header: the title bar of its window, and of the same name.
class AccessibleDockHeader : public AccessibleGrip
{
public:
    explicit AccessibleDockHeader(DockableHeader* header);
};

/// A tab, named by its text. Pressing brings its page forward.
class AccessibleDockTab : public AccessibleGrip
{
public:
    explicit AccessibleDockTab(DockableTabWidget* tab);

    QAccessibleInterface* parent() const override;
    int childCount() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    DockableTabWidget* m_tab;
};

/// The strip of a DockableTabGroup: its tabs in order, and nothing else.
class AccessibleDockTabStrip : public AccessibleParts
{
public:
    explicit AccessibleDockTabStrip(DockTabStrip* strip);

protected:
    QWidgetList parts() const override;

private:
    const DockTabStrip* m_strip;
};

} // namespace ui
