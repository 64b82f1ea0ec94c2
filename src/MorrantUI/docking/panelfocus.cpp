// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/panelfocus.h"

#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/onceperapplication.h"
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/DockableHeader.h>

#include <QApplication>
#include <QPointer>
#include <QVariant>

#include <algorithm>

namespace ui::docking {

namespace {

constexpr char kLastFocus[] = "_ui_lastFocus"; ///< property of a panel, a guarded widget

bool isIn(const QWidget& content, const QWidget& widget)
{
    return &widget == &content || content.isAncestorOf(&widget);
}

bool takesFocus(const QWidget& widget, const QWidget& content)
{
    return widget.isEnabled() && widget.isVisibleTo(content.parentWidget());
}

bool isStop(const QWidget& widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

/// Asked first: the way round the focus chain leads through the whole window.
bool hasStops(const QWidget& content)
{
    const auto inside = content.findChildren<QWidget*>();
    return isStop(content) || std::any_of(inside.begin(), inside.end(), [](const QWidget* w) {
               return isStop(*w);
           });
}

void noteFocus(QWidget* now)
{
    DockableWindow* panel = DockableWindow::findDockableParent(now);
    if (panel && panel->content() && isIn(*panel->content(), *now)) {
        panel->setProperty(kLastFocus, QVariant::fromValue(QPointer<QWidget>(now)));
    }
}

/// What has been given the focus in a window that the window system has yet to make active.
QPointer<QWidget>& awaitedFocus()
{
    static QPointer<QWidget> widget;
    return widget;
}

/// Where the focus goes from a page that lies behind another tab now.
QWidget* inFrontOf(QWidget* hidden)
{
    DockableWindow* window = DockableWindow::findDockableParent(hidden);
    for (; window; window = window->findDockableParent()) {
        DockableGroup* group = groupOf(*window);
        const DockableWindow* front = group ? TreeAccess::frontChild(*group) : nullptr;
        if (front && front != window) {
            return focusTarget(*front);
        }
    }
    return nullptr;
}

} // namespace

void rememberFocus()
{
    static QPointer<QCoreApplication> followed;
    if (!isFirstFor(followed)) {
        return;
    }
    QObject::connect(qApp, &QApplication::focusChanged, qApp, [](QWidget* /*old*/, QWidget* now) {
        noteFocus(now);
    });
}

QWidget* focusTarget(const DockableWindow& panel)
{
    QWidget* content = panel.content();
    if (!content || !panel.isAncestorOf(content)) { // gone to another panel
        return nullptr;
    }
    QWidget* last = panel.property(kLastFocus).value<QPointer<QWidget>>();
    if (last && isIn(*content, *last) && takesFocus(*last, *content)) {
        return last;
    }
    if (!hasStops(*content)) {
        return nullptr;
    }
    QWidget* widget = content;
    do {
        if (isStop(*widget) && isIn(*content, *widget) && takesFocus(*widget, *content)) {
            return widget;
        }
        widget = widget->nextInFocusChain();
    } while (widget != content);
    return nullptr;
}

void enterPanel(DockableWindow& panel)
{
    QWidget* const target = focusTarget(panel);
    QWidget& entered = target ? *target : titleWidget(panel);
    // Not by the reason of a key: a field would select all of its text and lose the caret.
    entered.setFocus(Qt::OtherFocusReason);
    if (auto* const number = qobject_cast<NumericField*>(target); number && number->isReadOnly()) {
        number->setReadOnly(false); // or what is typed next would be lost
        number->selectAll();
    }
}

void enterByClick(DockableWindow& window)
{
    QList<DockableWindow*> panels;
    TreeAccess::listPanels(window, panels);
    const QWidget* focus = QApplication::focusWidget();
    const bool inside = focus && window.isAncestorOf(focus);
    if (!inside && !panels.isEmpty() && !QApplication::activePopupWidget()) {
        enterPanel(*panels.first());
    }
}

void offerFocus(DockableWindow& panel)
{
    if (panel.isActiveWindow() || panel.window()->focusWidget()) {
        return;
    }
    if (QWidget* target = focusTarget(panel)) {
        target->setFocus(Qt::OtherFocusReason);
    }
}

void forgetFocusIn(QWidget& leaver)
{
    QWidget* above = leaver.isWindow() ? nullptr : leaver.parentWidget();
    for (; above; above = above->isWindow() ? nullptr : above->parentWidget()) {
        if (QWidget* focus = above->focusWidget(); focus && isIn(leaver, *focus)) {
            focus->clearFocus();
        }
    }
}

QWidget& titleWidget(DockableWindow& window)
{
    if (window.header() && !window.header()->isHidden()) {
        return *window.header();
    }
    QWidget* tab = TreeAccess::tabOf(window);
    return tab ? *tab : window;
}

FocusKeeper::FocusKeeper()
    : m_isOnItsWay(awaitedFocus())
    , m_focus(m_isOnItsWay ? awaitedFocus().data() : QApplication::focusWidget())
    , m_wasActive(m_isOnItsWay || (m_focus && m_focus->isActiveWindow()))
{}

FocusKeeper::~FocusKeeper()
{
    QWidget* focus = m_focus && !m_focus->isVisible() ? inFrontOf(m_focus) : m_focus.data();
    if (!focus || focus == QApplication::focusWidget() || !focus->isVisible()) {
        return;
    }
    focus->setFocus(Qt::OtherFocusReason);
    if (m_wasActive && (m_isOnItsWay || !focus->isActiveWindow())) {
        focus->activateWindow();
        awaitedFocus() = focus; // for operations that follow at once
        QMetaObject::invokeMethod(
            qApp, [] { awaitedFocus().clear(); }, Qt::QueuedConnection);
    }
}

} // namespace ui::docking
