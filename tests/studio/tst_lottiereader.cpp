#include "lottietexts.h"
#include "support/TestCase.h"

#include <QDir>
#include <QTemporaryDir>

using namespace studio;
using namespace studio::test;

class LottieReaderTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void badInputIsRefusedInOneSentence_data();
    void badInputIsRefusedInOneSentence();
    void aFileCutOffAnywhereIsRefused();
    void oversizedInputIsRefused_data();
    void oversizedInputIsRefused();
    void aFileThatCannotBeOpenedIsNamed();
    void oddInputIsReadAllTheSame_data();
    void oddInputIsReadAllTheSame();
    void everyValueKnowsItsPlace();
    void colorsOfOldFilesCountTo255();
    void whatIsNotDrawnIsListedOnceALayer_data();
    void whatIsNotDrawnIsListedOnceALayer();
    void samplesNeedNothingThatIsMissing();
};

namespace {

QByteArray repeated(const char* text, int count)
{
    return QByteArray(text).repeated(count);
}

QByteArray null(const char* members)
{
    return layer(QByteArray(R"("ty":3,)") + members);
}

// Compositions c0 ... each of which uses the next one `uses` times; the last one holds nothing.
std::string chainOfCompositions(int count, int uses)
{
    QByteArray assets;
    for (int i = 0; i < count; ++i) {
        const QByteArray use = R"({"ty":0,"refId":"c)" + QByteArray::number(i + 1) + R"("})";
        QByteArrayList layers(i + 1 < count ? uses : 0, use);
        assets +=
            R"({"id":"c)" + QByteArray::number(i) + R"(","layers":[)" + layers.join(',') + "]},";
    }
    assets.chop(1);
    return documentText(R"({"ty":0,"refId":"c0"})", R"("assets":[)" + assets + "],");
}

} // namespace

void LottieReaderTest::badInputIsRefusedInOneSentence_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("sentence");

    const auto row = [](const char* name, const QByteArray& text, const char16_t* sentence) {
        QTest::newRow(name) << text << QString::fromUtf16(sentence);
    };
    const auto header = [](const char* members) {
        return QByteArray("{\"layers\":[],") + members + "}";
    };
    const auto document = [](const QByteArray& layers, const QByteArray& extra = {}) {
        return QByteArray::fromStdString(documentText(layers, extra));
    };
    const char16_t* const damaged =
        u"The file is damaged or not JSON: it cannot be read on from byte %1.";
    const char16_t* const foreign =
        u"The file is not a Lottie animation: it holds no list of layers.";
    const char16_t* const typed = u"“%1” at byte %2 of the file should be ";

    row("nothing", {}, damaged);
    row("not JSON", "GIF89a", damaged);
    row("text after the end", "{} {}", damaged);
    row("a huge number", document(null(R"("ip":1e999)")), damaged);
    row("JSON of something else", R"({"name":"x"})", foreign);
    row("a list", "[1]", foreign);
    row("layers of a wrong type", R"({"layers":5})", foreign);
    row("no rate",
        header(R"("op":9,"w":9,"h":9)"),
        u"The frame rate of 0 is not above 0 and at most 1000.");
    row("a negative rate",
        header(R"("fr":-5,"op":9,"w":9,"h":9)"),
        u"The frame rate of -5 is not above 0");
    row("a huge rate", header(R"("fr":1e6,"op":9,"w":9,"h":9)"), u"The frame rate of 1e+06 is not");
    row("no size",
        header(R"("fr":9,"op":9,"w":0,"h":9)"),
        u"The size of 0 by 9 pixels is not between");
    row("a huge size",
        header(R"("fr":9,"op":9,"w":9,"h":1e8)"),
        u"The size of 9 by 1e+08 pixels is not");
    row("no frames",
        header(R"("fr":9,"ip":9,"op":9,"w":9,"h":9)"),
        u"The animation has no frames: it runs from 9 to 9.");
    row("too many frames",
        header(R"("fr":9,"op":1e8,"w":9,"h":9)"),
        u"The animation is longer than 10000000 frames.");
    row("a rate of a wrong type", header(R"("fr":"fast")"), typed);
    row("a layer that is a number", document("7"), typed);
    row("shapes of a wrong type", document(layer(R"("ty":4,"shapes":{})")), typed);
    row("a transform of a wrong type", document(null(R"("ks":[])")), typed);
    row("a property of a wrong type", document(null(R"("ks":{"r":"x"})")), typed);
    row("a value of a wrong type", document(null(R"("ks":{"r":{"k":"x"}})")), typed);
    row("a key of a wrong type", document(null(R"("ks":{"r":{"k":[{"t":0,"s":[0]},5]}})")), typed);
    row("a time of a wrong type", document(null(R"("ks":{"r":{"k":[{"t":[],"s":[0]}]}})")), typed);
    row("a handle of a wrong type",
        document(null(R"("ks":{"r":{"k":[{"t":0,"o":{"x":"y"}}]}})")),
        typed);
    row("an outline of a wrong type", document(shapeLayer(R"({"ty":"sh","ks":{"k":[3]}})")), typed);
    row("its own parent",
        document(null(R"("nm":"A","ind":1,"parent":1)")),
        u"The parents of layer “A” form a circle.");
    row("parents in a circle",
        document(
            null(R"("nm":"A","ind":1,"parent":2)") + "," + null(R"("nm":"B","ind":2,"parent":1)")),
        u"The parents of layer “A” form a circle.");
    row("a composition in itself",
        document({}, R"("assets":[{"id":"a","layers":[{"ty":0,"refId":"a"}]}],)"),
        u"The precomposition “a” holds itself.");
    row("compositions in each other",
        document(
            {},
            R"("assets":[{"id":"a","layers":[{"ty":0,"refId":"b"}]},)"
            R"({"id":"b","layers":[{"ty":0,"refId":"a"}]}],)"),
        u"The precomposition “a” holds itself.");
    row("compositions too deep",
        QByteArray::fromStdString(chainOfCompositions(70, 1)),
        u"Precompositions are nested more than 64 deep.");
    row("compositions that multiply",
        QByteArray::fromStdString(chainOfCompositions(40, 2)),
        u"The animation has more than 50000 layers, with precompositions counted at each use.");
}

