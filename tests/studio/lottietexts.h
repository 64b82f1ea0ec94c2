#pragma once

#include "lottie/reader.h"

#include <QImage>
#include <QString>

namespace studio::test {

/// A document of 100 by 100 pixels, ten frames a second and 100 frames around a list of layers.
/// @param extra further members, each with its comma, for example `"nm":"A",`
std::string documentText(const QByteArray& layers, const QByteArray& extra = {});

/// A shape layer over all frames.
/// @param transform members of its transform
QByteArray shapeLayer(const QByteArray& shapes, const QByteArray& transform = {});

/// A layer of any kind, from its members.
QByteArray layer(const QByteArray& members);

/// A group without a transform of its own: a rectangle by centre and size, filled.
QByteArray filledRect(const QByteArray& center, const QByteArray& size, const QByteArray& color);

/// Reads a text that must be readable; a failure shows as a document without layers.
Document readText(const std::string& text);

/// The only property of a document whose layer turns by it: `k` is written as its "k".
NumberProperty rotation(const QByteArray& k);

/// Draws a frame over what is there, and checks that the canvas is given back as it was.
void drawInto(QImage& image, const Document& document, double frame);

/// A frame over white.
QImage frameOf(const Document& document, double frame);

} // namespace studio::test
