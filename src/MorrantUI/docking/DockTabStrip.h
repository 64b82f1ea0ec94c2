// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

class DockableTabWidget;
class QBoxLayout;
class TabRow;

/// The tabs of a tab group in a row that scrolls when it is overfull, by wheel and keys.
class DockTabStrip : public QWidget
{
    Q_OBJECT

public:
    explicit DockTabStrip(QWidget* group);
    ~DockTabStrip() override;

    int count() const;
    /// Null for an index out of range.
    DockableTabWidget* tabAt(int index) const;
    /// -1 for a widget that is none of the tabs.
    int indexOf(QWidget* tab) const;

    /// Owns the tab from here on.
    void insertTab(int index, DockableTabWidget* tab);
    /// The tab disappears at once and is deleted later, since a slot of its own may ask for it.
    void removeTab(int index);
    /// Scrolls as little as possible to show a tab.
    void reveal(int index);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user has gone to another tab by key; it gets the focus.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int activeIndex() const;

    TabRow* m_row;
    QBoxLayout* m_tabs;
};
