// SPDX-License-Identifier: Apache-2.0
#include "editing/layerorder.h"
#include "lottie/gradients.h"
#include "lottie/renderer.h"
#include "lottietexts.h"
#include "support/TestCase.h"

using namespace studio;
using namespace studio::test;
using namespace ui::test;

namespace {

QByteArray rect(const char* center, const char* size)
{
    return QByteArray(R"({"ty":"rc","p":{"k":[)") + center + R"(]},"s":{"k":[)" + size + "]}}";
}

QByteArray fill(const char* color, const char* more = "")
{
    return QByteArray(R"({"ty":"fl","c":{"k":[)") + color + "]}" + more + "}";
}

QByteArray path(const char* from, const char* to)
{
    return QByteArray(R"({"ty":"sh","ks":{"k":{"v":[[)") + from + "],[" + to
           + R"(]],"i":[],"o":[]}}})";
}

// A stroke of 20 pixels.
QByteArray line(const char* from, const char* to, const char* more = "")
{
    return path(from, to) + R"(,{"ty":"st","c":{"k":[0,0,0]},"w":{"k":20})" + more + "}";
}

QByteArray group(const QByteArrayList& items, const QByteArray& transform = {})
{
    return R"({"ty":"gr","it":[)" + items.join(',') + R"(,{"ty":"tr")" + transform + "}]}";
}

QByteArray shapes(const QByteArrayList& items, const QByteArray& transform = {})
{
    return shapeLayer(items.join(','), transform);
}

// From the left edge to the right one, or around the middle.
QByteArray gradient(const QByteArray& kind, const QByteArray& colors, const QByteArray& more = {})
{
    return R"({"ty":")" + kind + R"(","s":{"k":[0,50]},"e":{"k":[100,50]},"g":{)" + colors + "}"
           + more + "}";
}

QByteArray radial(const QByteArray& colors, const QByteArray& more = {})
{
    return R"({"s":{"k":[50,50]},"t":2,)" + gradient("gf", colors, more).mid(1);
}

// A layer of one colour, and a mask from one side to the other.
QByteArray blueLayer(const QByteArray& more)
{
    return layer(R"("ty":1,"sw":100,"sh":100,"sc":"#0000ff",)" + more);
}

QByteArray mask(
    const QByteArray& mode,
    const QByteArray& left,
    const QByteArray& right,
    const QByteArray& more = {})
{
    return R"({"mode":")" + mode + R"(","pt":{"k":{"c":true,"v":[[)" + left + ",0],[" + right
           + ",0],[" + right + ",100],[" + left + ",100]]}}" + more + "}";
}

QByteArray masked(const QByteArrayList& masks, const QByteArray& more = {})
{
    return blueLayer(more + R"("masksProperties":[)" + masks.join(',') + "]");
}

char letterOf(const QColor& color)
{
    constexpr std::pair<char, QColor> kLetters[] = {
        {'.', QColor(255, 255, 255)},
        {'K', QColor(0, 0, 0)},
        {'R', QColor(255, 0, 0)},
        {'B', QColor(0, 0, 255)},
        {'r', QColor(255, 128, 128)}, // by half
        {'b', QColor(128, 128, 255)},
    };
    for (const auto& [letter, known] : kLetters) {
        if (closeTo(color, known)) {
            return letter;
        }
    }
    return '?';
}

} // namespace

class LottieDrawingTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aLineOfPixelsShowsWhatItShould();
    void aLayerIsFoundWhereItCanBeSeen();

    void coloursAndOpacitiesAlongAGradientComeTogether()
    {
        using Stops = std::vector<GradientStop>;
        const auto grey = [](float offset, float value, float opacity) {
            return GradientStop{offset, {value, value, value, opacity}};
        };
        struct Case
        {
            GradientStops numbers;
            int colors = 0;
            Stops expected;
        };
        const Case cases[] = {
            {{0, 0, 0, 0, 1, 1, 1, 1}, 2, {grey(0, 0, 1), grey(1, 1, 1)}},
            {{0, 0, 0, 0, 1, 1, 1, 1, 0.5, 0.5},
             2,
             {grey(0, 0, .5f), grey(.5f, .5f, .5f), grey(1, 1, .5f)}},
            {{0.5, 1, 1, 1, 0, 1, 0.5, 1, 0.5, 0, 1, 0},
             1, // an edge of opacity
             {grey(0, 1, 1), grey(.5f, 1, 1), grey(.5f, 1, 0), grey(1, 1, 0)}},
            {{0.5, 0, 0, 0, 0.2, 1, 1, 1}, -1, {grey(.5f, 0, 1), grey(.5f, 1, 1)}}, // goes back
            {{9, 9, -9, 9, 0, 0, 0}, 99, {{1, {1, 0, 1, 1}}}}};
        for (const auto& [numbers, colors, expected] : cases) {
            QVERIFY(stopsOf(numbers, colors) == expected);
        }
    }

