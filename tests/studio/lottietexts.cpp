// SPDX-License-Identifier: Apache-2.0
#include "lottietexts.h"

#include "lottie/renderer.h"

#include <QtTest>

#include <include/core/SkCanvas.h>
#include <include/core/SkSurface.h>

namespace studio::test {

// In all of these what a test gives stands first: of two members with one name the first counts.
QByteArray layer(const QByteArray& members)
{
    return "{" + members + R"(,"ip":0,"op":100,"st":0})";
}

QByteArray shapeLayer(const QByteArray& shapes, const QByteArray& transform)
{
    return layer(R"("ty":4,"ks":{)" + transform + R"(},"shapes":[)" + shapes + "]");
}

QByteArray documentText(const QByteArray& layers, const QByteArray& extra)
{
    const char* const header = R"("v":"5.7.0","fr":10,"ip":0,"op":100,"w":100,"h":100,"layers":[)";
    return "{" + extra + header + layers + "]}";
}

Document documentOf(const QByteArray& layers, const QByteArray& extra)
{
    ReadResult result = read(documentText(layers, extra).toStdString());
    return result ? std::move(*result.document) : Document();
}

Layer onlyLayer(const QByteArray& members)
{
    const Document document = documentOf(layer(members));
    return document.main.layers.empty() ? Layer() : document.main.layers.front();
}

QImage frameOf(const Document& document, double frame)
{
    QImage image(document.width + 10, document.height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    const auto info = SkImageInfo::Make(
        image.width(), image.height(), kBGRA_8888_SkColorType, kPremul_SkAlphaType);
    const auto rowBytes = static_cast<std::size_t>(image.bytesPerLine());
    const auto surface = SkSurfaces::WrapPixels(info, image.bits(), rowBytes);
    draw(*surface->getCanvas(), document, frame);
    [&] { QCOMPARE(surface->getCanvas()->getSaveCount(), 1); }();
    return image;
}

} // namespace studio::test
