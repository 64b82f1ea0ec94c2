// SPDX-License-Identifier: Apache-2.0
#include "ui_form.h"

#include <QApplication>

/// A form of Designer's in which every control of the library stands for one of Qt's, with some
/// properties set. Exit code 0 when they have arrived.
int main(int argc, char** argv)
{
    const QApplication app(argc, argv);
    QWidget window;
    Ui::Form form;
    form.setupUi(&window);
    const bool arrived = form.numericField->value() == 5.5 && form.sliderField->maximum() == 3.0
                         && form.sliderField->decimals() == 1 && form.anglePad->value() == 90.0
                         && form.joystickPad->maximum().y == 2.0 && form.pushButton->isPrimary()
                         && !form.collapsibleSection->isExpanded();
    return arrived && !window.grab().isNull() ? 0 : 1;
}
