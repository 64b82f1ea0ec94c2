// SPDX-License-Identifier: Apache-2.0
#include "editing/DocumentEditor.h"
#include "lottietexts.h"
#include "saving/documentwriter.h"
#include "support/TestCase.h"

using namespace studio;
using namespace studio::test;

namespace {

/// Forms that files have: old ones with end values, nulls, twins of a member, byte order mark, line
/// ends, one number a line, keys out of order, names of easings, members that nobody knows.
QByteArrayList oddTexts()
{
    const QByteArray old =
        R"({"i":{"x":[0.8],"y":[1]},"o":{"x":[0.2],"y":[0]},"n":["a"],"t":0,)"
        R"("s":[10,20,0],"e":[30,40,0],"to":[1,2,0],"ti":[0,0,0]},)"
        R"({"t":8,"s":[30,40,0],"h":1},{"t":12,"s":[3,4,0],"e":[5,6,0]},{"t":20})";
    const QByteArray lines =
        "\"p\" : {\r\n\t\"k\" : [ \r\n\t{ \"t\" : 5 , \"s\" : [\r\n\t1 ,\r\n\t2 ] } ,"
        "\r\n\t{ \"t\" : 1 , \"s\" : [ 3 , 4.50 ] , \"q\" : {} } ] }";
    const QByteArray scalars =
        R"("r":{"a":1,"k":[{"t":0,"s":1e1,"o":{"x":0.3,"y":0},"i":{"x":0.6,"y":1}},)"
        R"({"t":10.004,"s":20.0},{"t":10.004,"s":-20,"h":true},{"t":30,"s":5}]})";
    const QByteArray split =
        R"("p":{"s":true,"x":{"a":0,"k":[5]},"y":null},"rz":{"k":3},"s":{"x":"wiggle"
})";
    const QByteArray color =
        R"({"ty":"gr","it":[{"ty":"fl","c":{"k":[255,7,0.5,1]}},{"ty":"tr"},)"
        R"({"ty":"st","c":{"a":1,"k":[{"t":0,"s":[9,8,7],"e":[1,2,3]},{"t":9}]}},{"ty":"fl"}]})";
    const QByteArray layers =
        shapeLayer(color, R"("p":{"a":1,"k":[)" + old + "]}") + " ,\n " + shapeLayer({}, lines)
        + "," + shapeLayer(color, scalars) + "," + shapeLayer({}, split) + ","
        + layer(
            R"("nm":"A\u00e9\"","nm":"twin","ty":1,"sc":"#FF8000","sw":9,"sh":9,"hd":null,"cl":[1, 2])");
    return {
        documentText(layers, R"("v":"4.1.0",)"),
        "\xef\xbb\xbf" + documentText(layers) + "\n",
        documentText(layer("\"ty\":3"))};
}

QByteArrayList texts()
{
    QByteArrayList found = oddTexts();
    const QString root = QDir::cleanPath(ui::test::dataPath(u"studio"_qs) + u"/../../.."_qs);
    for (const QString& folder :
         {root + u"/src/studio/samples"_qs, root + u"/fuzz/corpus/lottie"_qs}) {
        for (const QFileInfo& info : QDir(folder).entryInfoList({u"*.json"_qs})) {
            QFile file(info.filePath());
            if (file.open(QIODevice::ReadOnly)) {
                found.append(file.readAll());
            }
        }
    }
    return found;
}

/// Edits a document at random, as a user with every tool would.
class Monkey
{
public:
    Monkey(DocumentEditor& editor, quint32 seed)
        : m_editor(editor)
        , m_random(seed)
    {}

    void act()
    {
        const int layer = below(layerCount() + 1) - 1;
        const auto addresses = propertiesOf(layer);
        if (addresses.empty()) {
            return actOnLayer(layer);
        }
        const PropertyAddress address = addresses[std::size_t(below(int(addresses.size())))];
        const auto keys = keysOf(address);
        switch (below(10)) {
        case 0: m_editor.setEntries(address, frame(), {{std::size_t(below(3)), number()}}); break;
        case 1: m_editor.toggleKey(address, frame()); break;
        case 2: m_editor.nudgeKeys(keys, below(21) - 10); break;
        case 3: m_editor.duplicateKeys(keys, below(9)); break;
        case 4: m_editor.scaleKeys(keys, frame(), number() / 30); break;
        case 5: m_editor.deleteKeys(keys); break;
        case 6: m_editor.pasteKeys(copied(keys), frame(), layer); break;
        case 7: m_editor.addKey(address, frame()); break;
        case 8: return actOnLayer(layer);
        default: changeKeys(keys);
        }
    }

private:
    int below(int bound) { return int(m_random.bounded(bound)); }
    int frame() { return below(40) - 5; }
    double number() { return below(2) == 0 ? below(200) / 4.0 : m_random.generateDouble() * 100; }
    int layerCount() const { return int(m_editor.document()->main.layers.size()); }

