// SPDX-License-Identifier: Apache-2.0
#include "editing/DocumentEditor.h"
#include "editing/keyediting.h"
#include "editing/keyrows.h"
#include "lottie/evaluate.h"
#include "lottietexts.h"
#include "support/TestCase.h"

using namespace studio;
using studio::test::documentOf;
using studio::test::onlyLayer;
using studio::test::shapeLayer;

namespace {

/// A position with a list of keys.
NumberProperty moving(const QByteArray& keys)
{
    return onlyLayer(R"("ty":3,"ks":{"p":{"a":1,"k":[)" + keys + "]}}").transform.position;
}

bool isClose(const Numbers& a, const Numbers& b, double tolerance)
{
    return std::equal(a.begin(), a.end(), b.begin(), [=](double x, double y) {
        return std::abs(x - y) <= tolerance;
    });
}

const PropertyAddress kPositionOf0{0, Attribute::Position};
const PropertyAddress kRotationOf1{1, Attribute::Rotation};

/// The keys' times, each with the first number of its value.
QByteArray listed(const NumberProperty& property)
{
    QByteArrayList keys;
    for (const auto& key : property.keys) {
        keys.append(QByteArray::number(key.time) + ':' + QByteArray::number(key.value[0]));
    }
    return keys.join(' ');
}

/// Two layers: the first one moves from (0, 0) to (100, 50), the second stands still.
std::shared_ptr<Document> twoLayers()
{
    return std::make_shared<Document>(documentOf(
        shapeLayer({}, R"("p":{"a":1,"k":[{"t":0,"s":[0,0]},{"t":20,"s":[100,50]}]})") + ","
        + shapeLayer({}, R"("r":{"k":30})")));
}

struct OpenEditor : DocumentEditor
{
    OpenEditor() { setDocument(twoLayers()); }

    void set(const PropertyAddress& address, int frame, double x)
    {
        setEntries(address, frame, {{0, x}});
    }

    NumberProperty copyOf(const PropertyAddress& address) const { return *property(address); }
};

} // namespace

class EditingTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aKeyCutIntoASegmentMovesNothing()
    {
        const QByteArray ease = R"("o":{"x":[0.6],"y":[0]},"i":{"x":[0.3],"y":[1]})";
        const QByteArray way = R"("to":[40,-80],"ti":[-90,-20],)";
        const std::pair<QByteArray, double> segments[] = {
            {R"("h":0)", 1e-9},
            {R"("h":1)", 0.0},
            {ease, 1e-6},
            {R"("o":{"x":[0.4],"y":[-0.6]},"i":{"x":[0.7],"y":[1.8]})", 1e-6}, // past both ends
            {R"("o":{"x":[0.1,0.9],"y":[0,0.4]},"i":{"x":[0.2,0.9],"y":[1,0.5]})", 1e-6},
            {way + R"("h":0)", 1e-4},
            {way + ease, 1e-4}};
        for (const auto& [segment, tolerance] : segments) {
            const NumberProperty before =
                moving(R"({"t":10,"s":[20,30],)" + segment + R"(},{"t":30,"s":[120,-10]})");
            for (int cut = 11; cut < 30; ++cut) {
                NumberProperty property = before;
                toggleKeyAt(property, cut);
                QCOMPARE(property.keys.size(), std::size_t(3));
                for (double frame = 5; frame < 35; frame += 0.25) {
                    const bool same =
                        isClose(valueAt(property, frame), valueAt(before, frame), tolerance);
                    QVERIFY2(same, segment + " cut at " + QByteArray::number(cut));
                }
            }
        }
    }

    void theEntryIsTheFramesValueAndNoOtherKeysChange()
    {
        // Held keys show a value that is taken a little too late; one key's time is rounded.
        const NumberProperty before = moving(R"({"t":0,"s":[1,2]},{"t":10.0000014,"s":[3,4],"h":1},
            {"t":14.4,"s":[5,6],"h":1},{"t":20,"s":[7,8]},{"t":20,"s":[9,10]})");
        const std::pair<int, std::size_t> cases[] = {
            {-3, 6}, {0, 5}, {4, 6}, {10, 5}, {14, 6}, {20, 5}, {25, 6}};
        for (const auto& [frame, keys] : cases) {
            NumberProperty property = before;
            setEntryAt(property, frame, {0, 77.5});
            const double untouched = valueAt(before, frame == 10 ? 10.01 : frame)[1];
            QCOMPARE(valueAt(property, frame), (Numbers{77.5, untouched, 0, 0}));
            QCOMPARE(property.keys.size(), keys);
            for (const auto& key : before.keys) {
                const auto isSame = [&key](const auto& other) {
                    return other.value == key.value && other.time == key.time;
                };
                const auto found =
                    std::count_if(property.keys.begin(), property.keys.end(), isSame);
                QVERIFY(found == 1 || std::abs(key.time - frame) <= kSameFrame);
            }
        }
    }

    void aKeyPastTheEndsStartsAnEvenStraightSegment()
    {
        // What some writers leave on a last key is about a segment that was never there.
        NumberProperty property =
            moving(R"({"t":0,"s":[0,0]},{"t":10,"s":[10,0],"to":[0,90],"ti":[0,90],
            "o":{"x":[1],"y":[0]},"i":{"x":[1],"y":[0]}})");
        setEntryAt(property, 20, {0, 20});
        QCOMPARE(valueAt(property, 15), (Numbers{15, 0, 0, 0}));
        setEntryAt(property, -10, {1, 8});
        QCOMPARE(valueAt(property, -5), (Numbers{0, 4, 0, 0}));
    }

    void aRemovedKeyJoinsWhatLeavesTheOneBeforeAndEntersTheOneAfter()
    {
        NumberProperty property = moving(R"(
            {"t":0,"s":[0,0],"to":[1,2],"ti":[3,4],"o":{"x":[0.1],"y":[0.2]},"i":{"x":[0.3],"y":[0.4]}},
            {"t":10,"s":[9,9],"to":[5,6],"ti":[7,8],"o":{"x":[0.5],"y":[0.6]},"i":{"x":[0.7],"y":[0.8]}},
            {"t":20,"s":[100,0]})");
        toggleKeyAt(property, 10);
        QCOMPARE(property.keys.size(), std::size_t(2));
        const auto& key = property.keys.front();
        QCOMPARE(key.easeOut.x[0], 0.1);
        QCOMPARE(key.easeIn.x[0], 0.7);
        QCOMPARE(key.spatialOut[1], 2.0);
        QCOMPARE(key.spatialIn[1], 8.0);
    }

    void theKeysOfAFrameComeAndGoWithItsValue()
    {
        NumberProperty property;
        property.value = {4, 5};
        property.dimensions = 2;
        const NumberProperty still = property;
        toggleKeyAt(property, 7);
        QCOMPARE(keyStateAt(property, 7), KeyState::KeyAtFrame);
        QCOMPARE(keyStateAt(property, 8), KeyState::Animated);
        QCOMPARE(valueAt(property, 100), still.value);
        setEntryAt(property, 7, {1, 6});
        setEntryAt(property, 7, {1, std::numeric_limits<double>::quiet_NaN()});
        setEntryAt(property, 7, {1, std::numeric_limits<double>::infinity()});
        toggleKeyAt(property, 7);
        QCOMPARE(keyStateAt(property, 7), KeyState::None);
        QCOMPARE(property.value, (Numbers{4, 6, 0, 0}));

        // Of a jump both keys go.
        property = moving(R"({"t":3,"s":[1,1]},{"t":3,"s":[2,2]})");
        toggleKeyAt(property, 3);
        QCOMPARE(keyStateAt(property, 3), KeyState::None);
        QCOMPARE(property.value, (Numbers{2, 2, 0, 0}));
    }

    void aMovedKeyTakesThePlaceOfTheOneAtItsFrame()
    {
        const NumberProperty before = moving(R"({"t":0,"s":[1,0]},{"t":10,"s":[2,0]},
            {"t":20,"s":[3,0]},{"t":20,"s":[4,0]})");
        const std::pair<std::vector<KeyChange>, QByteArray> cases[] = {
            {{{.key = 0, .time = 10}}, "10:1 20:3 20:4"},
            {{{.key = 0, .time = 9.995}}, "9.995:1 20:3 20:4"},
            {{{.key = 0, .time = 20}}, "10:2 20:1"},
            {{{.key = 0, .time = 10}, {.key = 1, .time = 20}}, "10:1 20:2"},
            {{{.key = 1, .time = 5}, {.key = 0, .time = 5}}, "5:2 20:3 20:4"},
            {{{.key = 2, .time = 5}, {.key = 3, .time = 5}}, "0:1 5:3 5:4 10:2"},
            {{{.key = 0, .time = 30}}, "10:2 20:3 20:4 30:1"},
            {{{.key = 0, .time = 10, .asCopy = true}}, "0:1 10:1 20:3 20:4"},
            {{{.key = 0, .time = 0, .asCopy = true}}, "0:1 10:2 20:3 20:4"},
            {{{.key = 3, .time = 20}}, "0:1 10:2 20:3 20:4"},
            {{{.key = 9, .time = 5}, {.key = 0, .time = qQNaN()}}, "0:1 10:2 20:3 20:4"}};
        for (const auto& [changes, expected] : cases) {
            NumberProperty property = before;
            const auto places = changeKeys(property, changes);
            QCOMPARE(listed(property), expected);
            for (std::size_t i = 0; i < changes.size(); ++i) {
                const double time = *changes[i].time;
                QVERIFY(!places[i] || qIsNaN(time) || property.keys[*places[i]].time == time);
            }
        }
    }

    void easingGoesWithTheKeyThatItLeavesOrEnters()
    {
        NumberProperty property =
            moving(R"({"t":0,"s":[0,0],"o":{"x":[0.1],"y":[0]},"i":{"x":[0.9],"y":[1]}},
            {"t":10,"s":[1,0],"o":{"x":[0.2],"y":[0]},"i":{"x":[0.8],"y":[1]}},{"t":20,"s":[2,0]})");
        changeKeys(property, {{.key = 1, .time = 30}});
        const auto& keys = property.keys;
        QCOMPARE(keys[0].easeOut.x[0], 0.1);
        QCOMPARE(keys[0].easeIn.x[0], 0.8);
        QCOMPARE(keys[1].easeOut.x[0], 0.0); // as the last one it had none
        QCOMPARE(keys[1].easeIn.x[0], 0.9);
        QCOMPARE(keys[2].easeOut.count + keys[2].easeIn.count, 0);
        changeKeys(
            property,
            {{.key = 0, .easeOut = EasingHandle()}, {.key = 1, .easeIn = EasingHandle()}});
        QCOMPARE(keys[0].easeOut.count + keys[0].easeIn.count, 0);
    }

    void aGestureOverKeysAndClipsIsOneStepAndLosesNothingOnItsWay()
    {
        OpenEditor editor;
        editor.toggleKey(kRotationOf1, 0);
        const auto state = [&editor] {
            return std::tuple(
                editor.copyOf(kPositionOf0), editor.copyOf(kRotationOf1), *editor.clipOf(1));
        };
        const auto before = state();
        const auto moveTo = [&editor](double time) {
            return editor.changeKeys(
                {{kPositionOf0, {.key = 0, .time = time}},
                 {kRotationOf1, {.key = 0, .time = time}}});
        };
        QVERIFY(!moveTo(5)[0]); // there is no gesture
        for (const bool cancels : {true, false}) {
            editor.beginGesture(u"Move"_qs);
            QCOMPARE(moveTo(20)[0]->key, std::size_t(0));
            QCOMPARE(listed(editor.copyOf(kPositionOf0)), "20:0");
            QCOMPARE(editor.keyAt({kPositionOf0, 0})->time, 0.0); // as the gesture found it
            editor.setClips({{1, {5, 3, 0}}, {7, {0, 1, 0}}, {1, {3, 50, 2}}});
            QSignalSpy edited(&editor, &DocumentEditor::edited);
            QCOMPARE(moveTo(25)[0]->key, std::size_t(1));
            QCOMPARE(edited.count(), 2);
            QCOMPARE(listed(editor.copyOf(kPositionOf0)), "20:100 25:0");
            QCOMPARE(editor.clipOf(1)->outPoint, 50.0);
            cancels ? editor.cancel() : editor.commit();
            QCOMPARE(state() == before, cancels);
        }
        const auto after = state();
        QCOMPARE(editor.undoText(), u"Move"_qs);
        editor.undo();
        QVERIFY(state() == before);
        editor.redo();
        QVERIFY(state() == after);
        editor.setLocked({0, 1}, true);
        editor.beginGesture(u"Move"_qs);
        QVERIFY(!moveTo(5)[0]);
        editor.setClips({{1, {0, 9, 0}}});
        QVERIFY(state() == after);
    }

    void copiedKeysGoWhereTheirAttributeIs()
    {
        OpenEditor editor;
        editor.setDocument(std::make_shared<Document>(documentOf(
            shapeLayer(
                R"({"ty":"fl","c":{"k":[{"t":4,"s":[1,0,0,1]},{"t":6,"s":[0,0,1,1]}]}})",
                R"("s":{"k":[{"t":2,"s":[9,9,7]},{"t":8,"s":[5,5,7]}]})")
            + "," + shapeLayer(R"({"ty":"el"},{"ty":"st","c":{"k":[0,1,0]}})"))));
        const PropertyAddress color{0, Attribute::ShapeColor, {0}};
        const auto rows = keysFromJson(toJson(
            editor.copyKeys({{color, 1}, {{0, Attribute::Scale}, 0}, {{0, Attribute::Scale}, 9}})));
        QCOMPARE(editor.pasteKeys(rows, 10, 1).size(), std::size_t(2));
        QCOMPARE(listed(editor.copyOf({1, Attribute::ShapeColor, {1}})), "14:0");
        QCOMPARE(listed(editor.copyOf({1, Attribute::Scale})), "10:9");
        QCOMPARE(keyRowsOf(*editor.document(), 1).size(), std::size_t(2));
        editor.pasteKeys(rows, 0, -1);
        QCOMPARE(listed(editor.copyOf(color)), "4:0 6:0"); // in the place of the one there
        QVERIFY(editor.pasteKeys(rows, 0, 7).empty());
        QVERIFY(keysFromJson("{\"rows\":[{\"attribute\":\"scale\"}, 3]}").empty());
    }

    void whatChangesNothingLeavesNoStepNorDoesAnotherDocument()
    {
        OpenEditor editor;
        editor.set(kRotationOf1, 0, 31);
        editor.set(kRotationOf1, 0, 30);
        editor.commit();
        const NumberProperty before = editor.copyOf(kPositionOf0);
        editor.setEntries(kPositionOf0, 10, {{0, 3}, {1, 4}});
        editor.setEntries(kPositionOf0, 10, {});
        QCOMPARE(editor.copyOf(kPositionOf0), before);
        const PropertyAddress nothing[] = {
            {-1, Attribute::Scale}, {2, Attribute::Scale}, {0, Attribute::ShapeColor, {0, 3}}};
        for (const PropertyAddress& address : nothing) {
            editor.set(address, 0, 5);
            editor.toggleKey(address, 0);
        }
        editor.toggleKey({0, Attribute::SolidColor}, 0);
        QVERIFY(!editor.canUndo() && !editor.isModified());

        editor.set(kRotationOf1, 0, 31);
        editor.commit();
        editor.set(kRotationOf1, 0, 32);
        editor.setDocument(twoLayers());
        QVERIFY(!editor.canUndo() && !editor.isModified());
        editor.undo();
        editor.commit();
        QCOMPARE(editor.property(kRotationOf1)->value[0], 30.0);
        editor.setDocument(nullptr);
        editor.set(kRotationOf1, 0, 5);
        QVERIFY(!editor.canUndo());
    }

    void drawnColorsAreFoundWhereTheyLie()
    {
        Document document = documentOf(
            shapeLayer(
                R"({"ty":"fl","nm":"Sky","c":{"k":[0,0,1]}},{"ty":"gr","nm":"Land","it":[)"
                R"({"ty":"st","hd":true,"c":{"k":[1,0,0]}},{"ty":"el"},{"ty":"st","c":{"k":[0,1,0]}}]})")
            + "," + test::layer("\"ty\":1,\"sw\":9,\"sh\":9,\"sc\":\"#ff8000\""));
        const auto colors = colorsOf(document, 0);
        QCOMPARE(colors.size(), std::size_t(2));
        QCOMPARE(nameOf(document, colors[0]), u"Sky"_qs);
        QCOMPARE(nameOf(document, colors[1]), u"Land · Stroke"_qs);
        QCOMPARE(findProperty(document, colors[1])->value, (Numbers{0, 1, 0, 0}));
        const auto solid = colorsOf(document, 1);
        QCOMPARE(solid.size(), std::size_t(1));
        QCOMPARE(findProperty(document, solid[0])->value, (Numbers{1, 128.0 / 255, 0, 0}));
    }
};

const ui::test::Registration<EditingTest> kRegistration;

#include "tst_editing.moc"
