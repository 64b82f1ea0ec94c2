#pragma once

#include <QAccessibleWidget>

class TabBarHeader;
class TabItem;

namespace ui {

/// A TabBarHeader as assistive tools see it: its tabs in display order, and nothing else.
class AccessibleTabList : public QAccessibleWidget
{
public:
    explicit AccessibleTabList(TabBarHeader* header);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

private:
    const TabBarHeader* m_header;
};

/// A tab, named by its text. Pressing clicks it.
class AccessibleTab : public QAccessibleWidget
{
public:
    explicit AccessibleTab(TabItem* tab);

    QAccessibleInterface* parent() const override;
    /// Decorator and close button, where they are shown.
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    /// Clicks through the event queue, since a slot may open a dialog.
    void doAction(const QString& name) override;

private:
    QWidgetList parts() const;

    TabItem* m_tab;
};

/// Tells assistive tools that another tab is current; next to nothing when none listens.
void notifyTabSelected(TabItem* tab, bool focused);

} // namespace ui
