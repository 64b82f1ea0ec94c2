// SPDX-License-Identifier: Apache-2.0
#include "Report.h"
#include "allocations.h"
#include "themeassets.h"
#include "timing.h"
#include <MorrantUI/MorrantUI.h>

#include <QApplication>
#include <QImage>
#include <QJsonDocument>
#include <QPainter>
#include <QPushButton>
#include <QStyle>

#include <include/core/SkCanvas.h>
#include <include/core/SkPaint.h>
#include <include/core/SkSurface.h>

#include <cstdio>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using ui::bench::Report;

namespace {

constexpr double kMillisecond = 1e6; ///< nanoseconds
constexpr int kColorNames = 61;      ///< a host adds names of its own to the theme's
constexpr int kWidgets = 200;        ///< of a host's window
constexpr QSize kFullHd(1920, 1080);

/// The theme file's colour names, filled up to kColorNames with the host's.
QStringList makeColorNames(VisualDesignBase& theme)
{
    const QString file = VisualDesignBase::loadTextFromFile(QStringLiteral("style:theme.json"));
    const QJsonObject root = QJsonDocument::fromJson(file.toUtf8()).object();
    QStringList names = root[QLatin1String("QPalette")].toObject().keys()
                        + root[QLatin1String("colors")].toObject().keys();
    while (names.size() < kColorNames) {
        names.append(QStringLiteral("HostColor%1").arg(names.size()));
        theme.setColor(names.last(), Qt::red);
    }
    return names;
}

void benchColors(Report& report, const QStringList& names)
{
    constexpr int kRounds = 2000;
    unsigned int sum = 0; // printed, so that no look-up is optimised away
    const auto lookUpAll = [&] {
        for (const QString& name : names) {
            sum += ui::colorQt(name).rgba();
        }
    };
    if (report.wants("colorqt-time")) {
        const double nanoseconds = ui::bench::medianNanosecondsOf([&] {
            for (int round = 0; round < kRounds; ++round) {
                lookUpAll();
            }
        });
        const double calls = kRounds * static_cast<double>(names.size());
        report.judge("colorqt-time", nanoseconds / calls, "ns", 100);
    }
    if (report.wants("colorqt-allocations")) {
        const auto count = static_cast<double>(ui::bench::allocationsOf(lookUpAll));
        report.judge("colorqt-allocations", count, "allocations", 0);
    }
    std::fprintf(stderr, "sum of the colours: %u\n", sum);
}

struct Picture
{
    const char* name;
    std::function<void(SkCanvas&)> draw;
};

std::vector<Picture> pictures()
{
    const auto mixed = [](SkCanvas& canvas) {
        canvas.clear(SK_ColorTRANSPARENT);
        SkPaint paint;
        paint.setAntiAlias(true);
        for (int i = 0; i < 200; ++i) {
            paint.setColor(SkColorSetARGB(i % 3 == 0 ? 128 : 255, i, 255 - i, 90));
            canvas.drawCircle(
                static_cast<float>(i * 97 % 1920), static_cast<float>(i * 61 % 1080), 70, paint);
        }
    };
    return {
        {"opaque", [](SkCanvas& canvas) { canvas.clear(SK_ColorDKGRAY); }},
        {"mixed", mixed},
        {"translucent", [](SkCanvas& canvas) { canvas.clear(SkColorSetARGB(128, 200, 100, 50)); }},
    };
}

/// A surface and Qt's image over the same pixels.
struct Frame
{
    sk_sp<SkSurface> surface;
    QImage image;
};

Frame makeFrame(const Picture& picture)
{
    auto surface =
        SkSurfaces::Raster(SkImageInfo::MakeN32Premul(kFullHd.width(), kFullHd.height()));
    picture.draw(*surface->getCanvas());
    SkPixmap pixels;
    surface->peekPixels(&pixels);
    const QImage image(
        static_cast<const uchar*>(pixels.addr()),
        kFullHd.width(),
        kFullHd.height(),
        static_cast<qsizetype>(pixels.rowBytes()),
        QImage::Format_ARGB32_Premultiplied);
    return {std::move(surface), image};
}

void benchCopyPixels(Report& report)
{
    constexpr int kCopies = 10; ///< a run
    QImage target(kFullHd, QImage::Format_RGB32);
    target.fill(Qt::black);
    QPainter painter(&target);
    for (const Picture& picture : pictures()) {
        const std::string name = std::string("copypixels-1080p-") + picture.name;
        const std::string allocationsName = std::string("copypixels-allocations-") + picture.name;
        if (!report.wants(name) && !report.wants(allocationsName)) {
            continue;
        }
        const Frame frame = makeFrame(picture);
        const auto ours = [&] {
            for (int copy = 0; copy < kCopies; ++copy) {
                ui::copyPixels(frame.surface, &painter);
            }
        };
        const auto floor = [&] {
            for (int copy = 0; copy < kCopies; ++copy) {
                painter.drawImage(0, 0, frame.image);
            }
        };
        const double ratio = ui::bench::medianRatio(ours, floor);
        if (report.wants(name)) {
            report.judge(name, ratio, "x-drawImage", 1.10);
        }
        if (report.wants(allocationsName)) {
            // What drawImage itself allocates is not ours.
            const auto floorCount = static_cast<double>(ui::bench::allocationsOf(floor));
            const auto ourCount = static_cast<double>(ui::bench::allocationsOf(ours));
            const double excess = (ourCount - floorCount) / kCopies;
            report.judge(allocationsName, excess, "allocations-beyond-drawImage", 0);
        }
    }
}

class Dial : public ui::SkiaQWidgetAdapter
{
public:
    using SkiaQWidgetAdapter::SkiaQWidgetAdapter;
    int paints = 0;

protected:
    void paintSkia(SkCanvas* canvas, const SkPaint& paint) override
    {
        ++paints;
        canvas->drawCircle(60, 40, 30, paint);
    }
};

void benchSkiaRepaint(Report& report)
{
    if (!report.wants("skia-repaint-surfaces")) {
        return;
    }
    constexpr int kRepaints = 100;
    Dial dial;
    dial.resize(300, 200);
    dial.grab();
    // The latest surface is kept, so that a new one cannot have its address.
    sk_sp<SkSurface> latest = dial.surface();
    int made = 0;
    const int paintsBefore = dial.paints;
    for (int repaint = 0; repaint < kRepaints; ++repaint) {
        dial.grab();
        sk_sp<SkSurface> current = dial.surface();
        made += current != latest ? 1 : 0;
        latest = std::move(current);
    }
    const bool painted = latest && dial.paints == paintsBefore + kRepaints;
    const double figure = painted ? made : std::numeric_limits<double>::quiet_NaN();
    report.judge("skia-repaint-surfaces", figure, "surfaces", 0);
}

void benchStart(Report& report, VisualDesignDark& theme)
{
    const auto step = [&](const char* name, const std::function<void()>& work) {
        if (report.wants(name)) {
            const double nanoseconds = ui::bench::medianNanosecondsOf([&] {
                work();
                QCoreApplication::sendPostedEvents();
            });
            report.state(name, nanoseconds / kMillisecond, "ms");
        }
    };
    // Palette, style and font go to every widget there is.
    QWidget window;
    for (int i = 0; i < kWidgets; ++i) {
        new QPushButton(&window);
    }
    window.show();

    // Two that take turns: an equal palette or font would be a step without work.
    bool turn = false;
    const QPalette palette = theme.getPalette();
    QFont largeFont = theme.getFont();
    largeFont.setPixelSize(theme.getLargeFontSize() + 1);

    step("theme-palette", [&] { theme.updatePalette(); });
    step("theme-create-style", [&] { const std::unique_ptr<QStyle> style(theme.createStyle()); });
    step("theme-set-palette", [&] {
        turn = !turn;
        QApplication::setPalette(turn ? QPalette(Qt::black, Qt::black) : palette);
    });
    step("theme-set-style", [&] { QApplication::setStyle(theme.createStyle()); });
    step("theme-set-font", [&] {
        turn = !turn;
        QApplication::setFont(turn ? largeFont : theme.getFont());
    });
    step("theme-apply-style", [&] { theme.applyAppStyle(); });
}

} // namespace

int main(int argc, char** argv)
{
    return benchWithAssets(argc, argv, [](Report& report, const QString& assets) {
        // Measured once: only the first theme of a process reads the font files.
        std::unique_ptr<VisualDesignDark> theme;
        const double construction =
            ui::bench::nanosecondsOf([&] { theme = std::make_unique<VisualDesignDark>(assets); });
        if (report.wants("theme-construction")) {
            report.state("theme-construction", construction / kMillisecond, "ms");
        }
        benchStart(report, *theme);
        theme->applyAppStyle();

        benchColors(report, makeColorNames(*theme));
        benchCopyPixels(report);
        benchSkiaRepaint(report);
    });
}
