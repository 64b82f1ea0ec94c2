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

// Objects in a list; in each %1 is its number, from 0 on, and %2 that of the next.
QByteArray chain(const char* object, int count)
{
    QStringList links;
    for (int i = 0; i < count; ++i) {
        links += QString::fromLatin1(object).arg(i).arg(i + 1);
    }
    return links.join(u',').toLatin1();
}

QByteArray withAssets(const QByteArray& assets)
{
    return documentText(R"({"ty":0,"refId":"0"})", R"("assets":[)" + assets + "],");
}

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

} // namespace

/// What files may hold. Some are small and valid and ask for far too much: before there was a
/// budget, each of the costly ones kept the window busy for minutes.
class LottieReaderTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void badInputIsRefusedInOneSentence()
    {
        const char* const damaged = "The file is damaged or not JSON: ";
        const char* const family = R"({"nm":"L%1","ind":%1,"parent":%2})";
        const char* const simple = R"({"id":"%1","layers":[{"ty":0,"refId":"%2"}]})";
        const char* const twofold =
            R"({"id":"%1","layers":[{"ty":0,"refId":"%2"},{"ty":0,"refId":"%2"}]})";
        const QByteArray last = R"({"id":"1","layers":[{"ty":0,"refId":"0"}]})";
        const std::pair<QByteArray, const char*> cases[] = {
            {"{} {}", damaged},
            {documentText(layer(R"("ip":1e999)")), damaged},
            {R"({"layers":5})", "The file is not a Lottie animation: it holds no list of layers."},
            {documentText({}, R"("fr":0,)"),
             "The frame rate of 0 is not above 0 and at most 1000."},
            {documentText({}, R"("fr":1e6,)"), "The frame rate of 1e+06 is not above 0"},
            {documentText({}, R"("w":0,)"), "The size of 0 by 100 pixels is not between 1 and "},
            {documentText({}, R"("h":1e8,)"),
             "The size of 100 by 1e+08 pixels is not between 1 and "},
            {documentText({}, R"("ip":100,)"),
             "The animation has no frames: it runs from 100 to 100."},
            {documentText({}, R"("op":1e8,)"), "The animation is longer than 10000000 frames."},
            {documentText({}, R"("fr":"fast",)"), "“fr” at byte 6 of the file should be a number."},
            {documentText("7"), "“layers” at byte "},
            {documentText(layer(R"("ty":4,"shapes":{})")), "“shapes” at byte "},
            {documentText(shapeLayer(R"({"ty":"sh","ks":{"k":[3]}})")), "“k” at byte "},
            {documentText(layer(R"("ks":[])")), "“ks” at byte "},
            {documentText(layer(R"("ks":{"r":{"k":"x"}})")), "“k” at byte "},
            {documentText(layer(R"("ks":{"r":{"k":[{"t":0,"s":[0]},5]}})")), "“k” at byte "},
            {documentText(shapeLayer(R"({"ty":"gf","g":{"k":{"k":1}}})")), "“k” at byte "},
            {documentText(layer(R"("masksProperties":{})")), "“masksProperties” at byte "},
            {documentText(chain(family, 2) + R"(,{"ind":2,"parent":0})"),
             "The parents of layer “L0” form a circle."},
            {documentText(chain(family, 300)),
             "Layer “L0” has more than 100 parents above each other."},
            {withAssets(chain(simple, 1) + "," + last), "The precomposition “0” holds itself."},
            {withAssets(chain(simple, 70)), "Precompositions are nested more than 64 deep."},
            {withAssets(chain(twofold, 40)), "The animation has more than 50000 layers, with "},
            {documentText(QByteArray("{},").repeated(100'000) + "{}"),
             "The animation has more than 100000 layers and shapes."},
            {QByteArray(100 << 20, ' '), "The file has 100 MB; at most 64 MB can be opened."},
            {"[" + QByteArray("0,").repeated(4'000'000) + "0]",
             "The file holds more than 4000000 values."},
            {QByteArray("[").repeated(1'000'000),
             "The file nests lists and objects more than 256 deep."},
        };
        for (const auto& [text, sentence] : cases) {
            const QString error = read(text.toStdString()).error;
            QVERIFY2(error.startsWith(QString::fromUtf8(sentence)), qPrintable(error));
            QVERIFY2(error.endsWith(u'.') && !error.contains(u". "_qs), qPrintable(error));
        }
    }

    void oddInputIsReadAndDrawnAllTheSame()
    {
        const QByteArray hugeRect =
            R"({"ty":"rc","p":{"k":[1e300,-1e300]},"s":{"k":[1e308,1]}},{"ty":"fl"})";
        const auto gradient = [](const char* colors, const char* end, const char* highlight) {
            return documentText(shapeLayer(
                R"({"ty":"el","s":{"k":[90,90]}},{"ty":"gf","t":2,"e":{"k":)" + QByteArray(end)
                + R"(},"h":{"k":)" + highlight + R"(},"g":{)" + colors + "}}"));
        };
        const QByteArrayList texts = {
            documentText({}),
            "\xef\xbb\xbf" + documentText("{}"), // a byte order mark
            documentText(R"({"ty":3,"nm":null,"ks":null,"parent":null})"),
            documentText(R"({"ty":0,"refId":"gone"})"),
            documentText(layer(R"("ind":1)") + "," + layer(R"("ind":1,"parent":1)")),
            documentText(shapeLayer(R"({"ty":"sr","pt":{"k":1e9},"or":{"k":9}},{"ty":"fl"})")),
            documentText(shapeLayer(hugeRect, R"("s":{"k":[1e300,0]})")),
            documentText(shapeLayer(hugeRect + R"(,{"ty":"gs","w":{"k":1e300},"g":{"p":-1}})")),
            gradient(R"("p":-3,"k":{"k":[1e300,-7,0,1,0,0,0]})", "[1e300,0]", "-1e300"),
            gradient(R"("p":1,"k":{"k":[{"t":0,"s":[0,1,1,1,0]},{"t":9,"s":[]}]})", "[0,0]", "9"),
            documentText(layer(R"("ty":1,"sw":9,"sh":9,"masksProperties":[{"mode":"a","pt":{"k":)"
                               R"({"v":[[1e300,0],[0,9]],"i":[[1,1]]}},"o":{"k":-9}},7])")),
        };
        for (const QByteArray& text : texts) {
            const ReadResult result = read(text.toStdString());
            QVERIFY2(result, text.constData());
            QVERIFY(!frameOf(*result.document, 5).isNull());
        }
        const Layer tiny = onlyLayer(R"("ty":3,"ks":{"r":{"k":1e-400}})");
        QVERIFY(!tiny.span.isEmpty() && tiny.transform.rotation.value[0] == 0);
    }

    void everyValueKnowsItsPlace()
    {
        const Document document =
            documentOf(layer(R"( "nm" : "a\"}b" , "ty":3, "ks" : { "r" : {"a":1, "k": [ )"
                             R"({"t": 2.5 ,"s":[ 1 ], "h" : 1 }, {"t":10,"s":[2],"e":[3],)"
                             R"("o":{"x":0,"y":1},"i":{"x":1,"y":0}},{"t":20}]},"o":{"k":100}})"));
        const Layer& layer = document.main.layers.at(0);
        const auto& keys = layer.transform.rotation.keys;
        QCOMPARE(keys.size(), std::size_t(3));
        QCOMPARE(layer.name, u"a\"}b"_qs);

        const std::pair<Span, const char*> places[] = {
            {layer.transform.opacity.span, R"({"k":100})"},
            {layer.transform.opacity.valueSpan, "100"},
            {layer.transform.position.span, ""},
            {keys[0].span, R"({"t": 2.5 ,"s":[ 1 ], "h" : 1 })"},
            {keys[0].timeSpan, "2.5"},
            {keys[0].valueSpan, "[ 1 ]"},
            {keys[1].easeOutSpan, R"({"x":0,"y":1})"},
            {keys[1].easeInSpan, R"({"x":1,"y":0})"},
            {keys[1].endSpan, "[3]"},
            {keys[2].valueSpan, "[3]"}, // the last key's value stands in the key before it
            {{layer.span.end - 1, layer.span.end + 2}, "}]}"},
        };
        for (const auto& [span, text] : places) {
            QCOMPARE(document.bytes.substr(span.begin, span.end - span.begin), std::string(text));
        }
    }

    void colorsOfOldFilesCountTo255()
    {
        const auto red = [](const QByteArray& version, const QByteArray& color) {
            const Document document = documentOf(
                shapeLayer(R"({"ty":"fl","c":{"k":)" + color + "}}"),
                R"("v":")" + version + R"(",)");
            return std::get<FillShape>(document.main.layers.at(0).shapes.at(0).shape)
                .color.value[0];
        };
        QCOMPARE(red("4.1.8", "[255,0,0,255]"), 1.0);
        QCOMPARE(red("4.1.9", "[0.5,0,0,1]"), 0.5);
        QCOMPARE(red("4.10.0", "[0.5,0,0,1]"), 0.5);
        QCOMPARE(red("", "[0.5,0,0,1]"), 0.5);
    }

    void whatIsNotDrawnIsListedOnceALayer()
    {
        const std::pair<const char*, const char*> cases[] = {
            {R"("ty":13)", "camera"},
            {R"("ty":42)", "layer of kind 42"},
            {R"("ty":0,"refId":"c")", "composition “c”, which the file lacks"},
            {R"("ty":3,"masksProperties":[{"mode":"n"}])", ""},
            {R"("ty":3,"hasMask":false,"masksProperties":[{"mode":"a"}])", ""},
            {R"("ty":3,"masksProperties":[{"mode":"a","pt":{},"f":{"k":[0,1]},"x":{"k":2}},)"
             R"({"mode":"a","pt":{},"f":{"k":[0,0]}},{"mode":"l","pt":{}}],"tt":1,"ef":[{}])",
             "mask feather|mask expansion|mask of mode “l”|effect|track matte"},
            {R"("ty":3,"ks":{"r":{"k":0,"x":"time"},"o":{"k":0,"x":"1"}},"sy":[{}],"bm":1,"ddd":1)",
             "expression|layer style|blend mode|third dimension"},
            {R"("ty":4,"shapes":[{"ty":"rp"},{"ty":"gr","it":[{"ty":"zz"},{"ty":"rp"}]},{"ty":"new"}])",
             "repeater|zig-zag|shape of kind “new”"},
        };
        for (const auto& [members, expected] : cases) {
            const Document document = documentOf(layer(members));
            QVERIFY2(!document.main.layers.empty(), members);
            QStringList listed;
            for (const MissingFeature& missing : document.missing) {
                listed += missing.feature;
            }
            QCOMPARE(listed.join(u'|'), QString::fromUtf8(expected));
        }
    }

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

const ui::test::Registration<LottieReaderTest> kRegistration;

#include "tst_lottiereader.moc"
