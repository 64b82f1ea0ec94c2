// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/heldcontent.h"

#include <QApplication>
#include <QWidget>

namespace ui {

bool encloses(const QWidget& widget, const QWidget& container)
{
    const QWidget* inner = &container;
    while (inner && inner != &widget) {
        inner = inner->parentWidget();
    }
    return inner != nullptr;
}

bool discardContent(QWidget* content, const QWidget& container)
{
    if (!content || content->parentWidget() != &container) {
        return false;
    }
    const QWidget* const focus = QApplication::focusWidget();
    const bool hadFocus = focus && (focus == content || content->isAncestorOf(focus));
    content->deleteLater(); // first: hiding it runs slots
    content->hide();
    return hadFocus;
}

} // namespace ui
