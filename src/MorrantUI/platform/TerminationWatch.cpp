// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/TerminationWatch.h"

#include "MorrantUI/platform/terminationsignals.h"

#include <QGuiApplication>

namespace morrant {

TerminationWatch::TerminationWatch(QObject* parent)
    : QObject(parent)
{
    connect(
        qGuiApp,
        &QGuiApplication::commitDataRequest,
        this,
        &TerminationWatch::requested,
        Qt::DirectConnection); // the session goes on once this returns
    native::system::watchTerminationSignals(this, [this] {
        Q_EMIT requested();
        QCoreApplication::exit(); // quit() would ask the windows
    });
}

TerminationWatch::~TerminationWatch() = default;

} // namespace morrant
