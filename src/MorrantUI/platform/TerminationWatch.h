// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>

namespace morrant {

/// Hears that the system wants the program to end, and lets it end cleanly.
///
/// Where there are signals these are SIGTERM, SIGHUP and SIGINT: requested() goes out, and then the
/// event loop ends with the exit code 0, and those of open dialogs with it. A second SIGINT (Ctrl+C
/// in a terminal) ends the process at once. At the end of a session, on every system, the session
/// manager ends the program itself, or changes its mind. Windows are not asked whether they may
/// close; closing one by hand is no request.
///
/// There is one watch at a time, made on the GUI thread after the application; it lasts until it is
/// deleted, when what dealt with the signals before has them back. Signals that were ignored before
/// stay ignored.
class MORRANT_UI_EXPORT TerminationWatch : public QObject
{
    Q_OBJECT

public:
    explicit TerminationWatch(QObject* parent = nullptr);
    ~TerminationWatch() override;

Q_SIGNALS:
    /// What must not be lost is to be put away now, within seconds and without asking anybody. May
    /// come more than once, also while a dialog is open.
    void requested();
};

} // namespace morrant
