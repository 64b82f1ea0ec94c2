// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/reader.h"

#include <QImage>

namespace studio::test {

/// A layer of any kind over all frames, from its members.
QByteArray layer(const QByteArray& members);

/// The same of shapes, with the members of its transform.
QByteArray shapeLayer(const QByteArray& shapes, const QByteArray& transform = {});

/// A document of 100 by 100 pixels, ten frames a second and 100 frames around a list of layers.
/// @param extra further members, each with its comma, for example `"nm":"A",`
QByteArray documentText(const QByteArray& layers, const QByteArray& extra = {});

/// Reads a document that must be readable; a failure shows as one without layers.
Document documentOf(const QByteArray& layers, const QByteArray& extra = {});

/// The only layer of a document; one without a name when it cannot be read.
Layer onlyLayer(const QByteArray& members);

/// Draws a frame over white, with ten pixels more to the right, and checks that the canvas is given
/// back as it was.
QImage frameOf(const Document& document, double frame);

} // namespace studio::test
