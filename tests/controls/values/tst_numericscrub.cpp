#include "controls/StyledApplication.h"
#include "controls/values/NumericPanel.h"
#include "support/FakePointerSystem.h"
#include <MorrantUI/controls/gestures/MouseWrapDragFilter.h>
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/controls/gestures/nativemouse.h>

#include <QEnterEvent>

#include <functional>

using Panel = ui::test::NumericPanel;
using Drive = morrant::native::PointerSystem::Drive;
using Door = std::function<void(Panel&)>;
using ui::test::FakePointerSystem;
using ui::test::kOneDrag;

namespace {

Qt::KeyboardModifiers gHeldKeys;

int takeOverrideCursors()
{
    int count = 0;
    while (QGuiApplication::overrideCursor()) {
        QGuiApplication::restoreOverrideCursor();
        ++count;
    }
    return count;
}

void pressEscape(Panel& panel)
{
    QTest::keyClick(panel.window->windowHandle(), Qt::Key_Escape);
}

} // namespace

class NumericScrubTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init() override;
    void cleanup() override;

    void aScrubFollowsThePointerFromTheDragDistanceOn();
    void aScrubStartsAnewFromWhatIsShown();
    void aScrubCommitsTheStepsBeforeIt();
    void modifiersRescaleTheWholeDistance();
    void aClickEditsWhereItFell();
    void onlyALeftReleaseInsideIsAClick();
    void aQuickSecondPressDragsAgain();
    void inEditModeTheMouseSelectsText();

    void everyDoorEndsADragAndNoneButTheReleaseIsAClick_data();
    void everyDoorEndsADragAndNoneButTheReleaseIsAClick();
    void aSlotMayDeleteTheFieldOrReplaceItsFilterAtAnyMoment();
    void aContextMenuCancelsEverything();
    void theThemesPointerLockIsFollowed();
    void theCursorTellsTheMode();
};

void NumericScrubTest::init()
{
    StyledTestCase::init();
    theme().setUsePointerLock(false);
    gHeldKeys = Qt::NoModifier;
    ui::setKeyboardModifiersQuery([] { return gHeldKeys; });
}

void NumericScrubTest::cleanup()
{
    ui::setKeyboardModifiersQuery({});
    QCOMPARE(takeOverrideCursors(), 0);
    StyledTestCase::cleanup();
}

void NumericScrubTest::aScrubFollowsThePointerFromTheDragDistanceOn()
{
    Panel panel;
    panel.press();
    panel.scrubTo(-1);
    QCOMPARE(panel.drags.size(), 0);
    panel.scrubTo(0);
    QCOMPARE(panel.drags, QList<QVariantList>{{true}});
    for (int distance = 1; distance <= 30; ++distance) {
        panel.scrubTo(distance);
    }
    panel.pointer.moveTo(panel.pointer.position() + QPoint(0, 40)); // sideways alone counts
    QCOMPARE(panel.field->value(), 35.0);
    QCOMPARE(panel.values, QList<QVariantList>(32, {false})); // one a move, changed or not
    panel.field->setValue(50);                                // the next step knows better
    panel.scrubTo(-20);
    QCOMPARE(panel.field->value(), -15.0);
    panel.pointer.release();
    QCOMPARE(panel.drags, kOneDrag);
    QVERIFY(panel.field->isReadOnly() && !panel.field->hasSelectedText());
}

void NumericScrubTest::aScrubStartsAnewFromWhatIsShown()
{
    Panel panel(8.0);
    panel.field->setSoftMax(10);
    panel.scrub(50);
    QCOMPARE(panel.field->value(), 10.0);
    panel.field->setValue(12.0);
    panel.field->setDragMultiplier(-0.5);
    panel.scrub(-50);
    QCOMPARE(panel.field->value(), 37.0);
    QCOMPARE(panel.field->startValue(), 12.0);
    panel.field->setMax(100);
    panel.field->setText(u"inf"_qs);
    panel.scrub(20);
    QCOMPARE(panel.field->value(), 90.0);
}

void NumericScrubTest::aScrubCommitsTheStepsBeforeIt()
{
    Panel panel;
    panel.field->setFocus(Qt::OtherFocusReason); // at rest
    panel.key(Qt::Key_Up);
    panel.scrub(20);
    QCOMPARE(panel.values, (QList<QVariantList>{{false}, {true}, {false}, {false}}));
    panel.key(Qt::Key_Escape);
    QCOMPARE(panel.field->text(), u"26.0"_qs);
    panel.other->setFocus();
    QCOMPARE(panel.values.size(), 4);
}

