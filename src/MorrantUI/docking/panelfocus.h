// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QWidget>

class DockableWindow;

/// Where the keyboard is in a panel, or would be.
namespace ui::docking {

/// From now on it is known of every panel what in its content last had the focus: Qt forgets it
/// whenever the panel changes places. Only the first call does anything.
void rememberFocus();

/// What in a panel's content last had the focus, else what the Tab key would come to first there;
/// null if nothing there takes it.
QWidget* focusTarget(const DockableWindow& panel);

/// Moves the focus to the focusTarget(), or else to what shows the title.
void enterPanel(DockableWindow& panel);

/// After a click on the window's header or tab: what is seen of it gets the focus, unless it is
/// there already.
void enterByClick(DockableWindow& window);

/// To be called when a panel shows: if its window is not active yet and nothing there is to have
/// the focus then, the content of the panel is. Qt would choose what the Tab key comes to first, a
/// header or tab.
void offerFocus(DockableWindow& panel);

/// Before a child leaves: nothing around remembers that something in it had the focus. Qt asks the
/// child alone, which may remember another widget than the windows around, or none.
void forgetFocusIn(QWidget& leaver);

/// What shows the window's title: its header or else its tab; itself, if nothing does.
QWidget& titleWidget(DockableWindow& window);

/// Gives the keyboard focus back at its end: every change of parent takes it away.
class FocusKeeper
{
public:
    FocusKeeper();
    ~FocusKeeper();
    Q_DISABLE_COPY_MOVE(FocusKeeper)

private:
    bool m_isOnItsWay = false; ///< by an operation just before
    QPointer<QWidget> m_focus;
    bool m_wasActive = false;
};

} // namespace ui::docking
