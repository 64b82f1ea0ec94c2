#include "support/TestCase.h"
#include "support/themes.h"
#include <MorrantUI/theme/OverrideCursor.h>
#include <MorrantUI/theme/VisualDesignBase.h>
#include <MorrantUI/theme/eventfilters.h>
#include <MorrantUI/theme/events.h>
#include <MorrantUI/theme/palettes.h>
#include <MorrantUI/theme/screens.h>
#include <MorrantUI/theme/stylesheets.h>
#include <MorrantUI/theme/widgets.h>

#include <QApplication>
#include <QLabel>
#include <QScreen>

#include <limits>
#include <memory>
#include <optional>

namespace {

/// The override cursors, the lowest first; empty again afterwards.
QList<Qt::CursorShape> takeCursors()
{
    QList<Qt::CursorShape> shapes;
    while (const QCursor* cursor = QGuiApplication::overrideCursor()) {
        shapes.prepend(cursor->shape());
        QGuiApplication::restoreOverrideCursor();
    }
    return shapes;
}

/// Counts the events that reach it.
class Receiver : public QObject
{
public:
    int received = 0;

    bool event(QEvent* event) override
    {
        received += event->type() == QEvent::User ? 1 : 0;
        return QObject::event(event);
    }
};

void deliver(QObject& receiver)
{
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&receiver, &event);
}

} // namespace

class HelpersTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() override;

    void theClosestRectangleHoldsOrNearsThePoint_data();
    void theClosestRectangleHoldsOrNearsThePoint();
    void pointsBesideEveryScreenHaveAScreen();
    void theMonitorRatioIsThatOfTheScreen();
    void aBackgroundReachesAllGroupsAndIsInstalledOnce();
    void foregroundAndAppendedRolesReachAllGroups();
    void theCommonStyleSheetIsSpelledOut();
    void theStyleSheetWidensDialogs();
    void aFilterKeepsTheEventsItsCallbackAnswersTrue();
    void aFilterEndsWithOwnerOrTarget();
    void aCallbackMayDeleteOwnerOrTarget();
    void pendingEventsRun();
    void theInnermostWidgetAtAPointIsFound();
    void aCursorGuardGivesBackItsOwnCursor();
    void aCursorGuardLeavesOthersCursorsAlone();
    void aCursorTakenBySomebodyElseIsMadeUpFor();
    void guardsEndInAnyOrder();
};

void HelpersTest::cleanup()
{
    const bool cursorLeft = !takeCursors().isEmpty();
    TestCase::cleanup();
    QVERIFY2(!cursorLeft, "an override cursor was left behind");
}

void HelpersTest::theClosestRectangleHoldsOrNearsThePoint_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("expected");

    constexpr int kMax = std::numeric_limits<int>::max();
    constexpr int kMin = std::numeric_limits<int>::min();
    QTest::newRow("first pixel") << QPoint(0, 0) << 1;
    QTest::newRow("last pixel") << QPoint(99, 99) << 1;
    QTest::newRow("next screen's first pixel") << QPoint(100, 50) << 2;
    QTest::newRow("left of all") << QPoint(-30, 50) << 1;
    QTest::newRow("below, nearer the second") << QPoint(99, 500) << 2;
    QTest::newRow("by straight distance") << QPoint(140, -60) << 3;
    QTest::newRow("far right") << QPoint(kMax, 100) << 2;
    QTest::newRow("far left and up") << QPoint(kMin, kMin) << 3;
}

void HelpersTest::theClosestRectangleHoldsOrNearsThePoint()
{
    const std::vector<QRect> rects{
        QRect(), QRect(0, 0, 100, 100), QRect(100, 0, 100, 200), QRect(0, -200, 100, 100)};
    QFETCH(const QPoint, point);
    QTEST(ui::closestRectangle(rects, point), "expected");
    QCOMPARE(ui::closestRectangle({}, point), -1);
}

void HelpersTest::pointsBesideEveryScreenHaveAScreen()
{
    QScreen* primary = QGuiApplication::primaryScreen();
    QCOMPARE(getClosestScreenAt(primary->geometry().center()), primary);
    QVERIFY(getClosestScreenAt(QPoint(-1000000, 1000000)) != nullptr);
}

