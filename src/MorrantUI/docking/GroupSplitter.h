// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/shares.h"
#include <MorrantUI/docking/SolidSplitter.h>

#include <QPointer>

#include <vector>

/// The splitter of a group: its children leave none of its room empty.
///
/// A child keeps within its limits along the splitter as long as the others can take the rest; if
/// none can, the one that may grow most fills it. Across the splitter every child fills all of it.
/// What the children need and may have goes on to the group.
class GroupSplitter : public SolidSplitter
{
    Q_OBJECT

public:
    /// While one lives children come and go, and sizes are given, without anybody being laid out.
    /// When the last one ends everybody is, once, and newcomers are shown.
    class Pause
    {
    public:
        explicit Pause(GroupSplitter* splitter); ///< null: there is nothing to lay out
        ~Pause();
        Q_DISABLE_COPY_MOVE(Pause)

    private:
        QPointer<GroupSplitter> m_splitter;
    };

    GroupSplitter();
    ~GroupSplitter() override;

    /// Takes a window in before the child of that index. One that is seen in the same top-level
    /// window stays so all the time; any other one is shown when it has its place.
    void put(int index, QWidget& window);

    /// The room of the children, without the handles between those that are seen.
    int room() const;
    void give(const QList<int>& sizes);
    /// Shares the room in these proportions, as far as limits let it; that of the first time that
    /// it is seen, as long as there is none.
    void share(const QList<int>& sizes);

    /// Those of the children that are seen together, and of what lies beside the splitter.
    ui::docking::Limits limits(QSize beside) const;
    /// Before a newcomer comes in: its own limit would shrink all of them for a moment.
    static void liftLimits(QWidget& child);
    /// After children or their limits have changed: they share the room anew.
    void settleLimits();

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void childEvent(QChildEvent* event) override;

private:
    bool isPaused() const { return m_pauses > 0 && isVisible(); }
    template <typename Work>
    void withoutLayout(Work&& work);
    void settle();
    void shareOut(const QList<int>& sizes);
    void shareAsWished();
    void showHandles();
    void readLimits();
    bool applyLimits();
    void fill();

    std::vector<ui::docking::Limits> m_limits; ///< of all children
    std::vector<ui::docking::Cell> m_cells;    ///< the same along the splitter
    bool m_limited = false;                    ///< one of them cannot have all of the room
    int m_pauses = 0;
    bool m_stale = false; ///< something has changed in the pause
    QList<int> m_awaited; ///< the sizes given in it; none: Qt's choice
    QList<int> m_wished;  ///< proportions for when it is seen; none: all are shared
    std::vector<QPointer<QWidget>> m_newcomers; ///< that are shown after it
};
