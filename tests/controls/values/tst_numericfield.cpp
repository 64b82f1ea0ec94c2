// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"
#include "support/FakePointerSystem.h"
#include <MorrantUI/controls/gestures/MouseWrapDragFilter.h>
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/controls/values/NumericField.h>

using ui::test::FakePointerSystem;
using ui::test::kInfinity;
using ui::test::kNaN;
using Drive = morrant::native::PointerSystem::Drive;

namespace {

Qt::KeyboardModifiers gHeldKeys;

/// A floating-point field that is scrubbed from its left end.
struct Panel : ui::test::Bench<NumericField>
{
    explicit Panel(double value = 5.0)
        : Bench({100, 24}, 0.0)
    {
        control->setFieldType(NumericField::FloatingPoint);
        control->setValue(value);
    }

    /// Presses and passes the drag distance.
    void beginScrub()
    {
        press({5, 10});
        scrubTo(0);
    }
    /// Pixels since the drag distance was passed.
    void scrubTo(int distance)
    {
        pointer.moveTo({5 + QApplication::startDragDistance() + distance, 10});
    }
    void scrub(int distance)
    {
        beginScrub();
        scrubTo(distance);
        pointer.release();
    }
};

using Door = std::function<void(Panel&)>;

int takeOverrideCursors()
{
    int count = 0;
    for (; QGuiApplication::overrideCursor(); ++count) {
        QGuiApplication::restoreOverrideCursor();
    }
    return count;
}

} // namespace

class NumericFieldTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        StyledTestCase::init();
        theme().setUsePointerLock(false);
        gHeldKeys = Qt::NoModifier;
        ui::setKeyboardModifiersQuery([] { return gHeldKeys; });
    }
    void cleanup() override
    {
        ui::setKeyboardModifiersQuery({});
        QCOMPARE(takeOverrideCursors(), 0);
        StyledTestCase::cleanup();
    }

    void aSuffixStandsBehindTheNumberAndIsNoneOfItsText()
    {
        NumericField field(50.0);
        field.resize(120, 24);
        const auto rightHalf = [&field] { return field.grab(QRect(40, 2, 60, 20)).toImage(); };
        const QImage bare = rightHalf();
        field.setSuffix(u" of a hundred"_qs);
        QVERIFY(rightHalf() != bare);
        QCOMPARE(field.value(), 50.0);
        field.enterText(u"20+5 of a hundred "_qs);
        QCOMPARE(field.text(), u"25"_qs);
        QAccessibleInterface& read = *QAccessible::queryAccessibleInterface(&field);
        QCOMPARE(read.text(QAccessible::Value), u"25 of a hundred"_qs);
    }

    void limitsAndKindMayComeInAnyOrder()
    {
        NumericField field(0); // the value, not a parent
        const ui::test::SignalRecord record(&field);
        field.setMin(-1e12);
        QCOMPARE(field.getMin(), -2147483648.0);
        field.setFieldType(NumericField::FloatingPoint);
        field.setMax(1e12);
        field.setValue(5e11);
        field.setFieldType(NumericField::Integer); // limits and text stay as they are
        QCOMPARE(field.getMax(), 1e12);
        QCOMPARE(field.text(), u"500000000000.0"_qs);
        field.setValue(field.value());
        QCOMPARE(field.text(), u"500000000000"_qs);

        field.setMin(kNaN);
        field.setSoftMax(kNaN);
        field.setDragMultiplier(kInfinity);
        QCOMPARE(field.getMin(), -2147483648.0);
        QCOMPARE(field.dragMultiplier(), 1.0);
        for (const QString& text : {u"no number"_qs, u"nan"_qs}) {
            field.setText(text);
            QCOMPARE(field.value(), 0.0);
        }
        QCOMPARE(record.signalsSent, 0);
    }

    void anyTextBecomesANumberAtOnceOrTheLastOneComesBack()
    {
        const QString halfAPair = u"4"_qs + QChar(0xd83d); // of surrogates
        const QString last = u"9.0"_qs;
        const std::tuple<QString, const char*, bool> cases[] = {
            {u"1,234"_qs, "1.234", true},
            {u"1 000,5"_qs, "1000.5", true},
            {u"1\u202f000\u00a0000 *\u20092"_qs, "2000000.0", true},
            {u"1,234.5"_qs, "1.234", false},
            {u"12+"_qs, "12.0", false},
            {u"0px"_qs, "0.0", false},
            {u"1/0"_qs, "1.0", false},
            {halfAPair, "4.0", false},
            {u"hello"_qs, "9.0", false}, // and the others have no value at all
            {u" "_qs, "9.0", false},
            {u"nan"_qs, "9.0", false},
            {u"\u0663\u0664"_qs, "9.0", false}, // digits, but not ours
            {QString(20000, u'9'), "9.0", false},
            {QString(20000, u','), "9.0", false}};
        for (const auto& [typed, shown, isGood] : cases) {
            Panel panel(9.0);
            panel.play("in");
            panel.control->insert(typed);
            panel.play("Return");
            QCOMPARE(panel.control->text(), QLatin1String(shown));
            panel.play("Ctrl+Z"); // once
            QCOMPARE(panel.control->text(), last);
            panel.play("Escape out");
            QCOMPARE(panel.control->text(), QLatin1String(shown));
            QCOMPARE(panel.said(), QByteArray(last == QLatin1String(shown) ? "" : "C"));
            const QStringList log = takeLog();
            QCOMPARE(log.size(), isGood ? 0 : 1);
            QVERIFY(isGood || log.front().startsWith(u"error: Inline Expression Error: "_qs));
            QVERIFY(!panel.control->looksInvalid()); // errors are the log's alone
        }
    }

    void tabEditsEverythingAndLeavingEndsTheEdit()
    {
        Panel panel;
        for (const Qt::FocusReason reason : {Qt::TabFocusReason, Qt::BacktabFocusReason}) {
            panel.control->setFocus(reason);
            QVERIFY(!panel.control->isReadOnly());
            QCOMPARE(panel.control->selectedText(), u"5.0"_qs);
            QMenu menu(panel.control); // the field's own leaves it in edit mode, for its Paste
            menu.addAction(u"Paste"_qs);
            menu.popup(panel.control->mapToGlobal(QPoint(5, 5)));
            QVERIFY(QTest::qWaitForWindowExposed(&menu) && !panel.control->isReadOnly());
            menu.close();
            panel.play("out");
            QVERIFY(panel.control->isReadOnly());
        }
        panel.control->setFocus(Qt::OtherFocusReason);
        QVERIFY(panel.control->isReadOnly());
        const QColor rest = panel.control->palette().color(QPalette::Base);
        panel.play("@5,10 up");
        QVERIFY(panel.control->palette().color(QPalette::Base).value() < rest.value());
    }

    void escapeTakesStepsBackWhateverTheHostMakesOfThem()
    {
        Panel panel;
        panel.record.onSignal = [&] { // a host with a limit of its own
            panel.control->setValue(std::min(panel.control->value(), 5.5));
        };
        panel.play("in");
        panel.control->setValue(5.0);
        QCOMPARE(panel.control->selectedText(), u"5.0"_qs); // nothing has changed
        panel.play("Up");
        QCOMPARE(panel.control->text(), u"5.5"_qs);
        panel.play("+1/3 Escape");
        QCOMPARE(panel.control->text(), u"5.0"_qs);
        QCOMPARE(panel.record.signalsSent, 2); // the host follows
        panel.play("Escape");
        QCOMPARE(panel.record.signalsSent, 2);
        panel.play("Up Return");
        QCOMPARE(panel.control->text(), u"5.5"_qs);
        QCOMPARE(panel.said(), QByteArray("sC"));
        panel.record.onSignal = nullptr;
        panel.play("Down");
        panel.control->setValue(4); // by the host, after a step
        panel.play("Escape");
        QCOMPARE(panel.control->text(), u"4.0"_qs);
        QCOMPARE(panel.said(), QByteArray("s"));
    }

    void arrowsKeepTheSelectionAndWinOverShortcuts()
    {
        Panel panel(99.5);
        const QShortcut up(Qt::Key_Up, panel.window.get());
        const QShortcut right(Qt::Key_Right, panel.window.get());
        QSignalSpy activated(&up, &QShortcut::activated);
        QSignalSpy stepped(&right, &QShortcut::activated);
        panel.control->setFocus(Qt::OtherFocusReason); // at rest it has no caret to move
        QTest::keyClick(panel.window->windowHandle(), Qt::Key_Right);
        panel.play("out in");
        QTest::keyClick(panel.window->windowHandle(), Qt::Key_Right);
        QCOMPARE(stepped.size(), 1);
        panel.control->selectAll();
        QTest::keyClick(panel.window->windowHandle(), Qt::Key_Up);
        QCOMPARE(activated.size(), 0);
        QCOMPARE(panel.control->selectedText(), u"100.5"_qs);
        panel.control->setSelection(1, 2);
        panel.play("Down");
        QCOMPARE(panel.control->selectionStart(), 1);
        QCOMPARE(panel.control->selectedText(), u"9."_qs);
    }

    void nothingIsPaintedWithoutAChange()
    {
        Panel panel;
        ui::test::PaintCounter paints(panel.control);
        paints.take();
        panel.control->setValue(5.0001);
        panel.control->setInvalid(false);
        QCOMPARE(paints.take(), 0);
        panel.control->setValue(6);
        panel.control->setValue(7);
        QCOMPARE(paints.take(), 1);
    }

    void aScrubFollowsThePointerFromTheDragDistanceOn()
    {
        Panel panel;
        panel.play("@5,10");
        panel.scrubTo(-1);
        QCOMPARE(panel.record.signalsSent, 0);
        panel.scrubTo(0);
        for (int distance = 1; distance <= 30; ++distance) {
            panel.scrubTo(distance);
        }
        panel.pointer.moveTo(panel.pointer.position() + QPoint(0, 40)); // sideways alone counts
        QCOMPARE(panel.control->value(), 35.0);
        QCOMPARE(panel.record.signalsSent, 1 + 32); // a step for each move, changed or not
        panel.control->setValue(50);                // the next step knows better
        panel.scrubTo(-20);
        QCOMPARE(panel.control->value(), -15.0);
        panel.play("up");
        QCOMPARE(panel.said(), QByteArray("(s)"));
        QVERIFY(panel.control->isReadOnly() && !panel.control->hasSelectedText());
    }

    void aScrubStartsAnewFromWhatIsShown()
    {
        Panel panel(8.0);
        panel.control->setSoftMax(10);
        panel.control->setValue(12.0);
        panel.control->setDragMultiplier(-0.5);
        panel.scrub(-50);
        QCOMPARE(panel.control->value(), 37.0);
        QCOMPARE(panel.control->startValue(), 12.0);
        panel.control->setMax(100);
        panel.control->setText(u"inf"_qs);
        panel.scrub(20);
        QCOMPARE(panel.control->value(), 90.0);

        panel.said();
        panel.control->setFocus(Qt::OtherFocusReason); // at rest
        panel.play("Down");
        panel.scrub(-2); // commits the step before it
        QCOMPARE(panel.said(), QByteArray("sC(s)"));
        panel.play("Escape out");
        QCOMPARE(panel.control->text(), u"91.5"_qs);
        QCOMPARE(panel.said(), QByteArray());
    }

    void modifiersRescaleTheWholeDistance()
    {
        Panel panel(0.0);
        panel.beginScrub();
        panel.play("[Shift]"); // what the event says does not count
        const std::tuple<Qt::KeyboardModifiers, int, double> steps[] = {
            {Qt::NoModifier, 21, 21.0},
            {Qt::ShiftModifier, 22, 220.0},
            {Qt::ShiftModifier | Qt::ControlModifier, 23, 2.3}};
        for (const auto& [held, distance, expected] : steps) {
            gHeldKeys = held;
            panel.scrubTo(distance);
            QCOMPARE(panel.control->value(), expected);
        }
        panel.play("up");
    }

    void aLeftClickInsideEditsWhereItFell()
    {
        Panel panel(1234.0);
        NumericField& field = *panel.control;
        const QPoint place(25, 10);
        panel.click(place);
        QCOMPARE(field.cursorPosition(), field.cursorPositionAt(place));
        QVERIFY(!field.isReadOnly() && field.hasFocus());
        QVERIFY(field.cursorPosition() > 0 && !field.hasSelectedText());
        panel.play("Return"); // nothing changed, but the edit is over
        QVERIFY(field.isReadOnly() && !field.hasFocus());
        QCOMPARE(panel.said(), QByteArray());

        field.setContextMenuPolicy(Qt::NoContextMenu);
        panel.pointer.press(Qt::RightButton);
        panel.pointer.release(Qt::RightButton);
        QCOMPARE(takeLog(), QStringList{u"debug: right click"_qs});
        panel.play("@1,1 ~-3,1 up");
        panel.beginScrub(); // which the right button may end, but not wedge
        panel.pointer.press(Qt::RightButton);
        panel.play("up");
        panel.pointer.release(Qt::RightButton);
        QCOMPARE(takeLog().size(), 1);
        QCOMPARE(panel.said(), QByteArray("(s)"));
        QVERIFY(field.isReadOnly());

        panel.beginScrub();
        field.setEnabled(false);
        panel.play("@20,10 up");
        QVERIFY(field.isReadOnly());
        field.setEnabled(true); // it has not seen the release
        panel.play("@20,10 up");
        QVERIFY(!field.isReadOnly());
        panel.play("in @5,10 out up");
        QVERIFY(field.isReadOnly());
    }

    void aQuickSecondPressDragsAgain()
    {
        Panel panel;
        panel.scrub(1);
        const auto at = [](int distance) {
            return QPoint(5 + QApplication::startDragDistance() + distance, 10);
        };
        QTest::mouseDClick(panel.control, Qt::LeftButton, {}, {5, 10});
        QTest::mouseMove(panel.control, at(0));
        QTest::mouseMove(panel.control, at(2));
        QTest::mouseRelease(panel.control, Qt::LeftButton, {}, at(2));
        QCOMPARE(panel.control->value(), 8.0);
        QCOMPARE(panel.said(), QByteArray("(s)(s)"));
    }

    void inEditModeTheMouseSelectsText()
    {
        Panel panel(1234.0);
        const Door ways[] = {
            [](Panel& one) { one.play("in"); },
            [](Panel& one) { one.click(QPoint(90, 10)); },
            [](Panel& one) { one.control->setReadOnly(false); }, // by the host
            [](Panel& one) {
                one.control->setReadOnly(false);
                one.control->setUsePointerLock(false); // a new filter keeps to the mode
            }};
        for (const Door& enter : ways) {
            panel.play("out");
            enter(panel);
            panel.scrub(60);
            QVERIFY(panel.control->hasSelectedText());
            QCOMPARE(panel.control->text(), u"1234.0"_qs);
        }
        QCOMPARE(panel.said(), QByteArray());
        panel.control->setReadOnly(true);
        panel.scrub(6);
        QCOMPARE(panel.control->text(), u"1240.0"_qs);
    }

    /// The field's own doors, and two of those that all gestures have.
    void everyDoorEndsADragAndNoneButTheReleaseIsAClick()
    {
        const std::pair<const char*, Door> doors[] = {
            {"release", [](Panel& panel) { panel.pointer.release(); }},
            {"delete the window", [](Panel& panel) { panel.window.reset(); }},
            {"other pointer lock", [](Panel& panel) { panel.control->setUsePointerLock(false); }},
            {"theme's pointer lock", [this](Panel&) { theme().setUsePointerLock(true); }},
            {"context menu",
             [](Panel& panel) { Q_EMIT panel.control->customContextMenuRequested({}); }},
            {"escape",
             [](Panel& panel) { QTest::keyClick(panel.window->windowHandle(), Qt::Key_Escape); }}};
        for (const auto& [name, leave] : doors) {
            FakePointerSystem system(Drive::Warps);
            QApplication::setOverrideCursor(Qt::WaitCursor); // the host's own, to be left alone
            Panel panel;
            panel.control->setUsePointerLock(true);
            panel.beginScrub();
            panel.scrubTo(3);
            QCOMPARE(system.hides, 1);
            QVERIFY(QApplication::overrideCursor()->shape() != Qt::WaitCursor);
            leave(panel);
            const bool goesBack = name == QByteArray("escape");
            QCOMPARE(panel.said(), QByteArray("(s)"));
            QVERIFY(system.isFree());
            const QCursor* cursor = QApplication::overrideCursor();
            QVERIFY(cursor && cursor->shape() == Qt::WaitCursor);
            QCOMPARE(takeOverrideCursors(), 1);
            theme().setUsePointerLock(false);
            if (!panel.control) {
                continue;
            }
            panel.scrubTo(9); // what comes late moves nothing
            panel.play("up");
            QCOMPARE(panel.control->value(), goesBack ? 5.0 : 8.0);
            panel.play("in out"); // for the context menu, which leaves the field in edit mode
            panel.scrub(1);       // and the next drag does
            QCOMPARE(panel.control->value(), goesBack ? 6.0 : 9.0);
            QCOMPARE(panel.said(), QByteArray("(s)"));

            panel.play("@5,10");
            leave(panel);
            panel.play("up");
            const bool isClick = !panel.control->isReadOnly() && panel.control->hasFocus();
            QCOMPARE(isClick, name == QByteArray("release"));
            theme().setUsePointerLock(false);
        }
    }

    void theThemesPointerLockIsFollowed()
    {
        FakePointerSystem system(Drive::Warps);
        Panel panel; // made while it was off
        for (const bool lock : {false, true, false, true}) {
            theme().setUsePointerLock(lock);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCOMPARE(panel.control->findChildren<MouseWrapDragFilter*>().size(), 1);
            panel.beginScrub();
            QCOMPARE(system.hides, lock ? 1 : 0);
            panel.play("up");
        }
    }

    void theCursorTellsTheMode()
    {
        Panel panel;
        NumericField& field = *panel.control;
        const auto cursorOnEnter = [&] {
            QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
            QCoreApplication::sendEvent(&field, &enter);
            return field.cursor();
        };
        const QCursor scrub = cursorOnEnter();
        QCOMPARE(scrub.shape(), Qt::BitmapCursor);
        panel.play("@5,10 up");
        QCOMPARE(field.cursor().shape(), Qt::IBeamCursor);
        QCOMPARE(cursorOnEnter().shape(), Qt::IBeamCursor);
        panel.play("out");
        QCOMPARE(field.cursor(), scrub);
        field.setFocus(Qt::OtherFocusReason); // at rest
        QCOMPARE(field.cursor().shape(), Qt::IBeamCursor);
        QCOMPARE(cursorOnEnter(), scrub);
        panel.play("@5,10 up");
        QCOMPARE(field.cursor().shape(), Qt::IBeamCursor);
        panel.play("out");
        panel.beginScrub();
        panel.play("in"); // too late to edit
        QVERIFY(field.isReadOnly());
        panel.play("up");
        field.setEnabled(false);
        QCOMPARE(cursorOnEnter().shape(), Qt::PointingHandCursor);
    }
};

const ui::test::Registration<NumericFieldTest> kRegistration;

#include "tst_numericfield.moc"