void NumericScrubTest::modifiersRescaleTheWholeDistance()
{
    Panel panel(0.0);
    panel.beginScrub();
    panel.pointer.setModifiers(Qt::ShiftModifier); // what the event says does not count
    int distance = 20;
    for (const auto& [held, expected] : QList<std::pair<Qt::KeyboardModifiers, double>>{
             {Qt::NoModifier, 21.0},
             {Qt::ShiftModifier, 220.0},
             {Qt::ShiftModifier | Qt::ControlModifier, 2.3}})
    {
        gHeldKeys = held;
        panel.scrubTo(++distance);
        QCOMPARE(panel.field->value(), expected);
    }
    panel.pointer.release();
}

void NumericScrubTest::aClickEditsWhereItFell()
{
    Panel panel(1234.0);
    const QPoint place(25, 10);
    panel.click(place);
    QCOMPARE(panel.field->cursorPosition(), panel.field->cursorPositionAt(place));
    QVERIFY(!panel.field->isReadOnly() && panel.field->hasFocus());
    QVERIFY(panel.field->cursorPosition() > 0 && !panel.field->hasSelectedText());
    panel.key(Qt::Key_Return); // nothing changed, but the edit is over
    QVERIFY(panel.field->isReadOnly() && !panel.field->hasFocus());
    QCOMPARE(panel.drags.size() + panel.values.size(), 0);
}

void NumericScrubTest::onlyALeftReleaseInsideIsAClick()
{
    Panel panel;
    panel.field->setContextMenuPolicy(Qt::NoContextMenu);
    const auto rightClick = [&panel] {
        panel.pointer.press(Qt::RightButton);
        panel.pointer.release(Qt::RightButton);
    };
    rightClick();
    QCOMPARE(takeLog(), QStringList{u"debug: right click"_qs});
    panel.press({1, 1});
    panel.pointer.moveTo({-3, 1});
    panel.pointer.release();

    panel.beginScrub(); // which the right button may end, but not wedge
    rightClick();
    panel.pointer.release();
    QCOMPARE(takeLog().size(), 1);
    QCOMPARE(panel.drags, kOneDrag);
    QVERIFY(panel.field->isReadOnly());

    panel.beginScrub();
    panel.field->setEnabled(false);
    panel.click({20, 10});
    QVERIFY(panel.field->isReadOnly());
    panel.field->setEnabled(true); // it has not seen the release
    panel.click({20, 10});
    QVERIFY(!panel.field->isReadOnly());

    panel.enterByTab();
    panel.press();
    panel.other->setFocus();
    panel.pointer.release();
    QVERIFY(panel.field->isReadOnly());
}

