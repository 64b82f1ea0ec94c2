// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/stylesheets.h"

#include <MorrantUI/theme/colors.h>

#include <QColor>

namespace ui {

QString getCommonStyleSheet()
{
    // Written as hosts know it and compare it; of the two radii the later one wins.
    return QStringLiteral(R"(
QLabel{
    min-width:240 px;
}
QPushButton{
    padding: 4px;
    border-radius: 2px;
    border-radius: 4px;
    background-color: %1;
    margin: 1px;
    min-width: 100px;
}
QLineEdit{
    padding: 4px;
    border-radius: 2px;
    border-radius: 4px;
    margin: 1px;
    background-color: %3;
}
QMessageBox, ModalDialog, QInputDialog{
    background-color: %2;
    margin: 3px;
    padding: 3px;
    min-width:350 px;
}
)")
        .arg(
            colorQt(QStringLiteral("Window")).name(),
            colorQt(QStringLiteral("Base")).name(),
            colorQt(QStringLiteral("Shadow")).name());
}

QString getCommonStyleSheetWithPadding()
{
    return QStringLiteral("QWidget{margin: 4px;}"
                          "QLineEdit { margin: 4px; }"
                          "QDialogButtonBox { margin: 4px; }")
           + getCommonStyleSheet();
}

} // namespace ui
