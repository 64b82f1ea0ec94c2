// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

namespace studio {

/// What the user asked for.
struct CommandLine
{
    QString file;           ///< empty: the default sample
    QString picturesFolder; ///< empty: a window
    bool gallery = false;
    bool quitAfterFirstFrame = false;

    QString answer; ///< not empty: print this and end
    QString error;  ///< not empty: print this one sentence and fail
};

/// @param arguments the program's name first
CommandLine parseCommandLine(const QStringList& arguments);

/// Whether the arguments ask for nothing on screen. Answers before there is an application, which
/// has to know the platform from the start.
bool worksOffScreen(int argc, const char* const* argv);

} // namespace studio
