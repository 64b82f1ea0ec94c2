#include "lottietexts.h"
#include "support/TestCase.h"
#include "support/pixels.h"

#include <QDir>

using namespace studio;
using namespace studio::test;
using ui::test::closeTo;
using ui::test::pixelAt;

class LottieDrawingTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aPixelShowsWhatItShould_data();
    void aPixelShowsWhatItShould();
    void layersShowFromInPointUpToOutPoint();
    void drawingIsClippedAndTheCanvasGivenBack();
    void everyFileOpensAndMovesByItsKeys_data();
    void everyFileOpensAndMovesByItsKeys();
};

namespace {

const QByteArray kRed = "[1,0,0,1]";
const QByteArray kBlue = "[0,0,1,1]";
const QByteArray kLeft = R"({"ty":"rc","p":{"k":[40,50]},"s":{"k":[40,40]},"r":{"k":0}})";
const QByteArray kRight = R"({"ty":"rc","p":{"k":[60,50]},"s":{"k":[40,40]},"r":{"k":0}})";

QByteArray fill(const QByteArray& color, const QByteArray& more = R"("o":{"k":100})")
{
    return R"({"ty":"fl","c":{"k":)" + color + "}," + more + "}";
}

QByteArray group(const QByteArray& items, const QByteArray& transform = {})
{
    return R"({"ty":"gr","it":[)" + items + R"(,{"ty":"tr")" + transform + "}]}";
}

QByteArray line(const QByteArray& vertices, const QByteArray& more)
{
    return R"({"ty":"sh","ks":{"k":{"c":false,"v":)" + vertices
           + R"(,"i":[],"o":[]}}},)"
             R"({"ty":"st","c":{"k":[0,0,0]},"o":{"k":100},"w":{"k":20})"
           + more + "}";
}

} // namespace

