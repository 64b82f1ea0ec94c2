#include "lottietexts.h"

#include "lottie/renderer.h"

#include <QtTest>

#include <include/core/SkCanvas.h>
#include <include/core/SkSurface.h>

namespace studio::test {

// What a test gives stands first: of two members with one name the first counts.
std::string documentText(const QByteArray& layers, const QByteArray& extra)
{
    return QByteArray(
               "{" + extra + R"("v":"5.7.0","fr":10,"ip":0,"op":100,"w":100,"h":100,"layers":[)"
               + layers + "]}")
        .toStdString();
}

QByteArray layer(const QByteArray& members)
{
    return "{" + members + R"(,"ip":0,"op":100,"st":0})";
}

QByteArray shapeLayer(const QByteArray& shapes, const QByteArray& transform)
{
    return layer(R"("ty":4,"nm":"Shapes","ks":{)" + transform + R"(},"shapes":[)" + shapes + "]");
}

QByteArray filledRect(const QByteArray& center, const QByteArray& size, const QByteArray& color)
{
    return R"({"ty":"gr","it":[{"ty":"rc","p":{"k":)" + center + R"(},"s":{"k":)" + size
           + R"(},"r":{"k":0}},{"ty":"fl","c":{"k":)" + color + R"(},"o":{"k":100}}]})";
}

Document readText(const std::string& text)
{
    ReadResult result = read(text);
    return result ? std::move(*result.document) : Document();
}

NumberProperty rotation(const QByteArray& k)
{
    const Document document = readText(documentText(layer(R"("ty":3,"ks":{"r":{"k":)" + k + "}}")));
    return document.main.layers.empty() ? NumberProperty()
                                        : document.main.layers.front().transform.rotation;
}

void drawInto(QImage& image, const Document& document, double frame)
{
    const auto surface = SkSurfaces::WrapPixels(
        SkImageInfo::Make(
            image.width(), image.height(), kBGRA_8888_SkColorType, kPremul_SkAlphaType),
        image.bits(),
        static_cast<std::size_t>(image.bytesPerLine()));
    SkCanvas& canvas = *surface->getCanvas();
    const int saves = canvas.getSaveCount();
    draw(canvas, document, frame);
    QCOMPARE(canvas.getSaveCount(), saves);
}

QImage frameOf(const Document& document, double frame)
{
    QImage image(document.width, document.height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    drawInto(image, document, frame);
    return image;
}

} // namespace studio::test
