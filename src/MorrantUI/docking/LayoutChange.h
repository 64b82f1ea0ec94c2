// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

class DockableWindow;

namespace ui::docking {

/// The scope of an operation on the tree. When the outermost one ends the windows seen in it report
/// where they have gone, then the main window that the layout has changed.
class LayoutChange
{
public:
    enum class Report
    {
        AtEnd,
        Later, ///< from the event loop, unless an operation around this one reports at its end
    };
    explicit LayoutChange(Report report = Report::AtEnd);
    ~LayoutChange();
    Q_DISABLE_COPY_MOVE(LayoutChange)

    /// To be called before the window moves.
    void note(DockableWindow& window);

    /// Something else about the layout is different.
    void noteLayout();
    /// Titles of tabs, or which one is active, may be others at the end.
    void noteTabs();
};

/// Sends the main window's layoutChanged().
void reportLayoutChange();
/// The same from the event loop, once for all calls until then.
void reportLayoutChangeLater();

} // namespace ui::docking
