// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

#include <string>

namespace studio {

/// Tells whether bytes are the same ones.
QByteArray fingerprint(const std::string& bytes);

enum class FileState
{
    Known,   ///< it holds what it held
    Changed, ///< by others
    Gone,
};

/// @param known the fingerprint of what the file held when we last read or wrote it
FileState stateOf(const QString& path, const QByteArray& known);

/// Whether a document can be saved there at all: not among the program's own resources.
bool isOnDisk(const QString& path);

/// Replaces a file as a whole, or leaves it as it was. A link is followed, and the file keeps its
/// permissions.
/// @return one sentence for the user, empty when all went well
QString writeFile(const QString& path, const std::string& bytes);

} // namespace studio
