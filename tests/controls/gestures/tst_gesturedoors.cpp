// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/controls/gestures/GestureDoors.h>
#include <MorrantUI/theme/events.h>

using namespace ui::test;
using Door = GestureDoors::Door;

namespace {

void send(QObject* to, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(to, &event);
}

void popUp()
{
    QMenu menu;
    menu.addAction(u"Copy"_qs);
    menu.popup({});
}

/// A pressed widget in a shown window, watched from outside.
struct Stage
{
    explicit Stage(GestureHold hold = {})
    {
        window.setGeometry(60, 50, 300, 200);
        widget->setGeometry(20, 20, 200, 100);
        widget->setFocusPolicy(Qt::StrongFocus);
        window.show();
        window.activateWindow();
        widget->setFocus();
        pointer.press({50, 50}, hold.button == Qt::NoButton ? Qt::LeftButton : hold.button);
        const auto leave = [this](Door door) { opened << door; };
        doors->watch(widget, leave, hold);
    }

    void moveWithoutButton() { FakePointer(widget).moveTo({9, 9}); }
    QObject* handle() const { return window.windowHandle(); }

    QWidget window;
    QPointer<QWidget> widget = new QWidget(&window);
    FakePointer pointer{&window};
    QList<Door> opened;
    std::unique_ptr<GestureDoors> doors = std::make_unique<GestureDoors>();
};

} // namespace

class GestureDoorsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyDoorIsToldOnceAndByItsName()
    {
        const std::pair<std::function<void(Stage&)>, Door> doors[] = {
            {[](Stage& s) { s.widget->hide(); }, Door::Hidden},
            {[](Stage& s) { s.widget->setParent(new QWidget(&s.window)); }, Door::Hidden},
            {[](Stage& s) { s.window.setEnabled(false); }, Door::Disabled},
            {[](Stage& s) { send(&s.window, QEvent::WindowDeactivate); }, Door::WindowInactive},
            {[](Stage& s) { send(s.handle(), QEvent::WindowBlocked); }, Door::WindowBlocked},
            {[](Stage& s) { send(s.widget, QEvent::UngrabMouse); }, Door::MouseLost},
            {[](Stage& s) { s.moveWithoutButton(); }, Door::MouseLost},
            {[](Stage& s) { QTest::mouseRelease(&s.window, Qt::LeftButton); }, Door::MouseLost},
            {[](Stage&) { popUp(); }, Door::PopupOpened},
            {[](Stage&) { send(qApp, QEvent::ApplicationDeactivate); }, Door::ApplicationInactive},
            {[](Stage& s) { delete s.widget; }, Door::Destroyed},
        };
        for (const auto& [open, door] : doors) {
            Stage stage;
            open(stage);
            QCOMPARE(stage.opened, QList<Door>{door});
            QVERIFY(!stage.doors->isWatching());
        }
    }

    void whatIsNotAskedForIsNoDoor()
    {
        Stage stage({.button = Qt::NoButton, .popups = false});
        stage.widget->clearFocus();
        stage.widget->setEnabled(true);
        QTest::mouseRelease(&stage.window, Qt::LeftButton);
        stage.pointer.release();
        stage.pointer.moveTo({60, 60});
        popUp();
        QVERIFY(stage.opened.isEmpty() && stage.doors->isWatching());
        stage.doors->stop();
        stage.doors->watch(nullptr, [&stage](Door door) { stage.opened << door; });
        stage.widget->hide();
        QVERIFY(stage.opened.isEmpty());
        Stage middle({.button = Qt::MiddleButton});
        const auto takesReleases = [](QObject*, QEvent* event) {
            return event->type() == QEvent::MouseButtonRelease;
        };
        ui::installEventFilter(middle.widget, takesReleases, nullptr);
        QTest::mouseRelease(&middle.window, Qt::LeftButton);
        middle.pointer.release(Qt::MiddleButton); // its own, which is no surprise
        QWidget child(middle.widget);
        QTest::mouseRelease(&child, Qt::MiddleButton); // comes to the widget next
        middle.doors.reset();
        middle.window.close();
        QVERIFY(middle.opened.isEmpty());
    }

    void theFocusOfAViewIsThatOfItsViewport()
    {
        Stage stage;
        QGraphicsView view(&stage.window);
        view.show();
        QVERIFY(QTest::qWaitForWindowActive(&stage.window));
        view.setFocus();
        const auto leave = [&stage](Door door) { stage.opened << door; };
        stage.doors->watch(view.viewport(), leave, {.focus = true});
        stage.widget->setFocus();
        QCOMPARE(stage.opened, QList<Door>{Door::FocusLost});
    }

    void aCallbackMayDeleteAnythingAndWatchAgain()
    {
        Stage stage;
        stage.doors->watch(stage.widget, [&](Door) { stage.doors.reset(); });
        stage.widget->setEnabled(false);
        QVERIFY(!stage.doors);

        Stage other;
        other.doors->watch(other.widget, [&](Door) { delete other.widget; });
        other.moveWithoutButton(); // has nobody to go to
        QVERIFY(!other.widget);

        Stage again;
        again.doors->watch(again.widget, [&](Door) {
            again.doors->watch(&again.window, [&](Door door) { again.opened << door; });
        });
        again.widget->hide();
        again.window.hide();
        QCOMPARE(again.opened, QList<Door>{Door::Hidden});
    }

    void nothingBeginsWhereADoorIsOpen()
    {
        Stage stage;
        QDialog dialog(&stage.window);
        QWidget unrelated;
        unrelated.show();
        QVERIFY(QTest::qWaitForWindowExposed(&unrelated));
        for (const Qt::WindowModality modality : {Qt::WindowModal, Qt::ApplicationModal}) {
            dialog.setWindowModality(modality);
            showActive(dialog);
            QVERIFY(!GestureDoors::mayBegin(*stage.widget) && GestureDoors::mayBegin(dialog));
            QCOMPARE(GestureDoors::mayBegin(unrelated), modality == Qt::WindowModal);
            dialog.hide();
        }
        stage.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&stage.window));
        QVERIFY(GestureDoors::mayBegin(*stage.widget));
        stage.widget->setEnabled(false);
        unrelated.hide();
        QVERIFY(!GestureDoors::mayBegin(*stage.widget) && !GestureDoors::mayBegin(unrelated));
        QWidget toolTip(nullptr, Qt::ToolTip); // is shown without becoming the active window
        toolTip.show();
        stage.window.hide();
        const bool isRealX = QGuiApplication::platformName() == u"xcb"; // elsewhere it stays active
        QTRY_COMPARE(GestureDoors::mayBegin(toolTip), !isRealX);
    }
};

const Registration<GestureDoorsTest> kRegistration;

#include "tst_gesturedoors.moc"