void LottieReaderTest::badInputIsRefusedInOneSentence()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, sentence);

    const ReadResult result = read(text.toStdString());

    QVERIFY(!result);
    QString pattern = QRegularExpression::escape(sentence);
    pattern.replace(QRegularExpression(QStringLiteral("\\\\%\\d")), QStringLiteral("\\w+"));
    QVERIFY2(
        QRegularExpression(u'^' + pattern).match(result.error).hasMatch(),
        qPrintable(result.error));
    QVERIFY(result.error.endsWith(u'.'));
    QCOMPARE(result.error.count(QStringLiteral(". ")), 0);
}

void LottieReaderTest::aFileCutOffAnywhereIsRefused()
{
    const std::string whole = documentText(
        shapeLayer(filledRect("[50,50]", "[9,9]", "[1,0,0]")), R"("nm":"Gr\u00fc\u00dfe",)");
    QVERIFY(read(whole));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        QVERIFY2(!read(whole.substr(0, length)), qPrintable(QString::number(length)));
    }
}

void LottieReaderTest::oversizedInputIsRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("sentence");

    QTest::newRow("bytes") << QByteArray(100 << 20, ' ')
                           << u"The file has 100 MB; at most 64 MB can be opened."_qs;
    QTest::newRow("values") << "[" + repeated("0,", 4'000'000) + "0]"
                            << u"The file holds more than 4000000 values."_qs;
    QTest::newRow("nesting") << repeated("[", 1'000'000)
                             << u"The file nests lists and objects more than 256 deep."_qs;
    QTest::newRow("layers") << QByteArray::fromStdString(
        documentText(repeated("{},", 100'000) + "{}"))
                            << u"The animation has more than 100000 layers and shapes."_qs;
    QByteArrayList family;
    for (int i = 0; i < 300; ++i) {
        family += R"({"nm":"L","ind":)" + QByteArray::number(i) + R"(,"parent":)"
                  + QByteArray::number(i + 1) + "}";
    }
    QTest::newRow("parents") << QByteArray::fromStdString(documentText(family.join(',')))
                             << u"Layer “L” has more than 100 parents above each other."_qs;
}

void LottieReaderTest::oversizedInputIsRefused()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, sentence);

    QCOMPARE(read(text.toStdString()).error, sentence);
}

