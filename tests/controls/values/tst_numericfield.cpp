// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"
#include "support/FakePointerSystem.h"

using namespace ui::test;
using Drive = morrant::native::PointerSystem::Drive;

namespace {

/// A floating-point field that is scrubbed from its left end.
struct Panel : Bench<NumericField>
{
    explicit Panel(double value = 5.0)
        : Bench({100, 24}, 0.0)
    {
        control->setFieldType(NumericField::FloatingPoint);
        control->setValue(value);
    }
};

using Door = std::function<void(Panel&)>;

} // namespace

class NumericFieldTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        StyledTestCase::init();
        theme().setUsePointerLock(false);
    }
    void cleanup() override
    {
        QVERIFY(takeCursors().isEmpty());
        StyledTestCase::cleanup();
    }

    void aSuffixStandsBehindTheNumberAndIsNoneOfItsText()
    {
        NumericField field(50.0);
        field.resize(120, 24);
        const auto rightHalf = [&field] { return field.grab(QRect(40, 2, 60, 20)).toImage(); };
        const QImage bare = rightHalf();
        field.setSuffix(u" of a hundred"_qs);
        const QImage behind = rightHalf();
        QVERIFY(behind != bare);
        field.setLayoutDirection(Qt::RightToLeft); // numbers go on from left to right
        QCOMPARE(rightHalf(), behind);
        QCOMPARE(field.value(), 50.0);
        field.enterText(u"20+5 of a hundred "_qs);
        QCOMPARE(field.text(), u"25"_qs);
        QCOMPARE(accessible(&field).text(QAccessible::Value), u"25 of a hundred"_qs);
    }

    void limitsAndKindMayComeInAnyOrder()
    {
        NumericField field(0); // the value, not a parent
        const SignalRecord record(&field);
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
            panel.follow({{"Return", qstrcmp(shown, "9.0") == 0 ? "" : "C", shown}});
            panel.follow({{"Ctrl+Z", "", "9.0"}, {"Escape out", "", shown}});
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
        panel.follow(
            {{"Up", "s", "5.5"},
             {"+1/3 Escape", "s", "5.0"}, // the host follows
             {"Escape", "", "5.0"},
             {"Up Return", "sC", "5.5"}});
        panel.record.onSignal = nullptr;
        panel.follow({{"Down", "s", "4.5"}});
        panel.control->setValue(4); // by the host, after a step
        panel.follow({{"Escape", "", "4.0"}});
    }

    void arrowsKeepTheSelectionAndWinOverShortcuts()
    {
        Panel panel(99.5);
        const QShortcut up(Qt::Key_Up, panel.window.get());
        const QShortcut right(Qt::Key_Right, panel.window.get());
        QSignalSpy activated(&up, &QShortcut::activated);
        QSignalSpy stepped(&right, &QShortcut::activated);
        panel.control->setFocus(Qt::OtherFocusReason); // at rest it has no caret to move
        panel.play("^Right out in ^Right");
        QCOMPARE(stepped.size(), 1);
        panel.control->selectAll();
        panel.play("^Up");
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
        PaintCounter paints(panel.control);
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
        panel.follow({{"@5,10 |-1", "", "5.0"}});
        for (int distance = 0; distance <= 30; ++distance) {
            panel.play(qPrintable(u'|' + QString::number(distance)));
        }
        panel.pointer.moveTo(panel.pointer.position() + QPoint(0, 40)); // sideways alone counts
        QCOMPARE(panel.record.signalsSent, 1 + 32); // a step for each move, changed or not
        panel.follow({{"", "(s", "35.0"}});
        panel.control->setValue(50); // the next step knows better
        panel.follow({{"|-20", "s", "-15.0"}, {"up", ")"}});
        QVERIFY(panel.control->isReadOnly() && !panel.control->hasSelectedText());
    }

    void aScrubStartsAnewFromWhatIsShown()
    {
        Panel panel(8.0);
        panel.control->setSoftMax(10);
        panel.control->setValue(12.0);
        panel.control->setDragMultiplier(-0.5);
        panel.follow({{"@5,10 |0 |-50 up", "(s)", "37.0"}});
        QCOMPARE(panel.control->startValue(), 12.0);
        panel.control->setMax(100);
        panel.control->setText(u"inf"_qs);
        panel.follow({{"@5,10 |0 |20 up", "(s)", "90.0"}});
        panel.control->setFocus(Qt::OtherFocusReason); // at rest
        panel.follow(
            {{"Down @5,10 |0 |-2 up", "sC(s)"}, // commits the step before it
             {"Escape out", "", "91.5"}});
    }

    void modifiersRescaleTheWholeDistance()
    {
        Panel panel(0.0);
        panel.pointer.hold(Qt::NoModifier);
        panel.follow({{"@5,10 |0 [Shift] |21", "(s", "21.0"}}); // whatever the event says
        panel.pointer.hold(Qt::ShiftModifier);
        panel.follow({{"|22", "s", "220.0"}});
        panel.pointer.hold(Qt::ShiftModifier | Qt::ControlModifier);
        panel.follow({{"|23 up", "s)", "2.3"}});
    }

    void aLeftClickInsideEditsWhereItFell()
    {
        Panel panel(1234.0);
        NumericField& field = *panel.control;
        panel.play("@25,10 up");
        QCOMPARE(field.cursorPosition(), field.cursorPositionAt({25, 10}));
        QVERIFY(!field.isReadOnly() && field.hasFocus());
        QVERIFY(field.cursorPosition() > 0 && !field.hasSelectedText());
        panel.follow({{"Return", "", "1234.0"}}); // nothing changed, but the edit is over
        QVERIFY(field.isReadOnly() && !field.hasFocus());

        field.setContextMenuPolicy(Qt::NoContextMenu);
        panel.pointer.press(Qt::RightButton);
        panel.pointer.release(Qt::RightButton);
        QCOMPARE(takeLog(), QStringList{u"debug: right click"_qs});
        panel.play("@1,1 ~-3,1 up");
        panel.play("@5,10 |0"); // which the right button may end, but not wedge
        panel.pointer.press(Qt::RightButton);
        panel.play("up");
        panel.pointer.release(Qt::RightButton);
        QCOMPARE(takeLog().size(), 1);
        QCOMPARE(panel.said(), QByteArray("(s)"));
        QVERIFY(field.isReadOnly());

        panel.play("@5,10 |0");
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
        panel.play("@5,10 |0 |1 up");
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
            panel.follow({{"@5,10 |0 |60 up", "", "1234.0"}});
            QVERIFY(panel.control->hasSelectedText());
        }
        panel.control->setReadOnly(true);
        panel.follow({{"@5,10 |0 |6 up", "(s)", "1240.0"}});
    }

    /// The field's own doors, and two of those that all gestures have.
    void everyDoorEndsADragAndNoneButTheReleaseIsAClick()
    {
        const std::pair<const char*, Door> doors[] = {
            {"release", [](Panel& panel) { panel.pointer.release(); }},
            {"the host", [](Panel& panel) { panel.control->finishDrag(); }},
            {"delete the window", [](Panel& panel) { panel.window.reset(); }},
            {"other pointer lock", [](Panel& panel) { panel.control->setUsePointerLock(false); }},
            {"theme's pointer lock", [this](Panel&) { theme().setUsePointerLock(true); }},
            {"context menu",
             [](Panel& panel) { Q_EMIT panel.control->customContextMenuRequested({}); }},
            {"escape", [](Panel& panel) { panel.play("^Escape"); }}};
        for (const auto& [name, leave] : doors) {
            FakePointerSystem system(Drive::Warps);
            QApplication::setOverrideCursor(Qt::WaitCursor); // the host's own, to be left alone
            Panel panel;
            panel.control->setUsePointerLock(true);
            panel.play("@5,10 |0 |3");
            QCOMPARE(system.hides, 1);
            QVERIFY(QApplication::overrideCursor()->shape() != Qt::WaitCursor);
            leave(panel);
            const bool goesBack = name == QByteArray("escape");
            QCOMPARE(panel.said(), QByteArray("(s)"));
            QVERIFY(system.isFree());
            QCOMPARE(takeCursors(), QList{Qt::WaitCursor});
            theme().setUsePointerLock(false);
            if (!panel.control) {
                continue;
            }
            panel.follow({{"|9 up", "", goesBack ? "5.0" : "8.0"}}); // what is late moves nothing
            // The context menu leaves the field in edit mode, but not the next drag.
            panel.follow({{"in out @5,10 |0 |1 up", "(s)", goesBack ? "6.0" : "9.0"}});

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
            panel.play("@5,10 |0");
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
        const auto cursorAfter = [&](const char* script) {
            panel.play(script);
            return field.cursor();
        };
        const QCursor scrub = cursorOnEnter();
        const QCursor text(Qt::IBeamCursor);
        QCOMPARE(scrub.shape(), Qt::BitmapCursor);
        QCOMPARE(cursorAfter("@5,10 up"), text);
        QCOMPARE(cursorOnEnter(), text);
        QCOMPARE(cursorAfter("out"), scrub);
        field.setFocus(Qt::OtherFocusReason); // at rest
        QCOMPARE(field.cursor(), text);
        QCOMPARE(cursorOnEnter(), scrub);
        QCOMPARE(cursorAfter("@5,10 up"), text);
        panel.play("out");
        panel.play("@5,10 |0 in"); // too late to edit
        QVERIFY(field.isReadOnly());
        panel.play("up");
        field.setEnabled(false);
        QCOMPARE(cursorOnEnter().shape(), Qt::PointingHandCursor);
    }
};

const Registration<NumericFieldTest> kRegistration;

#include "tst_numericfield.moc"
