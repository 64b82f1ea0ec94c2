// SPDX-License-Identifier: Apache-2.0
#include <MorrantUI/MorrantUI.h>

#include <Core/Core.h>

#include <QApplication>

#include <include/core/SkCanvas.h>
#include <include/core/SkSurface.h>

/// Uses the theme, a widget, a free helper, Core and Skia through the installed headers. Exit code
/// 0 when all of them answered.
int main(int argc, char** argv)
{
    const QApplication app(argc, argv);
    VisualDesignDark theme(QStringLiteral("nowhere"));
    theme.setColor(QStringLiteral("Accent1"), QColor(10, 20, 30));
    theme.applyAppStyle();

    Widget widget(nullptr);
    widget.setBackgroundColor(ui::colorQt(QStringLiteral("Accent1")));
    widget.resize(40, 20);
    const QImage image = widget.grab().toImage();

    std::string error;
    const double sum = evaluateExpression("1 + 2", {}, &error);
    const auto surface = SkSurfaces::Raster(SkImageInfo::MakeN32Premul(4, 4));

    const bool fine = image.pixelColor(20, 10) == QColor(10, 20, 30) && sum == 3.0 && error.empty()
                      && surface != nullptr && ui::color("Accent1") == Color(0xff0a141e);
    return fine ? 0 : 1;
}
