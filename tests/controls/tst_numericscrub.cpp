#include "controls/NumericPanel.h"
#include "controls/StyledApplication.h"
#include "support/FakePointerSystem.h"
#include "support/RealPointer.h"
#include "support/TestCase.h"
#include <MorrantUI/controls/MouseWrapDragFilter.h>
#include <MorrantUI/controls/modifiers.h>
#include <MorrantUI/controls/nativemouse.h>

#include <QDialog>
#include <QEnterEvent>
#include <QMenu>
#include <QProxyStyle>
#include <QShortcut>

#include <functional>
#include <vector>

using Panel = ui::test::NumericPanel;
using Drive = morrant::native::PointerSystem::Drive;
using ui::test::FakePointerSystem;
using ui::test::kOneDrag;

Q_DECLARE_METATYPE(Drive)

namespace {

VisualDesignBase* gTheme = nullptr;
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

void send(Panel& panel, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(panel.window.get(), &event);
}

/// A way in which a drag comes to its end.
struct Door
{
    const char* name;
    std::function<void(Panel&)> leave;
};

void reparent(Panel& panel)
{
    QWidget other;
    panel.field->setParent(&other);
    panel.field->setParent(panel.window.get());
}

void showDialog(Panel& panel)
{
    QDialog dialog(panel.window.get());
    dialog.setModal(true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
}

void showMenu(Panel& panel)
{
    QMenu menu(panel.window.get());
    menu.addAction(QStringLiteral("Entry"));
    menu.popup({0, 0});
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
}

void leaveApplication(Panel&)
{
    QEvent away(QEvent::ApplicationDeactivate);
    QCoreApplication::sendEvent(qApp, &away);
}

void pressEscape(Panel& panel)
{
    QTest::keyClick(panel.window->windowHandle(), Qt::Key_Escape);
}

const std::vector<Door>& doors()
{
    static const std::vector<Door> all{
        {"release", [](Panel& panel) { panel.pointer.release(); }},
        {"hide", [](Panel& panel) { panel.field->hide(); }},
        {"disable", [](Panel& panel) { panel.field->setEnabled(false); }},
        {"disable the window", [](Panel& panel) { panel.window->setEnabled(false); }},
        {"delete", [](Panel& panel) { delete panel.field; }},
        {"delete the window", [](Panel& panel) { panel.window.reset(); }},
        {"close the window", [](Panel& panel) { panel.window->close(); }},
        {"re-parent", reparent},
        {"modal dialog", showDialog},
        {"menu", showMenu},
        {"another window", [](Panel& panel) { send(panel, QEvent::WindowDeactivate); }},
        {"another application", leaveApplication},
        {"other pointer lock", [](Panel& panel) { panel.field->setUsePointerLock(false); }},
        {"theme's pointer lock", [](Panel&) { gTheme->setUsePointerLock(true); }},
        {"context menu", [](Panel& panel) { Q_EMIT panel.field->customContextMenuRequested({}); }},
        {"escape", pressEscape},
    };
    return all;
}

/// Counts how often a field asks whether to show the on-screen keyboard, as after each click.
class KeyboardStyle : public QProxyStyle
{
public:
    int styleHint(
        StyleHint hint,
        const QStyleOption* option,
        const QWidget* widget,
        QStyleHintReturn* data) const override
    {
        asked += hint == SH_RequestSoftwareInputPanel ? 1 : 0;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
    mutable int asked = 0;
};

} // namespace

class NumericScrubTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() override;
    void cleanup() override;

    void aScrubFollowsThePointerFromTheDragDistanceOn();
    void aScrubStartsAnewFromWhatIsShown();
    void aScrubCommitsTheStepsBeforeIt();
    void modifiersRescaleTheWholeDistance();
    void aClickEditsWhereItFell();
    void onlyALeftReleaseInsideIsAClick();
    void aPressThatEndedByAnotherDoorIsNoClick();
    void aCommitElsewhereMayDeleteTheField();
    void aQuickSecondPressDragsAgain();
    void inEditModeTheMouseSelectsText();

    void aDragEndsByEveryDoor_data();
    void aDragEndsByEveryDoor();
    void aSlotMayDeleteTheFieldInTheMiddle_data();
    void aSlotMayDeleteTheFieldInTheMiddle();
    void aSlotMayReplaceTheDragFilter();
    void aContextMenuCancelsEverything();
    void theThemesPointerLockIsFollowed();
    void theCursorTellsTheMode();

    void aRealPointerScrubsPastTheEdgeOfTheScreen();

private:
    static void beginDrag(Panel& panel, FakePointerSystem& system, Drive drive);
    static void aDragAfterIsLikeAnyOther(Panel& panel);

    ui::test::StyledApplication m_application;
};

void NumericScrubTest::initTestCase()
{
    gTheme = &m_application.theme();
    gTheme->setUsePointerLock(false);
}

void NumericScrubTest::init()
{
    TestCase::init();
    gHeldKeys = Qt::NoModifier;
    ui::setKeyboardModifiersQuery([] { return gHeldKeys; });
}

void NumericScrubTest::cleanup()
{
    ui::setKeyboardModifiersQuery({});
    QCOMPARE(takeOverrideCursors(), 0);
    TestCase::cleanup();
}

void NumericScrubTest::aScrubFollowsThePointerFromTheDragDistanceOn()
{
    Panel panel;
    QVERIFY(panel.isReady());
    const QShortcut escape(Qt::Key_Escape, panel.window.get());
    QSignalSpy escapes(&escape, &QShortcut::activated);
    panel.pointer.moveTo({5, 10});
    panel.pointer.press();
    panel.scrubTo(-1);
    QCOMPARE(panel.drags.size(), 0);
    panel.scrubTo(0);
    QCOMPARE(panel.field->text(), QStringLiteral("5.0"));
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
    pressEscape(panel);
    QCOMPARE(escapes.size(), 1); // the window's again
}

void NumericScrubTest::aScrubStartsAnewFromWhatIsShown()
{
    Panel panel(8.0);
    QVERIFY(panel.isReady());
    panel.field->setSoftMax(10);
    panel.scrub(50);
    QCOMPARE(panel.field->value(), 10.0);
    panel.field->setValue(12.0);
    panel.scrub(50);
    QCOMPARE(panel.field->value(), 62.0);
    QCOMPARE(panel.field->startValue(), 12.0);
    panel.field->setSoftMin(60);
    panel.scrub(-50);
    QCOMPARE(panel.field->value(), 60.0);
    panel.field->setDragMultiplier(-0.5);
    panel.scrub(10);
    QCOMPARE(panel.field->value(), 60.0);
    panel.field->setDragMultiplier(0.0);
    panel.scrub(10);
    QCOMPARE(panel.field->value(), 60.0);

    panel.field->setMax(100);
    panel.field->setDragMultiplier(1.0);
    panel.field->setText(QStringLiteral("inf"));
    panel.scrub(-10);
    QCOMPARE(panel.field->value(), 90.0);
}

void NumericScrubTest::aScrubCommitsTheStepsBeforeIt()
{
    Panel panel;
    QVERIFY(panel.isReady());
    panel.field->setFocus(Qt::OtherFocusReason); // at rest
    QTest::keyClick(panel.field, Qt::Key_Up);
    panel.scrub(20);
    QCOMPARE(panel.values, (QList<QVariantList>{{false}, {true}, {false}, {false}}));
    QTest::keyClick(panel.field, Qt::Key_Escape);
    QCOMPARE(panel.field->text(), QStringLiteral("26.0"));
    panel.other->setFocus();
    QCOMPARE(panel.values.size(), 4);

    connect(panel.field, &LineEdit::valueChanged, panel.window.get(), [&](bool committed) {
        if (committed) {
            delete panel.field.data();
        }
    });
    panel.field->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(panel.field, Qt::Key_Up);
    panel.scrub(20);
    QVERIFY(!panel.field);
}

void NumericScrubTest::modifiersRescaleTheWholeDistance()
{
    Panel panel(0.0);
    QVERIFY(panel.isReady());
    panel.beginScrub();
    panel.scrubTo(20);
    gHeldKeys = Qt::ShiftModifier;
    panel.scrubTo(21);
    QCOMPARE(panel.field->value(), 210.0);
    gHeldKeys = Qt::ShiftModifier | Qt::ControlModifier;
    panel.scrubTo(22);
    QCOMPARE(panel.field->value(), 2.2);
    gHeldKeys = Qt::NoModifier;
    panel.pointer.setModifiers(Qt::ShiftModifier); // what the event says does not count
    panel.scrubTo(23);
    QCOMPARE(panel.field->value(), 23.0);
    panel.pointer.release();
}

void NumericScrubTest::aClickEditsWhereItFell()
{
    Panel panel(1234.0);
    QVERIFY(panel.isReady());
    const QPoint place(panel.field->width() / 4, 10);
    KeyboardStyle style;
    panel.field->setStyle(&style);
    panel.click(place);
    QCOMPARE(style.asked, 1); // the base class has seen the release
    panel.field->setStyle(nullptr);
    QVERIFY(!panel.field->isReadOnly() && panel.field->hasFocus());
    QCOMPARE(panel.field->cursorPosition(), panel.field->cursorPositionAt(place));
    QVERIFY(panel.field->cursorPosition() > 0 && !panel.field->hasSelectedText());
    QTest::keyClick(panel.field, Qt::Key_Return); // nothing changed, but the edit is over
    QVERIFY(panel.field->isReadOnly() && !panel.field->hasFocus());
    QCOMPARE(panel.drags.size() + panel.values.size(), 0);
}

void NumericScrubTest::onlyALeftReleaseInsideIsAClick()
{
    Panel panel;
    QVERIFY(panel.isReady());
    panel.field->setContextMenuPolicy(Qt::NoContextMenu);
    panel.pointer.moveTo({1, 1});
    panel.pointer.press(Qt::RightButton);
    panel.pointer.release(Qt::RightButton);
    QCOMPARE(takeLog(), QStringList{QStringLiteral("debug: right click")});
    panel.pointer.press();
    panel.pointer.moveTo({-3, 1});
    panel.pointer.release();
    QVERIFY(panel.field->isReadOnly());

    panel.beginScrub(); // which the right button may end, but not wedge
    panel.pointer.press(Qt::RightButton);
    panel.pointer.release(Qt::RightButton);
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
}

void NumericScrubTest::aPressThatEndedByAnotherDoorIsNoClick()
{
    for (const Door& door : doors()) {
        Panel panel;
        QVERIFY(panel.isReady());
        panel.pointer.moveTo({5, 10});
        panel.pointer.press();
        door.leave(panel);
        if (!panel.field || !panel.window->isVisible()) {
            continue;
        }
        panel.field->show();
        panel.window->setEnabled(true);
        panel.field->setEnabled(true);
        const bool isAtRest = panel.field->isReadOnly();
        panel.pointer.release();
        QVERIFY2(panel.field->isReadOnly() == isAtRest, door.name);
        QVERIFY2(panel.field->hasFocus() == (qstrcmp(door.name, "release") == 0), door.name);
    }
    gTheme->setUsePointerLock(false);

    Panel panel;
    QVERIFY(panel.isReady());
    panel.enterByTab();
    panel.pointer.moveTo({5, 10});
    panel.pointer.press();
    panel.other->setFocus();
    panel.pointer.release();
    QVERIFY(panel.field->isReadOnly());
}

void NumericScrubTest::aCommitElsewhereMayDeleteTheField()
{
    for (const bool inEditMode : {false, true}) {
        Panel panel;
        QVERIFY(panel.isReady());
        if (inEditMode) {
            panel.field->setReadOnly(false);
        }
        auto* source = new LineEdit(panel.window.get());
        source->setGeometry(150, 10, 100, 24);
        source->show();
        source->setFocus();
        QTest::keyClicks(source, QStringLiteral("x"));
        connect(source, &LineEdit::valueChanged, this, [&] { delete panel.field.data(); });
        panel.click({5, 10});
        QVERIFY(!panel.field);
    }
}

void NumericScrubTest::aQuickSecondPressDragsAgain()
{
    Panel panel;
    QVERIFY(panel.isReady());
    const auto mouse = [&](QEvent::Type type, int x) {
        const bool moves = type == QEvent::MouseMove;
        QMouseEvent event(
            type,
            QPointF(x, 10),
            panel.field->mapToGlobal(QPointF(x, 10)),
            moves ? Qt::NoButton : Qt::LeftButton,
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
            Qt::NoModifier);
        QCoreApplication::sendEvent(panel.field, &event);
    };
    panel.scrub(1);
    mouse(QEvent::MouseButtonDblClick, 5);
    mouse(QEvent::MouseMove, 25);
    mouse(QEvent::MouseMove, 27);
    mouse(QEvent::MouseButtonRelease, 27);
    QCOMPARE(panel.field->value(), 8.0);
    QCOMPARE(panel.drags, kOneDrag + kOneDrag);
}

void NumericScrubTest::inEditModeTheMouseSelectsText()
{
    Panel panel(1234.0);
    QVERIFY(panel.isReady());
    for (const int round : {0, 1, 2, 3}) {
        panel.other->setFocus();
        if (round == 0) {
            panel.enterByTab();
        } else if (round == 3) {
            panel.field->setReadOnly(false); // by the host
        } else {
            panel.click({90, 10});
        }
        if (round == 2) {
            panel.field->setUsePointerLock(false); // a new filter keeps to the mode
        }
        panel.scrub(60);
        QVERIFY(panel.field->hasSelectedText());
        QCOMPARE(panel.field->text(), QStringLiteral("1234.0"));
    }
    QCOMPARE(panel.drags.size(), 0);
    panel.field->setReadOnly(true);
    panel.scrub(6);
    QCOMPARE(panel.field->text(), QStringLiteral("1240.0"));
}

void NumericScrubTest::aDragEndsByEveryDoor_data()
{
    QTest::addColumn<int>("door");
    QTest::addColumn<Drive>("drive");
    for (std::size_t i = 0; i < doors().size(); ++i) {
        const int door = static_cast<int>(i);
        QTest::addRow("%s, plain", doors()[i].name) << door << Drive::Moves;
        QTest::addRow("%s, warps", doors()[i].name) << door << Drive::Warps;
        QTest::addRow("%s, raw input", doors()[i].name) << door << Drive::RawInput;
    }
}

/// Three pixels past the drag distance.
void NumericScrubTest::beginDrag(Panel& panel, FakePointerSystem& system, Drive drive)
{
    if (drive != Drive::RawInput) {
        panel.beginScrub();
        panel.scrubTo(3);
        return;
    }
    const double ratio = panel.field->devicePixelRatioF();
    panel.pointer.moveTo({5, 10});
    panel.pointer.press();
    system.moveRaw(QPoint(QApplication::startDragDistance(), 0) * ratio);
    system.moveRaw(QPoint(3, 0) * ratio);
}

void NumericScrubTest::aDragEndsByEveryDoor()
{
    QFETCH(int, door);
    QFETCH(Drive, drive);
    FakePointerSystem system(drive);
    QApplication::setOverrideCursor(Qt::WaitCursor); // the host's own, which must be left alone
    Panel panel;
    QVERIFY(panel.isReady());
    panel.field->setUsePointerLock(true);
    beginDrag(panel, system, drive);
    QCOMPARE(panel.field->value(), 8.0);
    QCOMPARE(system.hides, drive == Drive::Moves ? 0 : 1);
    QCOMPARE(panel.drags, QList<QVariantList>{{true}});
    QVERIFY(QApplication::overrideCursor()->shape() != Qt::WaitCursor);

    doors().at(static_cast<std::size_t>(door)).leave(panel);
    QCOMPARE(panel.drags, kOneDrag);
    QCOMPARE(system.hides, 0);
    QVERIFY(!system.clip && !system.registration);
    QVERIFY(QApplication::overrideCursor());
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QCOMPARE(takeOverrideCursors(), 1);

    gTheme->setUsePointerLock(false);
    if (panel.field && panel.window->isVisible()) {
        QCOMPARE(panel.field->value(), 8.0);
        aDragAfterIsLikeAnyOther(panel);
    }
}

/// What comes late of a drag that has ended moves nothing, and the next one does.
void NumericScrubTest::aDragAfterIsLikeAnyOther(Panel& panel)
{
    panel.field->show();
    panel.window->setEnabled(true);
    panel.field->setEnabled(true);
    panel.scrubTo(9);
    panel.pointer.release();
    QCOMPARE(panel.field->value(), 8.0);
    QCOMPARE(panel.drags.size(), 2);
    panel.enterByTab(); // for the context menu, which leaves the field in edit mode
    panel.other->setFocus();
    panel.scrub(1);
    QCOMPARE(panel.field->value(), 9.0);
    QCOMPARE(panel.drags, kOneDrag + kOneDrag);
}

void NumericScrubTest::aSlotMayDeleteTheFieldInTheMiddle_data()
{
    QTest::addColumn<QByteArray>("moment");
    for (const char* moment : {"begin", "step", "end", "new lock"}) {
        QTest::newRow(moment) << QByteArray(moment);
    }
}

void NumericScrubTest::aSlotMayDeleteTheFieldInTheMiddle()
{
    QFETCH(QByteArray, moment);
    Panel panel;
    QVERIFY(panel.isReady());
    if (moment == "step") {
        connect(panel.field, &LineEdit::valueChanged, this, [&] { delete panel.field; });
    } else {
        connect(panel.field, &NumericField::dragStateChanged, this, [&](bool dragging) {
            if (dragging == (moment == "begin")) {
                delete panel.field.data();
            }
        });
    }
    panel.beginScrub();
    if (moment == "new lock") {
        gTheme->setUsePointerLock(false);
    }
    panel.pointer.release();
    QVERIFY(!panel.field);
    QCOMPARE(panel.drags, kOneDrag);
}

void NumericScrubTest::aSlotMayReplaceTheDragFilter()
{
    Panel panel;
    QVERIFY(panel.isReady());
    const QMetaObject::Connection replaces = connect(
        panel.field, &LineEdit::valueChanged, this, [&] { panel.field->setUsePointerLock(false); });
    panel.scrub(7); // is over with its first step
    QCOMPARE(panel.field->text(), QStringLiteral("5.0"));
    QCOMPARE(panel.drags, kOneDrag);
    QVERIFY(panel.field->isReadOnly());
    disconnect(replaces);
    panel.scrub(7);
    QCOMPARE(panel.field->text(), QStringLiteral("12.0"));
    QCOMPARE(panel.drags, kOneDrag + kOneDrag);
}

void NumericScrubTest::aContextMenuCancelsEverything()
{
    FakePointerSystem system(Drive::Warps);
    Panel panel;
    QVERIFY(panel.isReady());
    hideNativeMouse();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    panel.enterByTab();
    QTest::keyClicks(panel.field, QStringLiteral("6"));
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
    QTest::keyClick(panel.field, Qt::Key_Return);
    panel.scrub(1);
    QCOMPARE(panel.field->value(), 7.0);
}

void NumericScrubTest::theThemesPointerLockIsFollowed()
{
    FakePointerSystem system(Drive::Warps);
    Panel panel;
    QVERIFY(panel.isReady());
    panel.beginScrub();
    QCOMPARE(system.hides, 0); // off since before the field was made
    panel.pointer.release();
    for (const bool lock : {true, false, true}) {
        gTheme->setUsePointerLock(lock);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(panel.field->findChildren<MouseWrapDragFilter*>().size(), 1);
        panel.beginScrub();
        QCOMPARE(system.hides, lock ? 1 : 0);
        panel.pointer.release();
        QCOMPARE(system.hides, 0);
    }
    gTheme->setUsePointerLock(false);
}

void NumericScrubTest::theCursorTellsTheMode()
{
    Panel panel;
    QVERIFY(panel.isReady());
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
    panel.field->setFocus(Qt::OtherFocusReason);
    QCOMPARE(panel.field->cursor().shape(), Qt::IBeamCursor);
    QVERIFY(panel.field->isReadOnly());
    panel.other->setFocus();
    panel.beginScrub();
    panel.enterByTab(); // too late to edit
    QVERIFY(panel.field->isReadOnly());
    panel.pointer.release();
    panel.other->setFocus();
    panel.field->setEnabled(false);
    QCOMPARE(cursorOnEnter().shape(), Qt::PointingHandCursor);
}

/// Where there is no display, the pointer is a pretended one.
void NumericScrubTest::aRealPointerScrubsPastTheEdgeOfTheScreen()
{
    Panel panel;
    QVERIFY(panel.isReady());
    ui::setKeyboardModifiersQuery({}); // the system's own
    panel.field->setUsePointerLock(true);
    const int way = 2400;
    if (!ui::test::RealPointer::available()) {
        panel.scrub(way);
        QCOMPARE(panel.field->value(), 5.0 + way);
        return;
    }
    const double ratio = panel.field->devicePixelRatioF();
    const QPoint press = (QPointF(panel.field->mapToGlobal(QPoint(20, 10))) * ratio).toPoint();
    ui::test::RealPointer pointer;
    pointer.moveTo(press);
    pointer.press();
    pointer.moveBy({40, 0}); // passes the drag distance, and is no part of the movement
    QTRY_COMPARE(panel.drags.size(), 1);
    pointer.moveBy({40, 0}, way / 40);
    QTRY_COMPARE(panel.field->value(), 5.0 + way / ratio);
    pointer.release();
    QTRY_COMPARE(panel.drags, kOneDrag);
    QTRY_COMPARE(pointer.position(), press);
    QVERIFY(panel.field->isReadOnly());
    QVERIFY(!QApplication::overrideCursor());

    QTest::qWait(QApplication::doubleClickInterval()); // else it is a second press
    pointer.press();
    pointer.release();
    QTRY_VERIFY(!panel.field->isReadOnly() && panel.field->hasFocus());
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
    QVERIFY(panel.isReady());
    panel.beginScrub();
    QCOMPARE(system.hides, 1);
    panel.pointer.release();
}

namespace {
const ui::test::Registration<NumericScrubWithoutThemeTest> kNoThemeRegistration(
    ui::test::RunOrder::First);
const ui::test::Registration<NumericScrubTest> kRegistration;
} // namespace

#include "tst_numericscrub.moc"
