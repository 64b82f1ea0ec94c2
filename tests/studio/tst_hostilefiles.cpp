// SPDX-License-Identifier: Apache-2.0
#include "lottie/drawcost.h"
#include "lottie/evaluate.h"
#include "lottie/renderer.h"
#include "lottietexts.h"
#include "support/TestCase.h"

#include <include/core/SkCanvas.h>
#include <include/core/SkSurface.h>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace studio;
using namespace studio::test;

namespace {

const QByteArray kRect = R"({"ty":"rc","p":{"k":[50,50]},"s":{"k":[90,90]}})";
const QByteArray kFill = R"({"ty":"fl","c":{"k":[1,0,0]}})";

const QByteArray kSolid = R"({"nm":"heavy","ty":1,"sw":99,"sh":99,"op":100,)";
const QByteArray kFaintMask = R"({"mode":"a","inv":true,"pt":{},"o":{"k":50}})";

QByteArray list(const QByteArray& item, int count)
{
    return QByteArrayList(count, item).join(',');
}

QByteArray dashed(const char* length, const char* end)
{
    return QByteArray(R"({"ty":"sh","ks":{"k":{"v":[[0,50],[)") + end
           + R"(,50]],"i":[[0,0],[0,0]],"o":[[0,0],[0,0]]}}},{"ty":"st","c":{"k":[0,0,0]},)"
           + R"("w":{"k":20},"d":[{"n":"d","v":{"k":)" + length + "}}]}";
}

QByteArray nestedGroups(int depth, const QByteArray& inner)
{
    QByteArray text = inner;
    for (int i = 0; i < depth; ++i) {
        text = R"({"ty":"gr","it":[)" + text + "," + kRect + "," + kFill
               + R"(,{"ty":"tr","o":{"k":99.9}}]})";
    }
    return text;
}

struct Picture
{
    QImage image;
    DrawResult result;
};

/// A frame of a document of 100 by 100 pixels, ten times enlarged.
Picture enlarged(const Document& document)
{
    constexpr int kSide = 1000;
    Picture picture{QImage(kSide, kSide, QImage::Format_ARGB32_Premultiplied), {}};
    picture.image.fill(Qt::white);
    const auto info = SkImageInfo::MakeN32Premul(kSide, kSide);
    const auto rowBytes = static_cast<std::size_t>(picture.image.bytesPerLine());
    const auto surface = SkSurfaces::WrapPixels(info, picture.image.bits(), rowBytes);
    surface->getCanvas()->scale(10, 10);
    picture.result = draw(*surface->getCanvas(), document, 1);
    return picture;
}

/// Small files that are valid and ask for far too much, or for odd things. Before there was a
/// budget each of the costly ones kept the window busy for minutes.
class HostileFilesTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void whatCostsTooMuchIsLeftUnfinishedAndNamed()
    {
        const auto heavy = [](const QByteArray& shapes) {
            return documentOf(layer(R"("nm":"heavy","ty":4,"ks":{},"shapes":[)" + shapes + "]"));
        };
        const QByteArray solids = list(
            R"({"nm":"heavy","ty":4,"op":100,"ks":{"o":{"k":50}},"shapes":[)" + kRect + "," + kFill
                + "," + kFill + "]}",
            700);
        const Document documents[] = {
            heavy(list(kRect + "," + kFill, 20'000)), // every fill takes all paths above it
            heavy(dashed("1", "1e7")),
            heavy(list(kRect, 3000) + R"(,{"ty":"mm","mm":5},)" + kFill), // which may all cross
            heavy(nestedGroups(100, list(kRect, 5000))),                  // each faded as one
            documentOf(                                                   // layers faded as one
                list(layer(R"("ty":0,"refId":"c")"), 70),
                R"("assets":[{"id":"c","layers":[)" + solids + "]}],"),
            heavy(
                kRect + R"(,{"ty":"gf","e":{"k":[9,9]},"g":{"k":{"k":[)" + list("0", 20'000)
                + "]}}}"),
            documentOf(list(kSolid + R"("masksProperties":[)" + kFaintMask + "]}", 700)),
            documentOf(list(kSolid + R"("tt":3,"tp":2},)" + kSolid + R"("ind":2,"td":1})", 350))};
        for (const Document& document : documents) {
            QVERIFY(!document.main.layers.empty());
            const DrawResult result = enlarged(document).result;
            QVERIFY(result.unfinished);
            QCOMPARE(result.unfinished->name, u"heavy"_qs);
            QVERIFY(result.cost <= kMaxDrawCost);
            // Looking for a layer and for its room has the same limit.
            layerAt(document, 1, {95.1f, 95.1f}, 10);
            boundsOf(document, document.main.layers.front(), 1);
        }
    }

    void aDashTooShortToSeeIsDrawnAsALine()
    {
        for (const char* length : {"0.001", "0"}) {
            const Picture picture = enlarged(documentOf(shapeLayer(dashed(length, "100"))));
            QVERIFY(!picture.result.unfinished && picture.result.cost < kMaxDrawCost / 100);
            QCOMPARE(picture.image.pixelColor(500, 500), QColor(Qt::black));
        }
        const Picture seen = enlarged(documentOf(shapeLayer(dashed("10", "100"))));
        QCOMPARE(seen.image.pixelColor(150, 500), QColor(Qt::white));
    }

    void autoOrientKeepsTheWayBeyondTheKeysAndAtRest()
    {
        constexpr double kFrames[] = {-5, 0, 5, 10, 10.5, 20, 30};
        const QList<double> turning{90, 90, 90, 90, 90, 0, 0}; // down, at rest, then right
        const std::pair<QByteArray, QList<double>> cases[] = {
            {R"({"k":[{"t":0,"s":[0,0]},{"t":10,"s":[0,50]},{"t":20,"s":[0,50]},)"
             R"({"t":25,"s":[50,50],"h":1},{"t":28,"s":[50,0]}]})", // with a jump at the end
             turning},
            {R"({"s":true,"x":{"k":[{"t":20,"s":[0]},{"t":25,"s":[50]}]},)"
             R"("y":{"k":[{"t":0,"s":[0]},{"t":10,"s":[50]}]}})",
             turning},
            {R"({"k":[{"t":0,"s":[0,0],"o":{"x":0.6,"y":0},"i":{"x":0.4,"y":1}},)" // slow ends
             R"({"t":20,"s":[-50,0]}]})",
             QList<double>(7, 180)},
            {R"({"k":[3,4]})", QList<double>(7, 0)}};
        for (const auto& [position, degrees] : cases) {
            const Layer turned = onlyLayer(R"("ty":3,"ao":1,"ks":{"p":)" + position + "}");
            for (qsizetype i = 0; i < degrees.size(); ++i) {
                const SkMatrix matrix = matrixAt(turned.transform, kFrames[i]);
                const double seen =
                    qRadiansToDegrees(std::atan2(matrix.getSkewY(), matrix.getScaleX()));
                const bool isRight = qAbs(std::remainder(seen - degrees.at(i), 360)) < 0.01;
                QVERIFY2(isRight, position + " at " + QByteArray::number(kFrames[i]));
            }
        }
    }

    void twinsOfOneNameListTheirFeaturesApart()
    {
        const QByteArray twin = R"("nm":"A","ty":2,"ef":[1],"bm":1)";
        const QByteArray other = R"("nm":"B","ty":5)";
        const Document document = documentOf(layer(twin) + "," + layer(other) + "," + layer(twin));
        const auto& missing = document.missing;
        QCOMPARE(missing.size(), std::size_t(7));
        QCOMPARE(missing[0].layerByte, missing[2].layerByte);
        QCOMPARE(missing[0].feature, missing[4].feature);
        QVERIFY(missing[0].layerByte != missing[4].layerByte);
    }

    void aPipeIsRefusedUnopened()
    {
#ifdef Q_OS_UNIX
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"pipe.json"_qs);
        QCOMPARE(mkfifo(qPrintable(path), 0600), 0);
        QCOMPARE(readFile(path).error, u"“%1” is not a file."_qs.arg(path));
#endif
    }
};

const ui::test::Registration<HostileFilesTest> kRegistration;
} // namespace

#include "tst_hostilefiles.moc"