    void everyFileOpensAndMovesByItsKeys()
    {
        // Besides the samples, whatever folder of real files there is.
        const QString samples = u":/samples"_qs;
        for (const QString& folder : {samples, qEnvironmentVariable("MORRANT_LOTTIE_DIR", samples)})
        {
            const QFileInfoList files = QDir(folder).entryInfoList({u"*.json"_qs});
            QVERIFY(!files.isEmpty());
            for (const QFileInfo& file : files) {
                const ReadResult result = readFile(file.filePath());
                QVERIFY2(result, qPrintable(file.fileName() + result.error));
                const Document& document = *result.document;
                QSet<QByteArray> pictures;
                for (const double share : {0.2, 0.4, 0.6, 0.8}) {
                    const QImage image =
                        frameOf(document, std::lerp(document.inPoint, document.outPoint, share));
                    pictures += QByteArray(
                        reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
                }
                // Some real files move by expressions alone.
                const bool hasExpressions = document.bytes.find("\"x\":\"") != std::string::npos;
                QVERIFY2(pictures.size() > 1 || hasExpressions, qPrintable(file.fileName()));
                QVERIFY2(
                    folder != samples || document.missing.empty(), qPrintable(file.fileName()));
            }
        }
    }
};

// Outside the class: moc loses its way in texts like these.
void LottieDrawingTest::aLineOfPixelsShowsWhatItShould()
{
    const QByteArray ground = R"("sw":100,"sh":100,"ip":0,"op":100,"ty":1})";
    const QByteArray solids = R"({"sc":"#ff0000",)" + ground + R"(,{"sc":"#00ff00",)" + ground;
    const QByteArray assets = R"("assets":[{"id":"c","layers":[)" + solids + "]}],";
    // The pixels are ten apart, from the fifth on; the last one lies beside the document.
    const auto row =
        [&](const char* name, const QByteArray& layers, const char* expected, double y = 50) {
            const QImage image = frameOf(documentOf(layers, assets), 5);
            QByteArray seen;
            for (double x = 5; x < 110; x += 10) {
                seen += letterOf(pixelAt(image, {x, y}));
            }
            QVERIFY2(seen == expected, QByteArray(name) + ": " + seen);
        };
    const QByteArray left = rect("40,50", "40,40");
    const QByteArray right = rect("60,50", "40,40");
    const QByteArray red = fill("1,0,0");
    const QByteArray blue = fill("0,0,1");
    const QByteArray small = group({rect("50,50", "40,40"), red});
    const QByteArray big = group({rect("50,50", "60,60"), blue});
    const QByteArray whole = line("0,50", "100,50");

    row("a fill takes the paths above it only", shapes({left, red, right, blue}), "..RRRRBB...");
    row("the first layer on top", shapes({small}) + "," + shapes({big}), "..BRRRRB...");
    const QByteArray moved = group({group({left})}, R"(,"p":{"k":[30,0]})");
    row("a fill takes groups' paths", shapes({moved, red}), ".....RRRR..");
    const QByteArray hidden = R"({"hd":true,)" + left.mid(1);
    row("a hidden shape is not there", shapes({hidden, right, red}), "....RRRR...");
    row("nonzero fills an overlap", shapes({left, right, red}), "..RRRRRR...");
    row("even-odd leaves it", shapes({left, right, fill("1,0,0", R"(,"r":2)")}), "..RR..RR...");
    row("a layer fades as one", shapes({small, big}, R"("o":{"k":50})"), "..brrrrb...");
    row("a group too", shapes({group({small, big}, R"(,"o":{"k":50})")}), "..brrrrb...");
    const QByteArray faint = group({left, fill("1,0,0", R"(,"o":{"k":80})")}, R"(,"o":{"k":80})");
    row("opacities multiply", shapes({faint}, R"("o":{"k":78.125})"), "..rrrr.....");
    const QByteArray ellipse = R"({"ty":"el","p":{"k":[50,50]},"s":{"k":[80,40]}})";
    row("an ellipse", shapes({ellipse, red}), "..RRRRRR...", 35);
    const QByteArray rounded = R"({"r":{"k":40},)" + rect("50,50", "80,80").mid(1);
    row("a rounded rectangle", shapes({rounded, red}), "...RRRR....", 15);
    const QByteArray star =
        R"({"ty":"sr","p":{"k":[50,50]},"pt":{"k":3},"or":{"k":40},"ir":{"k":10}})";
    row("a star points straight up", shapes({star, red}), "....RR.....", 38);
    row("a stroke ends at its last point", shapes({line("20,50", "60,50")}), "..KKKK.....");
    row("a square cap goes on", shapes({line("20,50", "60,50", R"(,"lc":3)")}), ".KKKKKK....");
    const char* const dashes =
        R"(,"d":[{"n":"d","v":{"k":10}},{"n":"g","v":{"k":20}},{"n":"o","v":{"k":-18}}])";
    row("dashes moved by their offset", shapes({line("0,50", "100,50", dashes)}), "..K..K..K..");
    const QByteArray half = R"({"ty":"tm","e":{"k":50}})";
    row("trimming reaches into groups", shapes({group({whole}), half}), "KKKKK......");
    const QByteArray around = R"({"ty":"tm","e":{"k":50},"o":{"k":288}})";
    row("an offset carries it past the end", shapes({whole, around}), "KKK.....KK.");
    const QByteArray asOne = R"({"ty":"tm","m":2,"e":{"k":75}})";
    row("two paths trimmed as one", shapes({line("0,9", "100,9"), whole, asOne}), "KKKKK......");
    row("subtraction", shapes({left, right, R"({"ty":"mm","mm":3})", red}), "..RR.......");
    row("intersection", shapes({left, right, R"({"ty":"mm","mm":4})", red}), "....RR.....");
    const QByteArray solid = R"("ty":1,"sw":50,"sh":50,"sc":"#0000ff",)";
    row("drawing is clipped", layer(R"("ty":1,"sw":900,"sh":99,"sc":"#ff0000")"), "RRRRRRRRRR.");
    row("from the in point on", layer(solid + R"("ip":5)"), "BBBBB......", 5);
    row("up to the out point", layer(solid + R"("op":5)"), "...........", 5);
    row("a hidden layer", layer(solid + R"("hd":true)"), "...........", 5);
    row("a matte's source", layer(solid + R"("td":1)"), "...........", 5);
    const QByteArray inner = R"("ty":0,"refId":"c","w":60,"h":60,)";
    row("a precomposition has a size", layer(inner + R"("ks":{"p":{"k":[20,0]}})"), "..RRRRRR...");
    row("and a time of its own", layer(inner + R"("st":10)"), "...........");
    row("and fades as one", layer(inner + R"("ks":{"o":{"k":50}})"), "rrrrrr.....");

    const auto redToBlue = [](const QByteArray& at) {
        return R"("p":4,"k":{"k":[0,1,0,0,)" + at + ",1,0,0," + at + ",0,0,1,1,0,0,1]}";
    };
    const QByteArray plane = rect("50,50", "100,100");
    const QByteArray linear = gradient("gf", redToBlue("0.4"));
    row("a gradient", shapes({plane, linear}), "RRRRBBBBBB.");
    const QByteArray fading = R"("p":1,"k":{"k":[0,1,0,0,0,1,0.5,1,0.5,0.5,1,0.5]})";
    row("with opacities", shapes({plane, gradient("gf", fading)}), "RRRRRrrrrr.");
    const QByteArray moving = R"("p":2,"k":{"k":[{"t":0,"s":[0,1,0,0,0,0,0,1]},)"
                              R"({"t":10,"s":[1,1,0,0,1,0,0,1]}]})";
    row("whose stops move", shapes({plane, gradient("gf", moving)}), "RRRRRBBBBB.");
    const QByteArray thick = gradient("gs", redToBlue("0.4"), R"(,"w":{"k":20})");
    row("on a stroke", shapes({path("10,50", "90,50"), thick}), ".RRRBBBBB..");
    const QByteArray third = redToBlue("0.35");
    row("around a point", shapes({plane, radial(third)}), "BBBRRRRBBB.");
    const QByteArray forward = R"(,"h":{"k":50})";
    row("with a highlight", shapes({plane, radial(third, forward)}), "BBBBBRRRBB.");
    const QByteArray back = R"(,"h":{"k":50},"a":{"k":180})";
    row("turned", shapes({plane, radial(third, back)}), "BBRRRBBBBB.");

    const QByteArray source = shapes({left, fill("1,1,1"), right, fill("0,0,0")}).chopped(1);
    const QByteArray above = source + R"(,"td":1,"ind":7},)";
    row("a matte", above + blueLayer(R"("tt":1)"), "..BBBBBB...");
    row("inverted", above + blueLayer(R"("tt":2)"), "BB......BB.");
    row("its brightness", above + blueLayer(R"("tt":3)"), "..BBBB.....");
    row("inverted", above + blueLayer(R"("tt":4)"), "BB....BBBB.");
    const QByteArray named = blueLayer(R"("tt":1,"tp":7)") + "," + source;
    row("a hidden matte by name", named + R"(,"td":1,"ind":7,"hd":1})", "..BBBBBB...");
    const QByteArray faded = shapes({left, red}, R"("o":{"k":50})").chopped(1) + R"(,"td":1},)";
    row("a faded one", faded + blueLayer(R"("tt":1)"), "..bbbb.....");
    const QByteArray twice = R"({"ty":1,"sw":40,"sh":99,"op":99,"td":1},)" + source;
    row("a matte's own", twice + R"(,"tt":1,"td":1},)" + blueLayer(R"("tt":1)"), "..BB.......");
    row("one that is over",
        above.mid(0, 1) + R"("op":4,)" + above.mid(1) + blueLayer(R"("tt":1)"),
        "...........");
    row("a circle of them", blueLayer(R"("ind":1,"tt":1,"tp":1)"), "BBBBBBBBBB.");

    const QByteArray most = mask("a", "20", "80");
    row("a mask", masked({most}), "..BBBBBB...");
    row("inverted", masked({mask("a", "20", "80", R"(,"inv":true)")}), "BB......BB.");
    row("subtracted", masked({mask("s", "20", "80")}), "BB......BB.");
    row("from another", masked({most, mask("s", "40", "60")}), "..BB..BB...");
    row("intersected", masked({most, mask("i", "40", "99")}), "....BBBB...");
    row("alone a difference is itself", masked({mask("f", "20", "80")}), "..BBBBBB...");
    row("added", masked({mask("a", "20", "40"), mask("a", "60", "80")}), "..BB..BB...");
    const QByteArray half50 = R"(,"o":{"k":50})";
    row("a faint one", masked({mask("a", "20", "80", half50)}), "..bbbbbb...");
    row("subtracted by half", masked({most, mask("s", "40", "60", half50)}), "..BBbbBB...");
    row("intersected by half", masked({most, mask("i", "40", "60", half50)}), "....bb.....");
}

void LottieDrawingTest::aLayerIsFoundWhereItCanBeSeen()
{
    Document document = documentOf(
        blueLayer(R"("hd":true)") + "," + blueLayer(R"("morrantLocked":true)") + ","
        + shapes({rect("40,50", "40,40"), fill("1,0,0")}) + ","
        + masked({mask("a", "50", "80")}, R"("tt":1,"tp":9,)") + "," + layer(R"("ty":3)") + ","
        + blueLayer(R"("ind":9,"td":1)") + ","
        + shapes({group({line("0,5", "20,5")}, R"(,"r":{"k":90},"p":{"k":[100,0]})")}));
    constexpr std::tuple<float, float, int> kPlaces[] = {
        {30, 50, 2},
        {61, 50, 2},
        {70, 50, 3},
        {55, 80, 3},
        {90, 50, -1},
        {95, 10, 6},
        {105, 50, -1}};
    const auto& layers = document.main.layers;
    for (const auto& [x, y, expected] : kPlaces) {
        const Layer* found = layerAt(document, 5, {x, y}, 1);
        QCOMPARE(found ? static_cast<int>(found - layers.data()) : -1, expected);
    }
    QCOMPARE(boundsOf(document, layers[2], 5), SkRect::MakeLTRB(20, 30, 60, 70));
    QCOMPARE(boundsOf(document, layers[3], 5), SkRect::MakeWH(100, 100));
    QCOMPARE(boundsOf(document, layers[6], 5).round(), SkIRect::MakeLTRB(85, -10, 105, 30));
    QVERIFY(boundsOf(document, layers[4], 5).isEmpty());

    reorder(document.main.layers, {5, 3, 6, 4, 0, 1, 2}); // a matte that is named goes along
    QCOMPARE(document.main.layers[1].matteLayer, 0);
}

const ui::test::Registration<LottieDrawingTest> kRegistration;

#include "tst_lottiedrawing.moc"
