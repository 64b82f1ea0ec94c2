// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/menus/ModalDialog.h>

#include <QApplication>
#include <QPushButton>
#include <QTimer>

namespace ui::test {

/// Presses a button of the next dialogs, and counts them.
class Answer : public QObject
{
public:
    explicit Answer(ModalDialog::Button button)
    {
        auto* timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, [this, button] {
            if (auto* dialog = qobject_cast<ModalDialog*>(QApplication::activeModalWidget())) {
                ++asked;
                dialog->button(button)->click();
            }
        });
        timer->start(1);
    }

    int asked = 0;
};

} // namespace ui::test
