// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>

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

} // namespace ui::test
