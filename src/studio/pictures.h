// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace studio {

class StudioWindow;

/// Renders the window, its first layer selected, at several frames of its document, with a notice,
/// with its panels arranged otherwise and without a document, and the gallery, into PNG files named
/// for what they show: "play-0012.png" and, at twice the pixels, "play-0012@2x.png". What a
/// document asks for and is not drawn is listed in its pictures. Each device ratio is rendered by a
/// process of its own, this program with the same arguments. Prints each file's path.
/// @param folder made when it is missing
/// @return false after StudioWindow::failed() or one of those processes has said why
bool writePictures(StudioWindow& window, const QString& folder);

} // namespace studio
