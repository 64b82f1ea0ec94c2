// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <QApplication>

#include <memory>

/// Shows each chapter's window once. Exit code 0 when all of them could be drawn.
int main(int argc, char** argv)
{
    const QApplication app(argc, argv);
    VisualDesignDark theme(QStringLiteral(ASSETS_DIR));
    theme.applyAppStyle();

    bool drawn = ui::version() >= MORRANT_UI_VERSION;
    for (const auto chapter :
         {dockingChapter,
          documentsChapter,
          timeEditorChapter,
          timeRulerChapter,
          fixedGraphChapter,
          undoChapter,
          listChapter,
          graphPaneChapter,
          canvasChapter})
    {
        const std::unique_ptr<QWidget> window(chapter());
        window->resize(640, 400);
        window->show();
        QCoreApplication::processEvents();
        drawn = drawn && !window->grab().isNull();
    }
    QWidget panel;
    return drawn && !menuChapter(&panel)->isEmpty() ? 0 : 1;
}
