// SPDX-License-Identifier: Apache-2.0
#include "lottietexts.h"
#include "support/TestCase.h"
#include "support/pixels.h"

#include <QDir>

#include <cmath>

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

// A stroke of 20 pixels.
QByteArray line(const char* from, const char* to, const char* more = "")
{
    return QByteArray(R"({"ty":"sh","ks":{"k":{"v":[[)") + from + "],[" + to
           + R"(]],"i":[],"o":[]}}},{"ty":"st","c":{"k":[0,0,0]},"w":{"k":20})" + more + "}";
}

QByteArray group(const QByteArrayList& items, const QByteArray& transform = {})
{
    return R"({"ty":"gr","it":[)" + items.join(',') + R"(,{"ty":"tr")" + transform + "}]}";
}

QByteArray shapes(const QByteArrayList& items, const QByteArray& transform = {})
{
    return shapeLayer(items.join(','), transform);
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
}

const ui::test::Registration<LottieDrawingTest> kRegistration;

#include "tst_lottiedrawing.moc"
