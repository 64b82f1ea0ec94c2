// SPDX-License-Identifier: Apache-2.0
#pragma once

class QMenu;
class QWidget;

/// One window a chapter of docs/host-guide.md, or a page of docs/widgets.
QWidget* dockingChapter();
QWidget* documentsChapter();
QWidget* timeEditorChapter();
QWidget* timeRulerChapter();
QWidget* fixedGraphChapter();
QWidget* undoChapter();
QWidget* listChapter();
QWidget* graphPaneChapter();
QWidget* canvasChapter();

/// The menu of the menus' chapter, filled but not shown.
QMenu* menuChapter(QWidget* panel);
