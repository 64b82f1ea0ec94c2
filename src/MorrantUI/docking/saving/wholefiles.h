// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

/// Files that are written as a whole, and their names. Private to the library.
namespace ui {

/// Replaces a file, or leaves it as it was.
/// @return what went wrong, the rest of a sentence; empty when all went well
QString writeWhole(const QString& path, const QByteArray& bytes);

/// Whether a file of this name, whatever its endings, is a device on some system.
bool isDeviceName(const QString& name);

} // namespace ui