    std::vector<PropertyAddress> propertiesOf(int layer) const
    {
        auto all = transformOf(*m_editor.document(), layer);
        const auto colors = colorsOf(*m_editor.document(), layer);
        all.insert(all.end(), colors.begin(), colors.end());
        return all;
    }

    std::vector<KeyAddress> keysOf(const PropertyAddress& address)
    {
        std::vector<KeyAddress> keys;
        for (std::size_t i = 0; i < m_editor.property(address)->keys.size(); ++i) {
            if (below(2) == 0) {
                keys.push_back({address, i});
            }
        }
        return keys;
    }

    /// By way of the clipboard.
    std::vector<CopiedKeys> copied(const std::vector<KeyAddress>& keys)
    {
        const auto rows = m_editor.copyKeys(keys);
        const QByteArray json = toJson(rows);
        const auto read = keysFromJson(json);
        if (toJson(read) != json) {
            QTest::qFail("copied keys change on the clipboard", __FILE__, __LINE__);
        }
        return read;
    }

    EasingHandle handle()
    {
        EasingHandle handle;
        handle.count = below(4);
        for (std::size_t i = 0; i < handle.x.size(); ++i) {
            handle.x[i] = m_random.generateDouble() * 1.2;
            handle.y[i] = number() / 50 - 0.5;
        }
        return handle;
    }

    void changeKeys(const std::vector<KeyAddress>& keys)
    {
        m_editor.beginGesture(u"Change"_qs);
        for (int step = 0; step < 3; ++step) {
            std::vector<PropertyKeyChange> changes;
            for (const KeyAddress& key : keys) {
                KeyChange change{.key = key.key};
                switch (below(5)) {
                case 0: change.time = number() / 3; break;
                case 1: change.value = Numbers{number(), number(), number(), 1}; break;
                case 2: change.hold = below(2) == 0; break;
                case 3: change.easeOut = handle(); break;
                default: change.easeIn = handle();
                }
                change.asCopy = below(4) == 0;
                changes.push_back({key.property, change});
            }
            m_editor.changeKeys(changes);
        }
        below(4) == 0 ? m_editor.cancel() : m_editor.commit();
    }

    void actOnLayer(int layer)
    {
        switch (below(7)) {
        case 0: m_editor.renameLayer(layer, u"\"\\\n–%1"_qs.arg(below(9))); break;
        case 1: m_editor.setHidden({layer, layer + 1}, below(2) == 0); break;
        case 2: m_editor.setLocked({layer}, below(3) == 0); break;
        case 3: m_editor.moveLayers({std::max(layer, 0)}, below(layerCount() + 1)); break;
        case 4: m_editor.setNotes(QString::number(below(3))); break;
        case 5: m_editor.undo(); break;
        default:
            m_editor.beginGesture(u"Trim"_qs);
            m_editor.setClips({{layer, {number(), 100 + number(), number()}}});
            m_editor.commit();
        }
    }

    DocumentEditor& m_editor;
    QRandomGenerator m_random;
};

/// What of a property is seen, without where it stands in the file.
QString seen(const NumberProperty& property, double unit)
{
    QString text;
    const auto add = [&text](const Numbers& numbers, double unitOfThese = 1) {
        for (const double number : numbers) {
            // Old files count colours to 255, and the last bit of a channel is lost on the way.
            text += u' ' + QString::number(number + 0.0, 'g', unitOfThese == 1 ? 17 : 12);
        }
    };
    if (!property.isAnimated()) {
        add(property.value, unit);
    }
    for (const auto& key : property.keys) {
        add({key.time, double(key.hold), double(key.easeOut.count), double(key.easeIn.count)});
        add(key.value, unit);
        for (const Numbers* numbers :
             {&key.easeOut.x,
              &key.easeOut.y,
              &key.easeIn.x,
              &key.easeIn.y,
              &key.spatialOut,
              &key.spatialIn})
        {
            add(*numbers);
        }
        text += key.hasSpatial ? u"way\n"_qs : u"\n"_qs;
    }
    return text;
}

QStringList seen(const Document& document)
{
    QStringList texts{document.notes};
    for (int i = 0; i < int(document.main.layers.size()); ++i) {
        const Layer& layer = *findLayer(document, i);
        texts.append(layer.name);
        texts.append(u"%1 %2 %3 %4 %5 %6"_qs.arg(layer.inPoint)
                         .arg(layer.outPoint)
                         .arg(layer.startTime)
                         .arg(layer.hidden)
                         .arg(layer.locked)
                         .arg(layer.parent));
        auto all = transformOf(document, i);
        const auto colors = colorsOf(document, i);
        all.insert(all.end(), colors.begin(), colors.end());
        for (const PropertyAddress& address : all) {
            const bool isScaled = address.attribute == Attribute::ShapeColor;
            texts.append(
                nameOf(document, address)
                + seen(*findProperty(document, address), isScaled ? document.colorUnit : 1));
        }
    }
    return texts;
}

} // namespace

class SavingTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsNewIsWrittenAsItsNeighboursAre()
    {
        const PropertyAddress rotation{0, Attribute::Rotation};
        const QByteArray spaced =
            "\"r\": {\"k\": [{\"t\": 0, \"s\": [1], \"q\": 0},\n  {\"t\": 9, \"s\": [5.0]}";
        struct Case
        {
            QByteArray before;
            QByteArray after;
            std::function<void(DocumentEditor&)> edit;
        };
        const Case cases[] = {
            {spaced + "]}",
             spaced + ",\n  {\"t\": 20, \"s\": [5]}]}",
             [&](auto& editor) { editor.addKey(rotation, 20); }},
            {R"("r":{"k":[{"t":0,"s":[1],"e":[5]},{"t":9}]})",
             R"("r":{"k":[{"t":0,"s":[1],"e":[5]},{"t":9,"s":[5],"e":[5]},{"t":20,"s":[5]}]})",
             [&](auto& editor) { editor.addKey(rotation, 20); }},
            {R"("r":{"k":[{"t":0,"s":[1],"e":[5]},{"t":9}]})",
             R"("r":{"k":[{"t":0,"s":[1],"e":[7]},{"t":9}]})",
             [&](auto& editor) {
                 editor.setEntries(rotation, 9, {{0, 7}});
             }},
            {R"("r":{"k":[{"t":0,"s":[1],"e":[5]},{"t":4,"s":[5],"e":[6]},{"t":9}]})",
             R"("r":{"k":[{"t":0,"s":[1],"e":[6]},{"t":9}]})",
             [&](auto& editor) {
                 editor.deleteKeys({{rotation, 1}});
             }},
            {R"("r":{"a":0,"k":30,"ix":4})",
             R"("r":{"a":1,"k":[{"t":3,"s":[30]}],"ix":4})",
             [&](auto& editor) { editor.toggleKey(rotation, 3); }},
            {R"("p":{"k":[1.50, 2]})",
             R"("p":{"k":[1.50, 0.1]})",
             [](auto& editor) {
                 editor.setEntries({0, Attribute::Position}, 3, {{1, 0.1}});
             }},
            {{}, R"("o":{"a":0,"k":50})", [](auto& editor) {
                 editor.setEntries({0, Attribute::Opacity}, 3, {{0, 50}});
             }}};
        for (const auto& [before, after, edit] : cases) {
            DocumentEditor editor;
            editor.setDocument(std::make_shared<Document>(documentOf(shapeLayer({}, before))));
            edit(editor);
            editor.commit();
            const auto saved = write(*editor.document());
            QCOMPARE(QByteArray::fromStdString(*saved), documentText(shapeLayer({}, after)));
        }
    }

    void whatWasEditedIsReadAgainAndWhatWasNotKeepsItsBytes()
    {
        constexpr quint32 kSessions = 40;
        int documents = 0;
        for (const QByteArray& text : texts()) {
            ReadResult read = studio::read(text.toStdString());
            if (!read) {
                continue; // the corpus has damaged files too
            }
            ++documents;
            const std::string original = text.toStdString();
            QCOMPARE(*write(*read.document), original);
            for (quint32 seed = 0; seed < kSessions; ++seed) {
                DocumentEditor editor;
                editor.setDocument(std::make_shared<Document>(*read.document));
                Monkey monkey(editor, seed);
                for (quint32 i = 0; i < 3 + seed / 2; ++i) {
                    monkey.act();
                }
                editor.commit();
                const auto saved = write(*editor.document());
                QVERIFY(saved);
                const ReadResult again = studio::read(*saved);
                QVERIFY2(again, qPrintable(again.error));
                QCOMPARE(seen(*again.document), seen(*editor.document()));
                QCOMPARE(*write(*again.document), *saved);
                std::vector<std::string> steps;
                for (; editor.canUndo(); editor.undo()) {
                    steps.push_back(*write(*editor.document()));
                }
                QVERIFY(*write(*editor.document()) == original);
                for (; !steps.empty(); steps.pop_back()) {
                    editor.redo();
                    QVERIFY(*write(*editor.document()) == steps.back());
                }
            }
        }
        QVERIFY(documents >= 8);
    }
};

const ui::test::Registration<SavingTest> kRegistration;

#include "tst_saving.moc"
