// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/hostmenus.h"

#include "MorrantUI/controls/gestures/windowowners.h"
#include "MorrantUI/menus/menusearch.h"
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/theme/events.h>
#include <MorrantUI/theme/icons.h>

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPointer>

#include <utility>

namespace ui {

namespace {

constexpr const char* kOffer = "morrant_contextMenuOffer"; ///< counts the offers to a widget

/// Whether a window is one in which the commands of another go on, rather than a dialog or pop-up.
bool floatsAbove(const QWidget& window, const QWidget& main)
{
    return window.isWindow() && window.windowType() == Qt::Window && &window != &main
           && isOwnedBy(&window, &main);
}

/// A menu's action in a window stands for all of its rows.
void share(QMenuBar& bar, QWidget& window)
{
    if (!floatsAbove(window, *bar.window())) {
        return;
    }
    const QList<QAction*> menus = bar.actions();
    for (QAction* const menu : menus) {
        if (!window.actions().contains(menu)) {
            window.addAction(menu);
        }
    }
}

} // namespace

QString menuText(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

QString plainMenuText(const QString& menuText)
{
    return menus::displayedText(menuText);
}

void offerContextMenu(QWidget& widget, FillContextMenu fill)
{
    const int offer = widget.property(kOffer).toInt() + 1;
    widget.setProperty(kOffer, offer);
    widget.setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(
        &widget,
        &QWidget::customContextMenuRequested,
        &widget,
        [&widget, offer, fillMenu = std::move(fill)](QPoint point) {
            const bool isInDrag = QGuiApplication::mouseButtons().testFlag(Qt::LeftButton);
            if (!fillMenu || isInDrag || widget.property(kOffer).toInt() != offer) {
                return;
            }
            auto* menu = new ContextMenu(&widget);
            QObject::connect(menu, &QMenu::aboutToHide, menu, &QObject::deleteLater);
            fillMenu(*menu, point);
            menu->isEmpty() ? menu->deleteLater() : menu->popup(widget.mapToGlobal(point));
        });
}

void addEditRows(ContextMenu& menu, QPlainTextEdit& field)
{
    const auto add = [&](const char* icon, const QString& text, auto run, auto key, bool can) {
        QAction* const row = menu.addAction(text, &field, run);
        row->setIcon(icon ? getCachedIcon(QLatin1String(icon)) : QIcon());
        row->setShortcut(key);
        row->setEnabled(can);
    };
    const bool selects = field.textCursor().hasSelection();
    const bool cuts = selects && !field.isReadOnly();
    add("icons:cut.png", ContextMenu::tr("Cu&t"), &QPlainTextEdit::cut, QKeySequence::Cut, cuts);
    add("icons:copy.png",
        ContextMenu::tr("&Copy"),
        &QPlainTextEdit::copy,
        QKeySequence::Copy,
        selects);
    add("icons:paste.png",
        ContextMenu::tr("&Paste"),
        &QPlainTextEdit::paste,
        QKeySequence::Paste,
        field.canPaste());
    add(nullptr,
        ContextMenu::tr("Select &All"),
        &QPlainTextEdit::selectAll,
        QKeySequence::SelectAll,
        !field.document()->isEmpty());
}

void shareShortcuts(QMenuBar& bar)
{
    installEventFilter(
        qApp,
        [commands = QPointer<QMenuBar>(&bar)](QObject* watched, QEvent* event) {
            const bool isTold = event->type() == QEvent::WindowActivate && commands;
            if (isTold && watched->isWidgetType()) {
                share(*commands, *static_cast<QWidget*>(watched));
            }
            return false;
        },
        &bar);
}

} // namespace ui
