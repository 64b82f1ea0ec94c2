#include "editing/DocumentEditor.h"
#include "editing/keyediting.h"
#include "lottie/evaluate.h"
#include "lottietexts.h"
#include "support/TestCase.h"

#include <limits>

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

    NumberProperty copyOf(const PropertyAddress& address) const { return *property(address); }
};

} // namespace

class EditingTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aKeyCutIntoASegmentMovesNothing_data()
    {
        QTest::addColumn<QByteArray>("segment");
        QTest::addColumn<double>("tolerance");

        const QByteArray ease = R"("o":{"x":[0.6],"y":[0]},"i":{"x":[0.3],"y":[1]})";
        const QByteArray swing = R"("o":{"x":[0.4],"y":[-0.6]},"i":{"x":[0.7],"y":[1.8]})";
        const QByteArray each =
            R"("o":{"x":[0.1,0.9],"y":[0,0.4]},"i":{"x":[0.2,0.9],"y":[1,0.5]})";
        const QByteArray way = R"("to":[40,-80],"ti":[-90,-20],)";
        QTest::newRow("linear") << QByteArray(R"("h":0)") << 1e-9;
        QTest::newRow("hold") << QByteArray(R"("h":1)") << 0.0;
        QTest::newRow("eased") << ease << 1e-6;
        QTest::newRow("past both ends") << swing << 1e-6;
        QTest::newRow("each its own") << each << 1e-6;
        QTest::newRow("along a way") << way + R"("h":0)" << 1e-4;
        QTest::newRow("eased along a way") << way + ease << 1e-4;
    }

    void aKeyCutIntoASegmentMovesNothing()
    {
        QFETCH(QByteArray, segment);
        QFETCH(double, tolerance);
        const NumberProperty before =
            moving(R"({"t":10,"s":[20,30],)" + segment + R"(},{"t":30,"s":[120,-10]})");
        QCOMPARE(before.keys.size(), std::size_t(2));

        for (int cut = 11; cut < 30; ++cut) {
            NumberProperty property = before;
            toggleKeyAt(property, cut);
            QCOMPARE(property.keys.size(), std::size_t(3));
            for (double frame = 5; frame < 35; frame += 0.25) {
                const Numbers expected = valueAt(before, frame);
                const Numbers now = valueAt(property, frame);
                const QString text = u"cut at %1, frame %2: %3,%4 instead of %5,%6"_qs.arg(cut)
                                         .arg(frame)
                                         .arg(now[0])
                                         .arg(now[1])
                                         .arg(expected[0])
                                         .arg(expected[1]);
                QVERIFY2(isClose(now, expected, tolerance), qUtf8Printable(text));
            }
        }
    }

    void theEntryIsTheFramesValueAndNoOtherKeysChange_data()
    {
        QTest::addColumn<int>("frame");
        QTest::addColumn<int>("keys");

        QTest::newRow("before all") << -3 << 6;
        QTest::newRow("on a key") << 0 << 5;
        QTest::newRow("between") << 4 << 6;
        QTest::newRow("on a key that the file has rounded") << 10 << 5;
        QTest::newRow("beside a key between frames") << 14 << 6;
        QTest::newRow("on a jump") << 20 << 5;
        QTest::newRow("after all") << 25 << 6;
    }

    void theEntryIsTheFramesValueAndNoOtherKeysChange()
    {
        QFETCH(int, frame);
        QFETCH(int, keys);
        // Held keys show a value that is taken a little too late.
        const NumberProperty before = moving(R"({"t":0,"s":[1,2]},{"t":10.0000014,"s":[3,4],"h":1},
            {"t":14.4,"s":[5,6],"h":1},{"t":20,"s":[7,8]},{"t":20,"s":[9,10]})");
        NumberProperty property = before;
        setEntryAt(property, frame, {0, 77.5});

        const double untouched = valueAt(before, frame == 10 ? 10.01 : frame)[1];
        QCOMPARE(valueAt(property, frame), (Numbers{77.5, untouched, 0, 0}));
        QCOMPARE(property.keys.size(), static_cast<std::size_t>(keys));
        QCOMPARE(keyStateAt(property, frame), KeyState::KeyAtFrame);
        const auto count = [](const auto& list, const Keyframe<Numbers>& key) {
            return std::count_if(list.begin(), list.end(), [&](const auto& other) {
                return other.value == key.value && other.time == key.time;
            });
        };
        for (const auto& key : before.keys) {
            if (std::abs(key.time - frame) > kSameFrame) {
                QCOMPARE(count(property.keys, key), 1);
            }
        }
        QVERIFY(std::is_sorted(property.keys.begin(), property.keys.end(), [](auto& a, auto& b) {
            return a.time < b.time;
        }));
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
        toggleKeyAt(property, 20);
        QCOMPARE(valueAt(property, 15), (Numbers{0, 0, 0, 0}));
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

    void aGestureIsOneStepAndUndoRestoresEverythingExactly()
    {
        OpenEditor editor;
        const NumberProperty before = editor.copyOf(kPositionOf0);
        QSignalSpy edited(&editor, &DocumentEditor::edited);
        for (double x = 1; x <= 50; ++x) {
            editor.setEntries(kPositionOf0, 10, {{0, x}});
        }
        QCOMPARE(edited.size(), 50);
        QCOMPARE(valueAt(*editor.property(kPositionOf0), 10), (Numbers{50, 25, 0, 0}));
        QVERIFY(editor.canUndo() && editor.isModified());
        editor.commit();
        const NumberProperty after = editor.copyOf(kPositionOf0);
        QCOMPARE(editor.undoText(), u"Change Position"_qs);

        editor.undo();
        QCOMPARE(editor.copyOf(kPositionOf0), before);
        QVERIFY(!editor.canUndo() && editor.canRedo() && !editor.isModified());
        editor.redo();
        QCOMPARE(editor.copyOf(kPositionOf0), after);

        // In the middle of a gesture it is the gesture that is undone, and it can be redone.
        editor.setEntries(kPositionOf0, 12, {{1, -4}});
        QVERIFY(!editor.canRedo());
        editor.undo();
        QCOMPARE(editor.copyOf(kPositionOf0), after);
        editor.redo();
        QCOMPARE(valueAt(*editor.property(kPositionOf0), 12)[1], -4.0);
    }

    void interleavedStepsOfLayersComeBackInOrder()
    {
        OpenEditor editor;
        struct State
        {
            NumberProperty position;
            NumberProperty rotation;
        };
        const auto now = [&editor] {
            return State{editor.copyOf(kPositionOf0), editor.copyOf(kRotationOf1)};
        };
        std::vector<State> states{now()};
        const auto record = [&] { states.push_back(now()); };
        editor.setEntries(kPositionOf0, 5, {{0, 1}});
        record();
        editor.setEntries(kRotationOf1, 5, {{0, 2}}); // ends the gesture before it
        record();
        editor.toggleKey(kRotationOf1, 5); // and so does this
        record();
        editor.toggleKey(kPositionOf0, 0);
        record();
        editor.setEntries(kRotationOf1, 9, {{0, 3}});
        record();

        const auto isAt = [&](std::size_t i) {
            const State state = now();
            return state.position == states[i].position && state.rotation == states[i].rotation;
        };
        for (int round = 0; round < 2; ++round) {
            for (std::size_t i = states.size() - 1; i-- > 0;) {
                editor.undo();
                QVERIFY2(isAt(i), qUtf8Printable(u"undo to %1"_qs.arg(i)));
            }
            QVERIFY(!editor.canUndo());
            for (std::size_t i = 1; i < states.size(); ++i) {
                editor.redo();
                QVERIFY2(isAt(i), qUtf8Printable(u"redo to %1"_qs.arg(i)));
            }
        }
    }

    void whatChangesNothingLeavesNoStep()
    {
        OpenEditor editor;
        editor.setEntries(kRotationOf1, 0, {{0, 31}});
        editor.setEntries(kRotationOf1, 0, {{0, 30}});
        editor.commit();
        QVERIFY(!editor.canUndo() && !editor.isModified());
        const NumberProperty before = editor.copyOf(kPositionOf0);
        editor.setEntries(kPositionOf0, 10, {{0, 3}, {1, 4}});
        editor.setEntries(kPositionOf0, 10, {});
        QCOMPARE(editor.copyOf(kPositionOf0), before);
        QVERIFY(!editor.canUndo() && !editor.isModified());

        for (const PropertyAddress& nothing : std::vector<PropertyAddress>{
                 {-1, Attribute::Scale},
                 {2, Attribute::Scale},
                 {0, Attribute::ShapeColor},
                 {0, Attribute::ShapeColor, {0, 3}}})
        {
            editor.setEntries(nothing, 0, {{0, 5}});
            editor.toggleKey(nothing, 0);
        }
        editor.toggleKey({0, Attribute::SolidColor}, 0);
        QVERIFY(!editor.canUndo());
        editor.setDocument(nullptr);
        editor.setEntries(kRotationOf1, 0, {{0, 5}});
        QVERIFY(!editor.canUndo());
    }

    void aStepOfAnotherDocumentIsForgotten()
    {
        OpenEditor editor;
        editor.setEntries(kRotationOf1, 0, {{0, 31}});
        editor.commit();
        editor.setEntries(kRotationOf1, 0, {{0, 32}});
        editor.setDocument(twoLayers());
        QVERIFY(!editor.canUndo() && !editor.isModified());
        editor.undo();
        editor.commit();
        QCOMPARE(editor.property(kRotationOf1)->value[0], 30.0);
    }

    void drawnColorsAreFoundWhereTheyLie()
    {
        Document document = documentOf(
            shapeLayer(R"({"ty":"fl","nm":"Sky","c":{"k":[0,0,1]}},{"ty":"gr","nm":"Land","it":[
                {"ty":"st","hd":true,"c":{"k":[1,0,0]}},{"ty":"el"},{"ty":"st","c":{"k":[0,1,0]}}]})")
            + "," + test::layer(R"("ty":1,"sw":9,"sh":9,"sc":"#ff8000")"));
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
