// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QByteArray>
#include <QString>

/// Files that a program replaces, and that others may have changed meanwhile.
namespace ui {

/// Tells whether bytes are the same ones.
MORRANT_UI_EXPORT QByteArray fingerprintOf(const QByteArray& bytes);

/// What has become of a file that was read.
enum class FileState
{
    Known,   ///< it holds what it held
    Changed, ///< by others
    Gone,
};

/// Reads the file, whatever its time says.
/// @param known the fingerprint of what the file held when we last read or wrote it
MORRANT_UI_EXPORT FileState fileState(const QString& path, const QByteArray& known);

/// Whether a file can be saved there at all: not an empty path, and not among the program's own
/// resources.
MORRANT_UI_EXPORT bool isOnDisk(const QString& path);

/// Whether two paths lead to one file, however they are spelled. Those that do not exist are told
/// apart by their absolute paths, as the system tells names apart.
MORRANT_UI_EXPORT bool isSameFile(const QString& one, const QString& other);

/// A title as a file name, without an ending, that every system takes.
MORRANT_UI_EXPORT QString fileNameFor(const QString& title);

/// Replaces a file as a whole, or leaves it as it was. A link is followed, and the file keeps its
/// permissions; its owner and access lists become those of a new file, and other hard links keep
/// the old contents. A folder that takes no new file refuses.
/// @return one sentence for the user, empty when all went well
MORRANT_UI_EXPORT QString replaceFile(const QString& path, const QByteArray& bytes);

} // namespace ui
