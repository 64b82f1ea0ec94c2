// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

#include <functional>

class QObject;

namespace ui::docking {

/// While one lives, what is in the windows hears that it is shown or hidden, and may answer by
/// docking or closing windows. Qt is in the midst of them then: answers wait until the last of
/// these ends, and are done from the event loop.
class Answers
{
public:
    Answers();
    ~Answers();
    Q_DISABLE_COPY_MOVE(Answers)

    /// To be asked first by whatever moves windows.
    /// @param operation the same again, dropped when the window dies before
    /// @return whether it has to wait
    static bool putOff(QObject& window, std::function<void()> operation);
    /// Whether operations would have to wait.
    static bool areDue();
    /// Also lets those wait that answer when a host shows or hides what the windows lie in, of
    /// which nobody else knows. Once for an application.
    static void followHosts();
};

} // namespace ui::docking
