// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/controls/accessibility.h"

class TabBarHeader;
class TabItem;

namespace ui {

/// A TabBarHeader as assistive tools see it: its tabs in display order, and nothing else.
class AccessibleTabList : public AccessibleParts
{
public:
    explicit AccessibleTabList(TabBarHeader* header);

    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

protected:
    QWidgetList parts() const override;

private:
    const TabBarHeader* m_header;
};

/// A tab, named by its text. Pressing clicks it. Its children are decorator and close button, where
/// they are shown.
class AccessibleTab : public AccessibleParts
{
public:
    explicit AccessibleTab(TabItem* tab);

    QAccessibleInterface* parent() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    /// Clicks through the event queue, since a slot may open a dialog.
    void doAction(const QString& name) override;

protected:
    QWidgetList parts() const override;

private:
    TabItem* m_tab;
};

/// Tells assistive tools that another tab is current; next to nothing when none listens.
void notifyTabSelected(TabItem* tab, bool focused);

} // namespace ui