void HelpersTest::theMonitorRatioIsThatOfTheScreen()
{
    QWidget widget;
    widget.move(10, 10);
    QCOMPARE(ui::getMonitorDPI(&widget), QGuiApplication::primaryScreen()->devicePixelRatio());
    QCOMPARE(ui::getMonitorDPI(nullptr), 1.0);
}

void HelpersTest::aBackgroundReachesAllGroupsAndIsInstalledOnce()
{
    QWidget widget;
    ui::setWidgetBackground(&widget, Qt::red);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
            QCOMPARE(widget.palette().color(group, role), QColor(Qt::red));
        }
    }
    QVERIFY(widget.autoFillBackground());

    widget.setAutoFillBackground(false);
    int changes = 0;
    ui::installEventFilter(
        &widget,
        [&](QObject*, QEvent* event) {
            changes += event->type() == QEvent::PaletteChange ? 1 : 0;
            return false;
        },
        nullptr);
    ui::setWidgetBackground(&widget, Qt::red);
    QCOMPARE(changes, 0);
    QVERIFY(widget.autoFillBackground());
    ui::setWidgetBackground(nullptr, Qt::red);
}

void HelpersTest::foregroundAndAppendedRolesReachAllGroups()
{
    QWidget widget;
    ui::setWidgetForeground(&widget, Qt::red);
    ui::appendPalette(&widget, {{QPalette::Text, Qt::green}, {QPalette::Text, Qt::blue}});
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto role : {QPalette::ButtonText, QPalette::BrightText, QPalette::WindowText}) {
            QCOMPARE(widget.palette().color(group, role), QColor(Qt::red));
        }
        QCOMPARE(widget.palette().color(group, QPalette::Text), QColor(Qt::blue)); // the later one
    }

    QWidget untouched;
    ui::appendPalette(&untouched, {});
    QVERIFY(!untouched.testAttribute(Qt::WA_SetPalette));
    ui::setWidgetForeground(nullptr, Qt::red);
    ui::appendPalette(nullptr, {{QPalette::Text, Qt::green}});
}

void HelpersTest::theCommonStyleSheetIsSpelledOut()
{
    auto& theme = ui::test::makeTheme<VisualDesignBase>();
    theme.setColor(QStringLiteral("Window"), QColor(0x10, 0x20, 0x30));
    theme.setColor(QStringLiteral("Base"), QColor(0x40, 0x50, 0x60, 0x70));
    theme.setColor(QStringLiteral("Shadow"), QColor(0x70, 0x80, 0x90));

    const QString common = QStringLiteral(
        "\nQLabel{\n    min-width:240 px;\n}\n"
        "QPushButton{\n    padding: 4px;\n    border-radius: 2px;\n    border-radius: 4px;\n"
        "    background-color: #102030;\n    margin: 1px;\n    min-width: 100px;\n}\n"
        "QLineEdit{\n    padding: 4px;\n    border-radius: 2px;\n    border-radius: 4px;\n"
        "    margin: 1px;\n    background-color: #708090;\n}\n"
        "QMessageBox, ModalDialog, QInputDialog{\n    background-color: #405060;\n"
        "    margin: 3px;\n    padding: 3px;\n    min-width:350 px;\n}\n");
    QCOMPARE(ui::getCommonStyleSheet(), common);
    QCOMPARE(
        ui::getCommonStyleSheetWithPadding(),
        QStringLiteral("QWidget{margin: 4px;}QLineEdit { margin: 4px; }"
                       "QDialogButtonBox { margin: 4px; }")
            + common);
}

void HelpersTest::theStyleSheetWidensDialogs()
{
    QWidget dialog;
    auto* label = new QLabel(&dialog);
    dialog.setStyleSheet(
        ui::getCommonStyleSheetWithPadding()); // Qt would warn of what it cannot read
    label->ensurePolished();
    QVERIFY(label->minimumWidth() >= 240);
}

void HelpersTest::aFilterKeepsTheEventsItsCallbackAnswersTrue()
{
    bool keep = false;
    QList<QObject*> seen;
    const auto callback = [&](QObject* watched, QEvent* /*event*/) {
        seen << watched;
        return keep;
    };
    QObject owner;
    Receiver target;
    QObject* filter = ui::installEventFilter(&target, callback, &owner);
    QCOMPARE(filter->parent(), &owner);

    deliver(target);
    QCOMPARE(target.received, 1);
    keep = true;
    deliver(target);
    QCOMPARE(target.received, 1);
    QCOMPARE(seen, (QList<QObject*>{&target, &target}));

    QCOMPARE(ui::installEventFilter(nullptr, callback, &owner), nullptr);
    QCOMPARE(ui::installEventFilter(&target, {}, &owner), nullptr);
}