void LottieReaderTest::aFileThatCannotBeOpenedIsNamed()
{
    const QTemporaryDir folder;
    const QString missing = folder.filePath(QStringLiteral("none.json"));

    QVERIFY(readFile(missing).error.startsWith(u"“%1” cannot be opened: "_qs.arg(missing)));
    QVERIFY(!readFile(folder.path()));
}

void LottieReaderTest::oddInputIsReadAllTheSame_data()
{
    QTest::addColumn<QByteArray>("text");

    const auto row = [](const char* name, const QByteArray& layers, const QByteArray& extra = {}) {
        QTest::newRow(name) << QByteArray::fromStdString(documentText(layers, extra));
    };
    row("no layers at all", {});
    row("an empty layer", "{}");
    row("null for absent", R"({"ty":3,"nm":null,"ks":null,"parent":null})");
    row("a million frames", layer(R"("ty":3,"op":1000000)"), R"("markers":[{"tm":0}],)");
    row("an asset that is missing", R"({"ty":0,"refId":"gone"})");
    row("two layers with one index", null(R"("ind":1)") + "," + null(R"("ind":1,"parent":1)"));
    row("an unknown kind", R"({"ty":99})");
    row("a star of a billion points",
        shapeLayer(R"({"ty":"sr","pt":{"k":1e9},"or":{"k":9}},{"ty":"fl"})"));
    row("a dash of no length",
        shapeLayer(
            R"({"ty":"el","s":{"k":[9,9]}},{"ty":"st","w":{"k":1},"d":[{"n":"d","v":{"k":0}}]})"));
    row("huge numbers",
        shapeLayer(filledRect("[1e300,-1e300]", "[1e308,1]", "[9,-9]"), R"("s":{"k":[1e300,0]})"));
    row("a layer that ends before it begins", layer(R"("ty":4,"ip":90,"op":10)"));
    QTest::newRow("a byte order mark")
        << "\xef\xbb\xbf" + QByteArray::fromStdString(documentText({}));
}

void LottieReaderTest::oddInputIsReadAllTheSame()
{
    QFETCH(QByteArray, text);

    const ReadResult result = read(text.toStdString());

    QVERIFY2(result, qPrintable(result.error));
    QVERIFY(!frameOf(*result.document, 5).isNull());
}

