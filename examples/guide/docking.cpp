// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <QCoreApplication>
#include <QDir>
#include <QSettings>
#include <QTreeWidget>

using LayerList = QTreeWidget;
using CurveView = QWidget;

QWidget* dockingChapter()
{
    auto* window = new DockableGroup;
    DockableGroup& root = *window;
    // [docking]
    root.setAttribute(Qt::WA_DeleteOnClose, false);
    gMainWindow = &root; // before any other dockable window is made

    auto* layers = new DockableWindow(new LayerList); // takes the content
    layers->setObjectName(QStringLiteral("layers"));  // an id of yours, for saving the layout
    layers->setText(QCoreApplication::translate("host", "Layers"));
    root.dockInArea(layers, DockableArea::Left);

    auto* curves = new DockableWindow(new CurveView);
    layers->dockInArea(curves, DockableArea::Center); // two tabs
    root.show();                                      // or put it into a window of yours
    // [docking]

    QSettings settings(QDir::temp().filePath(QStringLiteral("guide.ini")), QSettings::IniFormat);
    // [layout]
    ui::restoreLayout(settings.value(QStringLiteral("layout")).toByteArray()); // at the start
    settings.setValue(QStringLiteral("layout"), ui::saveLayout());             // at the end
    // [layout]
    return window;
}