void HelpersTest::aFilterEndsWithOwnerOrTarget()
{
    int calls = 0;
    const auto count = [&](QObject*, QEvent* event) {
        calls += event->type() == QEvent::User ? 1 : 0;
        return false;
    };
    auto owner = std::make_unique<QObject>();
    auto target = std::make_unique<QObject>();
    ui::installEventFilter(qApp, count, owner.get());
    deliver(*target);
    QCOMPARE(calls, 1);
    owner.reset();
    deliver(*target);
    QCOMPARE(calls, 1);

    QObject lasting;
    const QPointer<QObject> filter = ui::installEventFilter(target.get(), count, &lasting);
    target.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(filter.isNull());
}

void HelpersTest::aCallbackMayDeleteOwnerOrTarget()
{
    auto* owner = new QObject;
    Receiver target;
    QString seen;
    ui::installEventFilter(
        &target,
        [&seen, &owner, text = QStringLiteral("kept while it runs")](QObject*, QEvent*) {
            delete std::exchange(owner, nullptr);
            seen = text;
            return true;
        },
        owner);
    deliver(target);
    QCOMPARE(seen, QStringLiteral("kept while it runs"));
    QCOMPARE(target.received, 0);
    deliver(target);
    QCOMPARE(target.received, 1);

    // An event must not go on to a receiver that is gone.
    QObject lasting;
    const QPointer<QObject> shortLived = new Receiver;
    ui::installEventFilter(
        shortLived,
        [](QObject* watched, QEvent* event) {
            if (event->type() == QEvent::User) {
                delete watched;
            }
            return false;
        },
        &lasting);
    deliver(*shortLived);
    QVERIFY(shortLived.isNull());
}

void HelpersTest::pendingEventsRun()
{
    bool ran = false;
    QMetaObject::invokeMethod(
        this, [&] { ran = true; }, Qt::QueuedConnection);
    ui::processEvents();
    QVERIFY(ran);
}

void HelpersTest::theInnermostWidgetAtAPointIsFound()
{
    QWidget window;
    window.resize(200, 200);
    auto* child = new QWidget(&window);
    child->setGeometry(50, 50, 100, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(qtutils::findWidgetAt(window.mapToGlobal(QPoint(100, 100))), child);
    QCOMPARE(qtutils::findWidgetAt(window.mapToGlobal(QPoint(20, 20))), &window);
}

void HelpersTest::aCursorGuardGivesBackItsOwnCursor()
{
    {
        ui::OverrideCursor guard(Qt::CrossCursor);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
        guard.change(Qt::SizeHorCursor);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::SizeHorCursor);
    }
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void HelpersTest::aCursorGuardLeavesOthersCursorsAlone()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    {
        ui::OverrideCursor guard(Qt::CrossCursor);
        QGuiApplication::setOverrideCursor(Qt::BusyCursor);
        guard.change(Qt::SizeHorCursor);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::BusyCursor);
    }
    QCOMPARE(takeCursors(), (QList{Qt::WaitCursor, Qt::BusyCursor}));
}

void HelpersTest::aCursorTakenBySomebodyElseIsMadeUpFor()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    {
        ui::OverrideCursor guard(Qt::CrossCursor);
        QGuiApplication::restoreOverrideCursor(); // meant for the wait cursor
        guard.change(Qt::SizeHorCursor);
    }
    QVERIFY(takeCursors().isEmpty());

    {
        const ui::OverrideCursor guard(Qt::CrossCursor);
        takeCursors();
    }
    QVERIFY(takeCursors().isEmpty());
}

void HelpersTest::guardsEndInAnyOrder()
{
    std::optional<ui::OverrideCursor> first(std::in_place, Qt::CrossCursor);
    std::optional<ui::OverrideCursor> second(std::in_place, Qt::SizeHorCursor);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    first.reset();
    second->change(Qt::SizeVerCursor);
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    second.reset();
    QCOMPARE(takeCursors(), QList{Qt::WaitCursor});
}

const ui::test::Registration<HelpersTest> kRegistration;

#include "tst_helpers.moc"