void LottieReaderTest::everyValueKnowsItsPlace()
{
    const Document document = readText(
        documentText(layer(R"( "nm" : "a\"}b" , "ty":3, "ks" : { "r" : {"a":1, "k": [ )"
                           R"({"t": 2.5 ,"s":[ 1 ], "h" : 1 }, {"t":10,"s":[2],"e":[3],)"
                           R"("o":{"x":0,"y":1},"i":{"x":1,"y":0}},{"t":20}]},"o":{"k":100}})")));
    QCOMPARE(document.main.layers.size(), std::size_t(1));
    const Layer& layer = document.main.layers[0];
    const auto& keys = layer.transform.rotation.keys;
    QCOMPARE(keys.size(), std::size_t(3));
    const auto at = [&](Span span) {
        return document.bytes.substr(span.begin, span.end - span.begin);
    };

    QCOMPARE(layer.name, QStringLiteral("a\"}b"));
    QCOMPARE(at(layer.span).back(), '}');
    QCOMPARE(at(layer.transform.opacity.span), std::string(R"({"k":100})"));
    QCOMPARE(at(layer.transform.opacity.valueSpan), std::string("100"));
    QCOMPARE(at(keys[0].span), std::string(R"({"t": 2.5 ,"s":[ 1 ], "h" : 1 })"));
    QCOMPARE(at(keys[0].timeSpan), std::string("2.5"));
    QCOMPARE(at(keys[0].valueSpan), std::string("[ 1 ]"));
    QCOMPARE(at(keys[0].holdSpan), std::string("1"));
    QVERIFY(keys[0].easeOutSpan.isEmpty());
    QCOMPARE(at(keys[1].easeOutSpan), std::string(R"({"x":0,"y":1})"));
    QCOMPARE(at(keys[1].easeInSpan), std::string(R"({"x":1,"y":0})"));
    QCOMPARE(at(keys[1].endSpan), std::string("[3]"));
    // The last key's value stands in the key before it.
    QCOMPARE(at(keys[2].valueSpan), std::string("[3]"));
    QVERIFY(layer.transform.position.span.isEmpty());
}

void LottieReaderTest::colorsOfOldFilesCountTo255()
{
    const auto red = [](const char* version, const char* color) {
        const Document document = readText(documentText(
            shapeLayer(QByteArray(R"({"ty":"fl","c":{"k":)") + color + "}}"),
            QByteArray(R"("v":")") + version + R"(",)"));
        return document.main.layers.empty()
                   ? -1.0
                   : std::get<FillShape>(document.main.layers[0].shapes.at(0).shape).color.value[0];
    };

    QCOMPARE(red("4.1.8", "[255,0,0,255]"), 1.0);
    QCOMPARE(red("4.1.9", "[0.5,0,0,1]"), 0.5);
    QCOMPARE(red("5.10.0", "[0.5,0,0,1]"), 0.5);
    QCOMPARE(red("", "[0.5,0,0,1]"), 0.5);
}

void LottieReaderTest::whatIsNotDrawnIsListedOnceALayer_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QStringList>("features");

    const auto row = [](const char* name, const char* members, const QStringList& features) {
        QTest::newRow(name) << QByteArray(members) << features;
    };
    row("image", R"("ty":2)", {u"image"_qs});
    row("text", R"("ty":5)", {u"text"_qs});
    row("sound", R"("ty":6)", {u"sound"_qs});
    row("camera", R"("ty":13)", {u"camera"_qs});
    row("another kind", R"("ty":42)", {u"layer of kind 42"_qs});
    row("masks", R"("ty":3,"masksProperties":[{"mode":"a"},{"mode":"s"}])", {u"mask"_qs});
    row("a mask that is off", R"("ty":3,"masksProperties":[{"mode":"n"}])", {});
    row("masks that are off", R"("ty":3,"hasMask":false,"masksProperties":[{"mode":"a"}])", {});
    row("matte and effect", R"("ty":3,"tt":1,"ef":[{}])", {u"track matte"_qs, u"effect"_qs});
    row("style, mode, space",
        R"("ty":3,"sy":[{}],"bm":1,"ddd":1)",
        {u"layer style"_qs, u"blend mode"_qs, u"third dimension"_qs});
    row("expressions",
        R"("ty":3,"ks":{"r":{"k":0,"x":"time"},"o":{"k":0,"x":"1"}})",
        {u"expression"_qs});
    row("shapes",
        R"("ty":4,"shapes":[{"ty":"gf"},{"ty":"gr","it":[{"ty":"gs"},{"ty":"gf"},{"ty":"rp"}]},{"ty":"rd"},{"ty":"new"}])",
        {u"gradient fill"_qs,
         u"gradient stroke"_qs,
         u"repeater"_qs,
         u"rounded corners"_qs,
         u"shape of kind “new”"_qs});
    row("a lost composition",
        R"("ty":0,"refId":"c")",
        {u"composition “c”, which the file lacks"_qs});
    row("all that is drawn",
        R"("ty":4,"shapes":[{"ty":"sh"},{"ty":"rc"},{"ty":"el"},{"ty":"sr"},{"ty":"fl"},{"ty":"st","d":[]},{"ty":"tm"},{"ty":"mm"}])",
        {});
}

void LottieReaderTest::whatIsNotDrawnIsListedOnceALayer()
{
    QFETCH(QByteArray, members);
    QFETCH(QStringList, features);

    const ReadResult result = read(documentText(layer(R"("nm":"Sun",)" + members)));

    QVERIFY2(result, qPrintable(result.error));
    QStringList listed;
    for (const MissingFeature& missing : result.document->missing) {
        QCOMPARE(missing.layer, QStringLiteral("Sun"));
        listed += missing.feature;
    }
    QCOMPARE(listed, features);
}

void LottieReaderTest::samplesNeedNothingThatIsMissing()
{
    const QDir folder(QStringLiteral(":/samples"));
    const QStringList names = folder.entryList({QStringLiteral("*.json")});
    QVERIFY(names.size() >= 3);
    for (const QString& name : names) {
        const ReadResult result = readFile(folder.filePath(name));
        QVERIFY2(result, qPrintable(name + result.error));
        QVERIFY2(result.document->missing.empty(), qPrintable(name));
        QVERIFY2(!result.document->markers.empty(), qPrintable(name));
    }
}

const ui::test::Registration<LottieReaderTest> kRegistration;

#include "tst_lottiereader.moc"
