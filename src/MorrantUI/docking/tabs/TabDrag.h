// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDrag>
#include <QPoint>
#include <QPointer>

#include <optional>

class QDropEvent;
class QMouseEvent;
class TabBarHeader;
class TabHover;
class TabItem;
class TabRow;

/// What the mouse does to a header's tabs: a press on one of them that becomes a drag, and what is
/// dragged over the header, be it that tab or another.
class TabDrag
{
public:
    /// The header owns this.
    TabDrag(TabBarHeader& header, TabRow& row);
    ~TabDrag();
    Q_DISABLE_COPY_MOVE(TabDrag)

    /// Brings the marks to the header's size.
    void fitHeader();

    /// A press in the header.
    /// @return whether it is one that may become a drag
    bool press(const QMouseEvent& event);
    void endPress();
    /// Past the system's drag distance this runs the drag, and the header may be deleted meanwhile.
    void move(const QMouseEvent& event);

    /// What is dragged over the header is accepted if it is one of its tabs.
    void hover(QDropEvent& event);
    void leave();
    void drop(QDropEvent& event);

private:
    enum class State
    {
        Idle,
        Pressed,
        Dragging,
    };

    void start();
    void finish();
    std::optional<int> draggedIndex(const QDropEvent& event) const;

    TabBarHeader& m_header;
    TabRow& m_row;
    TabHover* m_hover; ///< a child of the header
    State m_state = State::Idle;
    QPointer<TabItem> m_tab; ///< pressed or dragged
    QPoint m_pressPosition;  ///< in the header
    QPointer<QDrag> m_drag;  ///< while it runs
};
