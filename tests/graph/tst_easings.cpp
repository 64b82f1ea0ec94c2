// SPDX-License-Identifier: Apache-2.0
#include "GraphDesk.h"

using namespace ui::easing;
using namespace ui::test;

namespace {

QString shown(const std::optional<SegmentEasing>& easing)
{
    const auto number = [](double share) { return QString::number(share, 'f', 1); };
    return !easing       ? u"none"_qs
           : easing->hold ? u"hold"_qs
                   : QStringList{
                         number(easing->out.x()),
                         number(easing->out.y()),
                         number(easing->in.x()),
                         number(easing->in.y())}.join(u' ');
}

/// An editor or fields of a key, and what they tell.
template <typename Control>
struct Desk : QWidget
{
    Desk()
    {
        setLayoutDirection(Qt::RightToLeft);
        (new QVBoxLayout(this))->addWidget(control);
        resize(300, 340);
        connect(control, &Control::editStarted, this, [this] { told << u"("_qs; });
        connect(control, &Control::editEnded, this, [this](bool changed) {
            told << (changed ? u"C)"_qs : u")"_qs);
        });
        control->show();
        showActive(*this);
    }
    QString take() { return std::exchange(told, {}).join(u' '); }

    Control* control = new Control;
    QStringList told;
};

} // namespace

