#pragma once

#include <QString>

namespace studio {

class StudioWindow;

/// Renders the window at several frames of its document, with a list of what is not drawn, with a
/// notice and without a document, and the gallery, into PNG files named for what they show:
/// "play-0012.png" and, by a second process at twice the pixels, "play-0012@2x.png". Prints each
/// file's path.
/// @param folder made when it is missing
/// @return one sentence about what went wrong; empty when all were written
QString writePictures(StudioWindow& window, const QString& folder);

} // namespace studio
