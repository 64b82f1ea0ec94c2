// SPDX-License-Identifier: Apache-2.0
// [start]
#include <MorrantUI/MorrantUI.h>

#include <QApplication>

int main(int argc, char** argv)
{
    // [theme]
    QApplication app(argc, argv);
    VisualDesignDark theme(QStringLiteral(ASSETS_DIR)); // lives as long as the application
    theme.applyAppStyle();
    // now the first widget
    // [theme]

    NumericField opacity(100.0);
    opacity.show();
    return QCoreApplication::arguments().contains(QStringLiteral("--once")) ? 0 : app.exec();
}
// [start]