/// How a value goes from one key to the next, as shares, as handles, and under the user's hands.
class EasingsTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void sharesAreHandlesAndBack()
    {
        struct Case
        {
            QPointF share, distance, out, in;
        };
        const Case cases[] = {
            {{0.25, 0.5}, {40, 200}, {10, 100}, {-30, -100}},
            {{0.25, 1.5}, {40, -200}, {10, -300}, {-30, -100}}, // overshoots
            {{0.5, 0.3}, {8, 0}, {4, 0}, {-4, 0}},              // no change: its share stays
            {{0.5, 0.25}, {0, 4}, {0, 1}, {0, -3}}};
        for (const auto& [share, distance, out, in] : cases) {
            QCOMPARE(outHandle(share, distance), out);
            QCOMPARE(inHandle(share, distance), in);
            QCOMPARE(outShare(out, distance, share), share);
            QCOMPARE(inShare(in, distance, share), share);
        }
        QCOMPARE(outShare({12, 20}, {10, 100}), QPointF(1, 0.2)); // time stays in the segment
        QVERIFY(isSmooth({.leftHandle = {-2, -4}, .rightHandle = {1, 2}}));
        QVERIFY(!isSmooth({.leftHandle = {-2, 4}, .rightHandle = {1, 2}}));
        QVERIFY(!isSmooth({.rightHandle = {1, 2}}));
        QVERIFY(!isSmooth({.leftHandle = {1, 2}, .rightHandle = {1, 2}})); // a cusp
        ValueGraphKey from{.leftHandle = {-1, -1}};
        ValueGraphKey to{10, 10};
        setEasing(from, to, {false, {0.3, 0.3}, {qQNaN(), 1}});
        QVERIFY(from.handlesLocked && from.rightHandle.isNull());
        setEasing(from, to, easingOf(EasingPreset::EaseIn));
        QVERIFY(!from.handlesLocked && to.handlesLocked);
        auto curve = curveOf({false, {3, 0}, {0.6, 1}});
        QCOMPARE(shown(easingOf(curve)), u"1.0 0.0 0.6 1.0"_qs);
        curve[0].interpolation = morrant::KeyInterpolationType::Linear; // as its handle goes
        QCOMPARE(shown(easingOf(curve)), u"0.0 0.0 0.6 1.0"_qs);
    }
    void presetsComeBackFromTheirCurvesAndKeys()
    {
        for (const EasingPreset preset : kPresets) {
            const SegmentEasing easing = easingOf(preset);
            QVERIFY(presetOf(easingOf(curveOf(easing))) == preset);
            ValueGraphKey from{10, 50};
            ValueGraphKey to{30, -50};
            setEasing(from, to, easingOf(EasingPreset::Back));
            setEasing(from, to, easing);
            QVERIFY(presetOf(easingOf(from, to)) == preset);
            QVERIFY(easedShare(easing, -1) == 0 && easedShare(easing, 2) == 1);
            QVERIFY(!ui::getCachedPixmap(presetIcon(preset)).isNull());
        }
        QVERIFY(!presetOf({false, {0.1, 0.9}, {0.9, 0.1}}));
        QCOMPARE(easedShare(easingOf(EasingPreset::Linear), 0.5), 0.5);
        QCOMPARE(easedShare(easingOf(EasingPreset::EaseInAndOut), 0.5), 0.5);
        QCOMPARE(easedShare(easingOf(EasingPreset::Hold), 0.5), 0.0);
        QVERIFY(easedShare(easingOf(EasingPreset::Back), 0.6) > 1);
    }
    void whatIsDraggedOrChosenIsOneStep()
    {
        Desk<EasingEditor> desk;
        EasingEditor& editor = *desk.control;
        connect(&editor, &EasingEditor::edited, this, [&](const SegmentEasing& easing) {
            if (desk.told.isEmpty() || desk.told.last() != shown(easing)) {
                desk.told << shown(easing);
            }
            editor.setEasing({}); // waits for the end of a drag
        });
        QVERIFY(!editor.isEnabled() && shown(editor.easing()) == u"none");
        editor.setEasing(easingOf(EasingPreset::EaseInAndOut));
        QCOMPARE(editor.presets().currentIndex(), int(EasingPreset::EaseInAndOut));
        FixedGraphView& view = editor.view();
        FakePointer pointer(view.viewport());
        const QPoint handle = view.mapFromScene(4.2, 7.5);
        QVERIFY(handle.x() < view.mapFromScene(5.8, 2.5).x()); // time from left to right
        QVERIFY(editor.presets().segment(0)->x() < editor.presets().segment(5)->x());
        pointer.press(handle);
        pointer.moveTo(view.mapFromScene(2, 6.5));
        QCOMPARE(desk.take(), u"( 0.2 0.2 0.6 1.0"_qs);
        QCOMPARE(editor.presets().currentIndex(), -1);
        QTest::keyClick(&view, Qt::Key_Escape);
        QCOMPARE(desk.take(), u"0.4 0.0 0.6 1.0 )"_qs);
        pointer.release();
        pointer.press(handle);
        pointer.moveTo(view.mapFromScene(2, 6.5));
        editor.hide();
        QCOMPARE(desk.take(), u"( 0.2 0.2 0.6 1.0 C)"_qs);
        editor.show();
        pointer.release();
        for (const EasingPreset preset : {EasingPreset::Hold, EasingPreset::Linear}) {
            editor.setEasings({easingOf(EasingPreset::Back), easingOf(EasingPreset::EaseIn)});
            QCOMPARE(editor.presets().currentIndex(), -1); // they differ
            editor.presets().segment(int(preset))->click();
            QCOMPARE(desk.take(), u"( %1 C)"_qs.arg(shown(easingOf(preset))));
            QVERIFY(!editor.easing());
        }
        editor.setEasing(SegmentEasing{false, {qQNaN(), 0}, {1, 1}});
        QCOMPARE(shown(editor.easing()), u"0.0 0.0 1.0 1.0"_qs);
        QTest::keyClick(&view, Qt::Key_Delete);
        QCOMPARE(view.utils()->pointItems(false).size(), std::size_t(2));
        editor.setEasing(SegmentEasing{false, {3, 2}, {0.6, 1}});
        QVERIFY(view.viewport()->rect().contains(view.mapFromScene(10, -2.5)));
        editor.setEasing(easingOf(EasingPreset::EaseInAndOut));
        view.setFocus(Qt::TabFocusReason);
        QCOMPARE(view.accessibleDescription(), u"Time 0.42, change 0"_qs);
        QTest::keyClick(&view, Qt::Key_Tab);
        QCOMPARE(view.accessibleDescription(), u"Time 0.58, change 1"_qs);
        connect(&editor, &EasingEditor::editStarted, &desk, [&] {
            editor.isHidden() ? delete &editor : editor.setEasing({});
        });
        editor.presets().segment(4)->click();
        QCOMPARE(desk.take(), u"( )"_qs);
        editor.setEasing(SegmentEasing());
        editor.hide();
        editor.presets().segment(4)->click();
        QCOMPARE(desk.take(), u"("_qs);
    }
    void numbersThatAreScrubbedAndTypedAreSteps()
    {
        const FakePointerSystem system(morrant::native::PointerSystem::Drive::Moves);
        Desk<KeyFields> desk;
        KeyFields& fields = *desk.control;
        const auto tell = [&](double number) { desk.told << QString::number(number); };
        connect(&fields, &KeyFields::frameEdited, this, tell);
        connect(&fields, &KeyFields::valueEdited, this, tell);
        fields.setKey(40, std::nullopt);
        NumericField& frame = fields.frame();
        QVERIFY(
            frame.isEnabled() && !fields.value().isEnabled() && fields.value().text().isEmpty());
        FakePointer pointer(&frame);
        scrub(pointer, frame);
        const QString scrubbed = desk.take();
        QVERIFY(scrubbed.startsWith(u"( "_qs) && frame.value() > 45);
        QVERIFY(scrubbed.endsWith(u' ' + QString::number(frame.value())));
        QTest::keyClick(&frame, Qt::Key_Escape);
        QCOMPARE(desk.take(), u"40 )"_qs);
        pointer.release();
        fields.setKey(40.5, 100);
        NumericField& value = fields.value();
        value.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&value, Qt::Key_Up); // steps go on until they are entered
        QTest::keyClick(&value, Qt::Key_Up);
        fields.setKey(40.5, 7);
        QCOMPARE(desk.take(), u"( 101 102"_qs);
        fields.finishEditing();
        QCOMPARE(desk.take(), u"102 C)"_qs);
        type(value, u"2*3"_qs);
        QTest::keyClick(&value, Qt::Key_Return);
        QCOMPARE(desk.take(), u"( 6 C)"_qs);
        scrub(pointer, frame);
        fields.finishEditing();
        pointer.dragTo(pointer.position() + QPoint(30, 0));
        pointer.release();
        QCOMPARE(desk.take().count(u'('), 1);
        fields.setKey(40, 5);
        type(frame, {});
        QTest::keyClick(&frame, Qt::Key_Up);
        type(frame, u"40"_qs);
        QTest::keyClick(&frame, Qt::Key_Return);
        QCOMPARE(desk.take(), u"( 41 40 )"_qs);
        QTest::keyClick(&frame, Qt::Key_Up);
        FakePointer other(&value); // ends the step of the former field
        scrub(other, value);
        QVERIFY(desk.take().startsWith(u"( 41 41 C) ( "_qs));
        QTest::keyClick(&frame, Qt::Key_Escape);
        QCOMPARE(desk.take(), u"5 )"_qs);
        other.release();
        bool deletes = false; // in the slot
        connect(&fields, &KeyFields::editStarted, &desk, [&] {
            deletes ? delete &fields : fields.setKey(qQNaN(), {});
        });
        for (const QString& told : {u"( )"_qs, u"("_qs}) {
            fields.setKey(40, 5);
            scrub(pointer, frame);
            QCOMPARE(desk.take(), told);
            pointer.release();
            deletes = true;
        }
    }
};

const Registration<EasingsTest> kRegistration;

#include "tst_easings.moc"