void NumericScrubTest::aQuickSecondPressDragsAgain()
{
    Panel panel;
    panel.scrub(1);
    const QPointF at(5, 10);
    const QPointF global = panel.field->mapToGlobal(at);
    QMouseEvent second(
        QEvent::MouseButtonDblClick, at, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(panel.field, &second);
    panel.scrubTo(0);
    panel.scrubTo(2);
    QTest::mouseRelease(panel.field, Qt::LeftButton);
    QCOMPARE(panel.field->value(), 8.0);
    QCOMPARE(panel.drags, kOneDrag + kOneDrag);
}

void NumericScrubTest::inEditModeTheMouseSelectsText()
{
    Panel panel(1234.0);
    const Door ways[] = {
        [](Panel& one) { one.enterByTab(); },
        [](Panel& one) { one.click(QPoint(90, 10)); },
        [](Panel& one) { one.field->setReadOnly(false); }, // by the host
        [](Panel& one) {
            one.field->setReadOnly(false);
            one.field->setUsePointerLock(false); // a new filter keeps to the mode
        }};
    for (const Door& enter : ways) {
        panel.other->setFocus();
        enter(panel);
        panel.scrub(60);
        QVERIFY(panel.field->hasSelectedText());
        QCOMPARE(panel.field->text(), u"1234.0"_qs);
    }
    QCOMPARE(panel.drags.size(), 0);
    panel.field->setReadOnly(true);
    panel.scrub(6);
    QCOMPARE(panel.field->text(), u"1240.0"_qs);
}

/// The field's own doors, and a few of those that all drags have: these are MouseWrapDragTest's.
void NumericScrubTest::everyDoorEndsADragAndNoneButTheReleaseIsAClick_data()
{
    QTest::addColumn<Door>("leave");
    const auto add = [](const char* name, const Door& leave) { QTest::newRow(name) << leave; };
    add("release", [](Panel& panel) { panel.pointer.release(); });
    add("hide", [](Panel& panel) { panel.field->hide(); });
    add("disable the window", [](Panel& panel) { panel.window->setEnabled(false); });
    add("delete", [](Panel& panel) { delete panel.field; });
    add("delete the window", [](Panel& panel) { panel.window.reset(); });
    add("other pointer lock", [](Panel& panel) { panel.field->setUsePointerLock(false); });
    add("theme's pointer lock", [this](Panel&) { theme().setUsePointerLock(true); });
    add("context menu", [](Panel& panel) { Q_EMIT panel.field->customContextMenuRequested({}); });
    add("escape", pressEscape);
}

void NumericScrubTest::everyDoorEndsADragAndNoneButTheReleaseIsAClick()
{
    QFETCH(const Door, leave);
    FakePointerSystem system(Drive::Warps);
    QApplication::setOverrideCursor(Qt::WaitCursor); // the host's own, which must be left alone
    Panel panel;
    panel.field->setUsePointerLock(true);
    panel.beginScrub();
    panel.scrubTo(3);
    QCOMPARE(system.hides, 1);
    QCOMPARE(panel.drags, QList<QVariantList>{{true}});
    QVERIFY(QApplication::overrideCursor()->shape() != Qt::WaitCursor);

    leave(panel);
    QCOMPARE(panel.drags, kOneDrag);
    QVERIFY(system.isFree());
    const QCursor* cursor = QApplication::overrideCursor();
    QVERIFY(cursor && cursor->shape() == Qt::WaitCursor);
    QCOMPARE(takeOverrideCursors(), 1);
    theme().setUsePointerLock(false);
    if (!panel.field) {
        return;
    }
    const auto undo = [&] {
        panel.field->show();
        panel.window->setEnabled(true);
    };
    undo();
    panel.scrubTo(9); // what comes late moves nothing
    panel.pointer.release();
    QCOMPARE(panel.field->value(), 8.0);
    panel.enterByTab(); // for the context menu, which leaves the field in edit mode
    panel.other->setFocus();
    panel.scrub(1); // and the next drag does
    QCOMPARE(panel.field->value(), 9.0);
    QCOMPARE(panel.drags, kOneDrag + kOneDrag);

    panel.press();
    leave(panel);
    undo();
    const bool isClick = !panel.field->isReadOnly() && panel.field->hasFocus();
    const bool isAtRest = panel.field->isReadOnly(); // else for the menu's Paste
    panel.pointer.release();
    QCOMPARE(isClick, QLatin1String(QTest::currentDataTag()) == QLatin1String("release"));
    QCOMPARE(panel.field->isReadOnly(), isAtRest);
    QCOMPARE(panel.field->hasFocus(), isClick);
    theme().setUsePointerLock(false);
}

void NumericScrubTest::aSlotMayDeleteTheFieldOrReplaceItsFilterAtAnyMoment()
{
    for (const QByteArray moment : {"begin", "step", "commit", "end"}) {
        for (const bool deletes : {true, false}) {
            Panel panel;
            const auto act = [&](bool isMoment) {
                if (isMoment) {
                    deletes ? delete panel.field.data() : panel.field->setUsePointerLock(false);
                }
            };
            connect(panel.field, &LineEdit::valueChanged, this, [&](bool committed) {
                act(moment == (committed ? "commit" : "step"));
            });
            connect(panel.field, &NumericField::dragStateChanged, this, [&](bool dragging) {
                act(moment == (dragging ? "begin" : "end"));
            });
            if (moment == "commit") { // of a step before
                panel.field->setFocus(Qt::OtherFocusReason);
                panel.key(Qt::Key_Up);
            }
            panel.beginScrub();
            if (moment == "end" && deletes) {
                theme().setUsePointerLock(false); // makes a new filter
            }
            panel.scrubTo(7);
            panel.pointer.release();
            QCOMPARE(panel.field.isNull(), deletes);
            QCOMPARE(panel.drags, moment == "commit" ? QList<QVariantList>() : kOneDrag);
        }
    }
    for (const bool inEditMode : {false, true}) { // by a slot of another field
        Panel panel;
        panel.field->setReadOnly(!inEditMode);
        auto* source = new LineEdit(panel.window.get());
        source->setGeometry(150, 10, 100, 24);
        source->show();
        source->setFocus();
        QTest::keyClicks(source, u"x"_qs);
        connect(source, &LineEdit::valueChanged, this, [&] { delete panel.field.data(); });
        panel.click({5, 10});
        QVERIFY(!panel.field);
    }
}

void NumericScrubTest::aContextMenuCancelsEverything()
{
    FakePointerSystem system(Drive::Warps);
    Panel panel;
    hideNativeMouse();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    panel.enterByTab();
    QTest::keyClicks(panel.field, u"6"_qs);
    Q_EMIT panel.field->customContextMenuRequested({});
    QCOMPARE(takeOverrideCursors(), 1);
    QCOMPARE(panel.values, QList<QVariantList>{{true}});
    QCOMPARE(panel.drags, QList<QVariantList>{{false}});
    QCOMPARE(panel.field->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(!panel.field->isReadOnly() && !panel.field->hasFocus());
    QVERIFY(!panel.field->findChild<MouseWrapDragFilter*>()->isEnabled());
    QCOMPARE(system.hides, 0);

    panel.click({20, 10}); // the field looks editable, so it is
    QVERIFY(panel.field->hasFocus() && !panel.field->isReadOnly());
    panel.key(Qt::Key_Return);
    panel.scrub(1);
    QCOMPARE(panel.field->value(), 7.0);
}

void NumericScrubTest::theThemesPointerLockIsFollowed()
{
    FakePointerSystem system(Drive::Warps);
    Panel panel;
    const auto hidesInADrag = [&] {
        panel.beginScrub();
        const int hides = system.hides;
        panel.pointer.release();
        return hides;
    };
    QCOMPARE(hidesInADrag(), 0); // off since before the field was made
    for (const bool lock : {true, false, true}) {
        theme().setUsePointerLock(lock);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(panel.field->findChildren<MouseWrapDragFilter*>().size(), 1);
        QCOMPARE(hidesInADrag(), lock ? 1 : 0);
    }
}

void NumericScrubTest::theCursorTellsTheMode()
{
    Panel panel;
    const auto cursorOnEnter = [&] {
        QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
        QCoreApplication::sendEvent(panel.field, &enter);
        return panel.field->cursor();
    };
    const QCursor scrub = cursorOnEnter();
    QCOMPARE(scrub.shape(), Qt::BitmapCursor);
    const QSizeF size = scrub.pixmap().deviceIndependentSize();
    QCOMPARE(scrub.hotSpot(), QPoint(int(size.width()) / 2, int(size.height()) / 2));
    panel.click({5, 10});
    QCOMPARE(panel.field->cursor().shape(), Qt::IBeamCursor);
    QCOMPARE(cursorOnEnter().shape(), Qt::IBeamCursor);
    panel.other->setFocus();
    QCOMPARE(panel.field->cursor(), scrub);
    panel.field->setFocus(Qt::OtherFocusReason); // at rest
    QCOMPARE(panel.field->cursor().shape(), Qt::IBeamCursor);
    panel.beginScrub();
    panel.enterByTab(); // too late to edit
    QVERIFY(panel.field->isReadOnly());
    panel.pointer.release();
    panel.field->setEnabled(false);
    QCOMPARE(cursorOnEnter().shape(), Qt::PointingHandCursor);
}

/// In a host that has not built its theme yet.
class NumericScrubWithoutThemeTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void thePointerIsLocked();
};

void NumericScrubWithoutThemeTest::thePointerIsLocked()
{
    FakePointerSystem system(Drive::Warps);
    Panel panel;
    panel.beginScrub();
    QCOMPARE(system.hides, 1);
    panel.pointer.release();
}

const ui::test::Registration<NumericScrubWithoutThemeTest> kNoThemeRegistration(
    ui::test::RunOrder::First);
const ui::test::Registration<NumericScrubTest> kRegistration;

#include "tst_numericscrub.moc"
