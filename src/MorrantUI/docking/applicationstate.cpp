// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/applicationstate.h"

#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/onceperapplication.h"
#include <MorrantUI/docking/DockableWindow.h>

#include <QApplication>
#include <QPointer>

namespace ui::docking {

namespace {

Qt::ApplicationState gState = Qt::ApplicationActive;

void tellAll()
{
    for (QWidget* widget : QApplication::allWidgets()) {
        if (auto* window = qobject_cast<DockableWindow*>(widget)) {
            TreeAccess::setApplicationLeft(*window, isApplicationLeft());
        }
    }
}

} // namespace

void followApplication()
{
    static QPointer<QCoreApplication> followed;
    if (!isFirstFor(followed)) {
        return;
    }
    gState = Qt::ApplicationActive;
    // Told when things have settled: between two windows there is often a moment without an active
    // one.
    const auto follow = [](Qt::ApplicationState state) {
        gState = state;
        QMetaObject::invokeMethod(qApp, &tellAll, Qt::QueuedConnection);
    };
    QObject::connect(qApp, &QGuiApplication::applicationStateChanged, qApp, follow);
}

bool isApplicationLeft()
{
    return gState != Qt::ApplicationActive;
}

} // namespace ui::docking
