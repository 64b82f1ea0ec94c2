// SPDX-License-Identifier: Apache-2.0
#include "Report.h"
#include "lottie/reader.h"
#include "lottie/renderer.h"
#include "timing.h"

#include <QDir>

#include <include/core/SkCanvas.h>
#include <include/core/SkSurface.h>

#include <algorithm>
#include <cstdio>

using ui::bench::Report;

namespace {

constexpr int kWidth = 960; ///< pixels of the viewport
constexpr int kHeight = 540;
constexpr double kSecond = 1e9; ///< nanoseconds
constexpr double kMillisecond = 1e6;

/// The median time of the frame that takes longest, in nanoseconds, drawn to fit the viewport.
double slowestFrame(const studio::Document& document)
{
    const auto surface = SkSurfaces::Raster(SkImageInfo::MakeN32Premul(kWidth, kHeight));
    SkCanvas& canvas = *surface->getCanvas();
    const double scale = std::min(
        static_cast<double>(kWidth) / document.width,
        static_cast<double>(kHeight) / document.height);
    canvas.scale(static_cast<float>(scale), static_cast<float>(scale));

    const int frames = static_cast<int>(document.outPoint - document.inPoint);
    double slowest = 0;
    for (int i = 0; i < frames; ++i) {
        slowest = std::max(slowest, ui::bench::medianNanosecondsOf([&] {
                               canvas.clear(SK_ColorWHITE);
                               studio::draw(canvas, document, document.inPoint + i);
                           }));
    }
    return slowest;
}

} // namespace

int main(int argc, char** argv)
{
    Report report(argc, argv);
    if (!report.wants("lottie-frame") && !report.wants("lottie-read")) {
        return report.exitCode();
    }
    const QDir folder(qEnvironmentVariable("MORRANT_LOTTIE_DIR"));
    const QString path = folder.filePath(QStringLiteral("bodymovin.json"));
    const studio::ReadResult result = studio::readFile(path);
    if (!result) {
        std::fprintf(
            stderr,
            "lottie-frame, lottie-read: not measured, MORRANT_LOTTIE_DIR has no bodymovin.json\n");
        return report.exitCode();
    }
    if (report.wants("lottie-frame")) {
        const double frameTime = kSecond / result.document->frameRate;
        report.judge("lottie-frame", slowestFrame(*result.document) / frameTime, "frames", 0.5);
    }
    if (report.wants("lottie-read")) {
        const double time = ui::bench::medianNanosecondsOf([&] { studio::readFile(path); });
        report.state("lottie-read", time / kMillisecond, "ms");
    }
    return report.exitCode();
}
