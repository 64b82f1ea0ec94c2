// SPDX-License-Identifier: Apache-2.0
// Any bytes as a Lottie file: reading gives a document or a sentence, never both and never neither;
// what was read can be drawn, every place it remembers lies within the file, and it is written as
// it was, or with an edit so that it can be read again.

#include "fuzzing.h"
#include "lottie/reader.h"
#include "lottie/renderer.h"
#include "saving/documentwriter.h"

#include <include/core/SkCanvas.h>
#include <include/core/SkSurface.h>

namespace {

using namespace studio;

constexpr int kSide = 32; // pixels: the drawing itself is not what is tried

// Files that draw more would say more about the machine's patience than about the reader.
constexpr std::size_t kMaxDrawnBytes = 1 << 14;

void checkSpans(const Document& document, const NumberProperty& property)
{
    const auto isWithin = [&](Span span) {
        return span.begin <= span.end && span.end <= document.bytes.size();
    };
    check(isWithin(property.span) && isWithin(property.valueSpan), "a property lies in the file");
    double last = -1e300;
    for (const auto& key : property.keys) {
        check(isWithin(key.span) && isWithin(key.valueSpan), "a key lies in the file");
        check(key.time >= last, "keys are in order");
        last = key.time;
    }
}

void checkDocument(const Document& document)
{
    check(document.frameRate > 0 && document.outPoint > document.inPoint, "it can be played");
    check(document.width > 0 && document.height > 0, "it can be seen");
    for (const Layer& layer : document.main.layers) {
        check(layer.stretch != 0, "time passes in every layer");
        checkSpans(document, layer.transform.position);
        checkSpans(document, layer.transform.rotation);
        checkSpans(document, layer.timeRemap);
    }
}

void writeAgain(Document document)
{
    check(write(document) == document.bytes, "what was not edited keeps its bytes");
    for (Layer& layer : document.main.layers) {
        layer.hidden = !layer.hidden;
        auto& keys = layer.transform.rotation.keys;
        keys.empty() ? void(layer.transform.opacity.value[0] = 7) : keys.pop_back();
        for (auto& key : layer.transform.opacity.keys) {
            key.value[0] = 9;
        }
    }
    const auto edited = write(document);
    check(edited && read(*edited), "what was edited can be read");
}

void drawFrames(const Document& document)
{
    const auto surface = SkSurfaces::Raster(SkImageInfo::MakeN32Premul(kSide, kSide));
    for (const double frame : {document.inPoint, (document.inPoint + document.outPoint) / 2}) {
        draw(*surface->getCanvas(), document, frame);
    }
    check(surface->getCanvas()->getSaveCount() == 1, "the canvas is given back");
}

void lookForLayers(const Document& document)
{
    const auto middle = SkPoint::Make(float(document.width) / 2, float(document.height) / 2);
    const Layer* found = layerAt(document, document.inPoint, middle, 1);
    check(!found || (!found->hidden && !found->locked), "what is found can be chosen");
    for (const Layer& layer : document.main.layers) {
        check(boundsOf(document, layer, document.inPoint).isFinite(), "a layer has a place");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ReadResult result = read(std::string(reinterpret_cast<const char*>(data), size));
    check(result.error.isEmpty() == result.document.has_value(), "a document or a sentence");
    if (result) {
        checkDocument(*result.document);
        writeAgain(*result.document);
        if (size <= kMaxDrawnBytes) {
            drawFrames(*result.document);
            lookForLayers(*result.document);
        }
    }
    return 0;
}