void LottieDrawingTest::aPixelShowsWhatItShould_data()
{
    QTest::addColumn<QByteArray>("layers");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QColor>("expected");

    const QColor white(Qt::white);
    const QColor red(255, 0, 0);
    const QColor blue(0, 0, 255);
    const QColor pale(255, 128, 128); // half red on white
    const auto row = [](const char* name, const QByteArray& layers, QPointF point, QColor color) {
        QTest::newRow(name) << layers << point << color;
    };
    const QByteArray square = filledRect("[50,50]", "[40,40]", kRed);

    row("a filled rectangle", shapeLayer(square), {50, 50}, red);
    row("outside of it", shapeLayer(square), {75, 50}, white);
    row("the first layer on top",
        shapeLayer(square) + "," + shapeLayer(filledRect("[50,50]", "[40,40]", kBlue)),
        {50, 50},
        red);
    row("the first shape on top",
        shapeLayer(square + "," + filledRect("[50,50]", "[60,60]", kBlue)),
        {50, 50},
        red);
    row("a fill takes the paths above it only",
        shapeLayer(kLeft + "," + fill(kRed) + "," + kRight),
        {75, 50},
        white);
    row("two fills take what is above each",
        shapeLayer(kLeft + "," + fill(kRed) + "," + kRight + "," + fill(kBlue)),
        {75, 50},
        blue);
    row("a fill after a group takes its paths",
        shapeLayer(group(kLeft, R"(,"p":{"k":[0,-30]})") + "," + fill(kRed)),
        {40, 5},
        red);
    row("a hidden shape is not there",
        shapeLayer(R"({"hd":true,)" + kLeft.mid(1) + "," + fill(kRed)),
        {40, 50},
        white);
    row("nonzero fills an overlap",
        shapeLayer(kLeft + "," + kRight + "," + fill(kRed)),
        {50, 50},
        red);
    row("even-odd leaves it",
        shapeLayer(kLeft + "," + kRight + "," + fill(kRed, R"("r":2,"o":{"k":100})")),
        {50, 50},
        white);
    row("fill opacity", shapeLayer(kLeft + "," + fill(kRed, R"("o":{"k":50})")), {40, 50}, pale);
    row("layer opacity puts overlapping draws together first",
        shapeLayer(square + "," + filledRect("[50,50]", "[60,60]", kBlue), R"("o":{"k":50})"),
        {50, 50},
        pale);
    row("group opacity too",
        shapeLayer(
            group(square + "," + filledRect("[50,50]", "[60,60]", kBlue), R"(,"o":{"k":50})")),
        {50, 50},
        pale);
    row("opacities multiply",
        shapeLayer(group(square, R"(,"o":{"k":50})"), R"("o":{"k":0})"),
        {50, 50},
        white);
    row("the middle of an ellipse",
        shapeLayer(R"({"ty":"el","p":{"k":[50,50]},"s":{"k":[80,40]}},)" + fill(kRed)),
        {85, 50},
        red);
    row("and its corner",
        shapeLayer(R"({"ty":"el","p":{"k":[50,50]},"s":{"k":[80,40]}},)" + fill(kRed)),
        {85, 35},
        white);
    row("the corner of a rounded rectangle",
        shapeLayer(R"({"ty":"rc","p":{"k":[50,50]},"s":{"k":[80,80]},"r":{"k":40}},)" + fill(kRed)),
        {15, 15},
        white);
    const QByteArray star =
        R"({"ty":"sr","sy":1,"p":{"k":[50,50]},"pt":{"k":4},"r":{"k":0},"or":{"k":40},"os":{"k":0},"ir":{"k":10},"is":{"k":0}},)";
    row("a star's point, straight up", shapeLayer(star + fill(kRed)), {50, 16}, red);
    row("and its notch", shapeLayer(star + fill(kRed)), {65, 35}, white);
    row("a stroke ends at its last point",
        shapeLayer(line("[[20,50],[60,50]]", {})),
        {65, 50},
        white);
    row("a square cap goes on",
        shapeLayer(line("[[20,50],[60,50]]", R"(,"lc":3)")),
        {65, 50},
        QColor(0, 0, 0));
    row("a gap of a dashed stroke",
        shapeLayer(
            line("[[0,50],[100,50]]", R"(,"d":[{"n":"d","v":{"k":10}},{"n":"g","v":{"k":20}}])")),
        {20, 50},
        white);
    row("a dash moved by its offset",
        shapeLayer(line(
            "[[0,50],[100,50]]",
            R"(,"d":[{"n":"d","v":{"k":10}},{"n":"g","v":{"k":20}},{"n":"o","v":{"k":-15}}])")),
        {20, 50},
        QColor(0, 0, 0));
    row("a trimmed line stops",
        shapeLayer(
            line("[[0,50],[100,50]]", {}) + R"(,{"ty":"tm","s":{"k":0},"e":{"k":50},"o":{"k":0}})"),
        {60, 50},
        white);
    row("an offset carries it past the end",
        shapeLayer(
            line("[[0,50],[100,50]]", {})
            + R"(,{"ty":"tm","s":{"k":0},"e":{"k":50},"o":{"k":270}})"),
        {10, 50},
        QColor(0, 0, 0));
    row("trimming reaches into groups",
        shapeLayer(
            group(line("[[0,50],[100,50]]", {}))
            + R"(,{"ty":"tm","s":{"k":0},"e":{"k":50},"o":{"k":0}})"),
        {60, 50},
        white);
    row("paths trimmed as one",
        shapeLayer(
            R"({"ty":"sh","ks":{"k":{"v":[[0,20],[100,20]],"i":[],"o":[]}}},)"
            + line("[[0,50],[100,50]]", {})
            + R"(,{"ty":"tm","m":2,"s":{"k":50},"e":{"k":100},"o":{"k":0}})"),
        {50, 20},
        white);
    row("merged by subtraction",
        shapeLayer(kLeft + "," + kRight + R"(,{"ty":"mm","mm":3},)" + fill(kRed)),
        {50, 50},
        white);
    row("merged by intersection",
        shapeLayer(kLeft + "," + kRight + R"(,{"ty":"mm","mm":4},)" + fill(kRed)),
        {25, 50},
        white);
    row("a solid",
        layer(R"("ty":1,"sw":50,"sh":50,"sc":"#0000ff","ks":{"p":{"k":[50,50]}})"),
        {75, 75},
        blue);
    row("a hidden layer",
        layer(R"("hd":true,"ty":1,"sw":90,"sh":90,"sc":"#0000ff")"),
        {5, 5},
        white);
    row("a matte's source",
        layer(R"("td":1,"ty":1,"sw":90,"sh":90,"sc":"#0000ff")"),
        {5, 5},
        white);
    row("a precomposition",
        layer(R"("ty":0,"refId":"c","w":60,"h":60,"ks":{"p":{"k":[20,0]}})"),
        {70, 30},
        red);
    row("is clipped to its size", layer(R"("ty":0,"refId":"c","w":60,"h":60)"), {65, 30}, white);
    row("and runs in its own time",
        layer(R"("ty":0,"refId":"c","w":60,"h":60,"st":10)"),
        {30, 30},
        white);
    row("and fades as one",
        layer(R"("ty":0,"refId":"c","w":60,"h":60,"ks":{"o":{"k":50}})"),
        {30, 30},
        pale);
}

void LottieDrawingTest::aPixelShowsWhatItShould()
{
    QFETCH(QByteArray, layers);
    QFETCH(QPointF, point);
    QFETCH(QColor, expected);
    const QByteArray solid = R"("sw":100,"sh":100,"ip":0,"op":100,"ty":1)";
    const Document document = readText(documentText(
        layers,
        R"("assets":[{"id":"c","layers":[{"sc":"#ff0000",)" + solid + R"(},{"sc":"#00ff00",)"
            + solid + "}]}],"));
    QVERIFY(!document.main.layers.empty());

    const QColor color = pixelAt(frameOf(document, 5), point);

    QVERIFY2(closeTo(color, expected), qPrintable(color.name()));
}

void LottieDrawingTest::layersShowFromInPointUpToOutPoint()
{
    const Document document =
        readText(documentText(R"({"ty":1,"ip":10,"op":20,"sw":100,"sh":100,"sc":"#ff0000"})"));
    const auto isRed = [&](double frame) {
        return closeTo(pixelAt(frameOf(document, frame), {50, 50}), QColor(255, 0, 0));
    };

    QVERIFY(!isRed(9.99));
    QVERIFY(isRed(10));
    QVERIFY(isRed(19.99));
    QVERIFY(!isRed(20));
}

void LottieDrawingTest::drawingIsClippedAndTheCanvasGivenBack()
{
    const Document document = readText(
        documentText(layer(R"("ty":1,"sw":900,"sh":900,"sc":"#ff0000","ks":{"r":{"k":10}})")));
    QImage image(150, 150, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    drawInto(image, document, 0);

    QVERIFY(closeTo(pixelAt(image, {50, 50}), QColor(255, 0, 0)));
    QVERIFY(closeTo(pixelAt(image, {101, 50}), QColor(Qt::white)));
}

void LottieDrawingTest::everyFileOpensAndMovesByItsKeys_data()
{
    QTest::addColumn<QString>("path");

    // Besides the samples, whatever folder of real files there is.
    for (const QString& name :
         {QStringLiteral(":/samples"), qEnvironmentVariable("MORRANT_LOTTIE_DIR")})
    {
        const QDir folder(name);
        for (const QString& file : folder.entryList({QStringLiteral("*.json")})) {
            if (!name.isEmpty()) {
                QTest::newRow(qPrintable(file)) << folder.filePath(file);
            }
        }
    }
}

void LottieDrawingTest::everyFileOpensAndMovesByItsKeys()
{
    QFETCH(QString, path);

    const ReadResult result = readFile(path);

    QVERIFY2(result, qPrintable(result.error));
    const Document& document = *result.document;
    const double length = document.outPoint - document.inPoint;
    QSet<QByteArray> pictures;
    for (const double share : {0.2, 0.4, 0.6, 0.8}) {
        const QImage image = frameOf(document, document.inPoint + share * length);
        pictures +=
            QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    }
    // Some files move by expressions alone.
    const bool hasExpressions = std::any_of(
        document.missing.begin(), document.missing.end(), [](const MissingFeature& missing) {
            return missing.feature == u"expression";
        });
    QVERIFY(pictures.size() > 1 || hasExpressions);
}

const ui::test::Registration<LottieDrawingTest> kRegistration;

#include "tst_lottiedrawing.moc"
