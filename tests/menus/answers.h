// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets>

#include <functional>

namespace ui::test {

/// Deals with the next modal dialog that opens, as a user would. One that is still open afterwards
/// is dismissed, so that a failing test ends.
inline void answerDialog(std::function<void(QDialog&)> answer)
{
    QTimer::singleShot(0, qApp, [answer = std::move(answer)] {
        if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            const QPointer<QDialog> open(dialog);
            answer(*dialog);
            if (open && open->isVisible()) {
                open->reject();
            }
        }
    });
}

/// Asks for a widget's menu and chooses in it, whether it runs modally or not; where none opens,
/// nothing is chosen. @return whether it had the row
inline bool chooseInMenu(QWidget* widget, QPoint place, const QString& text)
{
    bool found = false;
    QTimer answer;
    answer.setSingleShot(true);
    const auto choose = [&] {
        const QPointer<QWidget> menu = QApplication::activePopupWidget();
        for (QAction* const row : menu ? menu->findChildren<QAction*>() : QList<QAction*>()) {
            if (!found && row->text() == text) {
                found = true;
                row->trigger();
                break;
            }
        }
        if (menu) {
            menu->close();
        }
    };
    QObject::connect(&answer, &QTimer::timeout, qApp, choose);
    answer.start(0);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget->mapToGlobal(place));
    QCoreApplication::sendEvent(widget, &event);
    if (answer.isActive()) {
        answer.stop();
        choose();
    }
    return found;
}

} // namespace ui::test
