// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/connections/connectiongeometry.h"
#include "controls/SignalRecord.h"
#include "controls/StyledApplication.h"
#include <MorrantUI/MorrantUI.h>

using namespace ui::test;
using State = ConnectionInstance::State;

namespace {

/// Writes down what it receives, and does with it what the test says.
class Recorder : public QWidget, public ConnectionReceiver
{
public:
    Recorder(const QString& name, const QRect& place, QByteArrayList& log, QWidget* parent)
        : QWidget(parent)
        , m_log(log)
    {
        setObjectName(name);
        setGeometry(place);
        makeWidgetReceiver(this);
    }

    void onConnectionEnter(ConnectionInstance* connection) override { note("enter", connection); }
    void onConnectionMove(ConnectionInstance* connection) override { note("move", connection); }
    void onConnectionLeave(ConnectionInstance* connection) override { note("leave", connection); }
    void onConnectionDrop(ConnectionInstance* connection) override { note("drop", connection); }

    std::function<void(const QByteArray& what, ConnectionInstance*)> reaction;

private:
    void note(const QByteArray& what, ConnectionInstance* connection)
    {
        const QByteArray line = objectName().toUtf8() + ' ' + what;
        if (m_log.isEmpty() || m_log.last() != line) { // how many moves there are is not the point
            m_log << line;
        }
        if (reaction) {
            const auto react = reaction; // it may delete us
            react(what, connection);
        }
    }

    QByteArrayList& m_log;
};

/// A window with a connector in its corner and nested receivers, and another window beside it.
struct Stage
{
    Stage()
    {
        window.setGeometry(20, 20, 210, 340); // all on the smallest screen, at ratio 2
        other.setGeometry(240, 20, 140, 140);
        whip->move(10, 10);
        other.show();
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&window) && QTest::qWaitForWindowExposed(&other));
        const auto end = [this](State state) { ended << state; };
        QObject::connect(whip, &PickWhip::connectionFinished, &window, end);
    }

    ~Stage() { finishAnimations(); }

    /// Drags from the connector to a point of the window.
    QPointer<ConnectionInstance> dragTo(QPoint position)
    {
        pointer.press(whip->geometry().center());
        pointer.dragTo(whip->geometry().center() + QPoint(20, 0));
        log.clear();
        pointer.moveTo(position);
        return ConnectionInstance::current();
    }

    /// What was written down since the last time, after what is queued.
    QByteArray taken()
    {
        QCoreApplication::processEvents();
        return std::exchange(log, {}).join(", ");
    }
    QByteArray moveTo(QPoint place)
    {
        pointer.moveTo(place);
        return taken();
    }

    static bool isAccent(QWidget& in, QPointF place)
    {
        const QColor seen = pixelAt(renderWidget(in, 2.0), place);
        return closeTo(seen, ui::colorQt(u"ConnectorAccent"_qs), 12);
    }
    ui::ConnectionCurve lineTo(QPoint end) const { return {whip->geometry().center(), end}; }

    static void finishAnimations()
    {
        FakeClock(qApp).advanceAnimations(10000);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QByteArrayList log;
    QList<State> ended;
    QWidget window;
    QWidget other;
    QPointer<Recorder> outer = new Recorder(u"outer"_qs, {80, 120, 120, 200}, log, &window);
    QPointer<Recorder> inner = new Recorder(u"inner"_qs, {30, 60, 60, 100}, log, outer);
    QPointer<Recorder> beyond = new Recorder(u"beyond"_qs, {0, 0, 140, 140}, log, &other);
    QPointer<PickWhip> whip = new PickWhip(&window);
    QPointer<ConnectionInstance> connection; ///< for a test that takes it away
    FakePointer pointer{&window};
};

using Act = std::function<void(Stage&)>;

constexpr QPoint kNowhere(40, 250);
constexpr QPoint kOuter(95, 140);
constexpr QPoint kInner(140, 230);
constexpr QPoint kBeyond(230, 50); ///< in the other window

} // namespace

class ConnectionTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theInnermostReceiverThatCanBeReachedIsTold()
    {
        Stage stage;
        QObject attribute;
        stage.whip->setSource(&attribute, u"position.x"_qs);
        const QPointer<ConnectionInstance> connection = stage.dragTo(kOuter);
        QCOMPARE(connection->source(), &attribute);
        QCOMPARE(connection->userData(), QVariant(u"position.x"_qs));
        QCOMPARE(stage.taken(), QByteArray("outer enter, outer move"));
        const QSignalSpy moves(connection, &ConnectionInstance::moved);
        QCOMPARE(stage.moveTo(kInner), QByteArray("outer leave, inner enter, inner move"));
        QCOMPARE(stage.moveTo(kInner), QByteArray()); // the same place again is nothing new
        QCOMPARE(moves.count(), 1);
        stage.inner->setEnabled(false);
        QCOMPARE(stage.moveTo(kInner), QByteArray("inner leave, outer enter, outer move"));
        stage.inner->setEnabled(true);
        stage.moveTo(kInner);
        stage.inner->move(stage.inner->pos() + QPoint(0, 1)); // a resting pointer is still there
        QCOMPARE(stage.taken(), QByteArray());
        stage.inner->setGeometry(0, 0, 10, 10);
        QCOMPARE(stage.taken(), QByteArray("inner leave, outer enter, outer move"));
        const QPoint end = stage.window.mapToGlobal(kInner);
        QWheelEvent wheel(
            kInner, end, {}, {0, 120}, Qt::LeftButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(stage.outer, &wheel);
        QCOMPARE(stage.taken(), QByteArray("outer move")); // another part of it, for all we know
        QCOMPARE(stage.moveTo(kBeyond), QByteArray("outer leave, beyond enter, beyond move"));
        stage.beyond->removeWidgetReceiver(stage.beyond);
        QCOMPARE(stage.moveTo(kBeyond + QPoint(1, 0)), QByteArray("beyond leave"));
        stage.outer->makeWidgetReceiver(stage.beyond); // one receiver, several widgets
        QCOMPARE(stage.moveTo(kBeyond), QByteArray("outer enter, outer move"));

        QDialog dialog;
        dialog.setGeometry(240, 190, 140, 100);
        dialog.setModal(true);
        dialog.show(); // ends the drag
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        stage.outer->makeWidgetReceiver(&dialog);
        ConnectionInstance* const inDialog = ConnectionInstance::start(&dialog, {});
        inDialog->moveTo(stage.window.mapToGlobal(kOuter));
        QVERIFY(!inDialog->receiver());
        inDialog->moveTo(dialog.mapToGlobal(QPoint(100, 50)));
        QCOMPARE(inDialog->receiverWidget(), &dialog);
        delete stage.outer; // with its registrations; it cannot be left any more
        inDialog->moveTo(dialog.mapToGlobal(QPoint(101, 50)));
        QVERIFY(!inDialog->receiver() && inDialog->isRunning());
        inDialog->cancel();
        dialog.hide(); // and nothing starts where nobody can see it
        QVERIFY(!ConnectionInstance::start(&dialog, {}) && !ConnectionInstance::start(nullptr, {}));
    }

    void aDropComesBeforeTheLeaveAndOnlyWhereItIsAccepted()
    {
        Stage stage;
        bool accepts = true;
        bool lived = false;
        QList<ConnectionStyle> styles;
        stage.beyond->reaction = [&](const QByteArray& what, ConnectionInstance* connection) {
            styles << connection->drawStyle();
            if (what == "enter") {
                connection->setAccepted(accepts);
                connection->setDrawStyle(ConnectionStyle::Dashed);
            } else if (what == "drop") { // as a dialog's event loop does, for longer than the line
                Stage::finishAnimations();
                lived = stage.connection && !ConnectionInstance::current();
            }
        };
        const auto cursorAt = [&](QPoint place) {
            stage.connection = stage.dragTo(place);
            const Qt::CursorShape shape = QGuiApplication::overrideCursor()->shape();
            stage.pointer.release();
            return shape;
        };
        QCOMPARE(cursorAt(kBeyond), Qt::DragLinkCursor);
        QCOMPARE(stage.taken(), QByteArray("beyond enter, beyond move, beyond drop, beyond leave"));
        QVERIFY(styles.first() == ConnectionStyle::Framed && styles[1] == ConnectionStyle::Dashed);
        QCOMPARE(styles.last(), ConnectionStyle::Line); // what was left says nothing any more
        Stage::finishAnimations();
        QVERIFY(lived && !stage.connection);
        accepts = false;
        QCOMPARE(cursorAt(kBeyond), Qt::ForbiddenCursor);
        QCOMPARE(stage.taken(), QByteArray("beyond enter, beyond move, beyond leave"));
        QCOMPARE(cursorAt(kNowhere), Qt::CrossCursor);
        QCOMPARE(stage.ended, QList<State>({State::Dropped, State::Missed, State::Missed}));
    }

    void everyWayOutCancelsOnce()
    {
        const Act ways[] = {
            [](Stage& s) { QTest::keyClick(&s.window, Qt::Key_Escape); },
            [](Stage& s) { s.pointer.press(Qt::RightButton); },
            [](Stage& s) { s.window.close(); },
            [](Stage& s) { delete s.whip; },
            [](Stage&) { delete ConnectionInstance::current(); },
            [](Stage&) { QMetaObject::invokeMethod(qApp, "aboutToQuit"); },
            [](Stage& s) { FakePointer(&s.window).moveTo(kOuter); }, // the release got lost
            [](Stage& s) { ConnectionInstance::start(&s.other, {})->cancel(); }};
        for (const Act& leave : ways) {
            Stage stage;
            QList<State> ended;
            const auto end = [&](State state) { ended << state; };
            connect(stage.dragTo(kInner), &ConnectionInstance::finished, this, end);
            stage.taken();
            leave(stage);
            QCOMPARE(ended, QList<State>({State::Cancelled}));
            QCOMPARE(stage.taken(), QByteArray("inner leave"));
            QVERIFY(!ConnectionInstance::current() && !QGuiApplication::overrideCursor());
            stage.pointer.moveTo(kInner);
            stage.pointer.release();
            QCOMPARE(stage.taken(), QByteArray());
        }
    }

    void aDragIsNoClickAndItsCancellingPressOpensNoMenu()
    {
        Stage stage;
        stage.window.setContextMenuPolicy(Qt::CustomContextMenu);
        const QSignalSpy menus(&stage.window, &QWidget::customContextMenuRequested);
        const QSignalSpy clicks(stage.whip, &QAbstractButton::clicked);
        const QPoint center = stage.whip->geometry().center();
        stage.pointer.press(center);
        stage.pointer.moveTo(center + QPoint(2, 1)); // an unsteady hand
        stage.pointer.release();
        QCOMPARE(clicks.count(), 1);
        stage.dragTo(kNowhere);
        for (const int opened : {0, 1}) { // the next one opens it again
            stage.pointer.click(kNowhere, Qt::RightButton);
            stage.pointer.moveTo(center);
            stage.pointer.release();
            QVERIFY(menus.count() == opened && clicks.count() == 1);
        }
    }

    void anythingMayDieInAnyCallback()
    {
        const Act kills[] = {
            [](Stage& s) { delete s.inner; },
            [](Stage& s) { delete s.outer; },
            [](Stage& s) { delete s.whip; },
            [](Stage& s) { s.window.close(); },
            [](Stage& s) { delete s.connection; }};
        for (const Act& kill : kills) {
            for (const QByteArray callback : {"enter", "move", "drop", "leave"}) {
                Stage stage;
                KthSignal onCallback{0, [&] { kill(stage); }};
                int ends = 0;
                connect(stage.whip, &PickWhip::connectionStarted, this, [&](const auto* started) {
                    connect(started, &ConnectionInstance::finished, this, [&] { ++ends; });
                });
                stage.inner->reaction = [&](const QByteArray& what, ConnectionInstance* told) {
                    if (what == callback && !onCallback.isDone()) {
                        stage.connection = told;
                        onCallback();
                    }
                };
                stage.dragTo(kInner);
                stage.pointer.release();
                QVERIFY2(onCallback.isDone(), callback.constData());
                QVERIFY(!ConnectionInstance::current() && !QGuiApplication::overrideCursor());
                QCOMPARE(ends, 1);
                const bool isLeft = stage.inner || callback == "leave";
                QCOMPARE(stage.log.count(QByteArray("inner leave")), isLeft ? 1 : 0);
            }
        }
    }

    void theLineFollowsCrossesWindowsAndGoesBack()
    {
        Stage stage;
        const QPointer<ConnectionInstance> connection = stage.dragTo(kNowhere);
        const auto isDrawnAt = [&](double share) {
            return Stage::isAccent(stage.window, stage.lineTo(kNowhere).at(share));
        };
        QVERIFY(isDrawnAt(0.5));
        stage.whip->move(stage.whip->pos() + QPoint(0, 60)); // as when its list is scrolled
        stage.taken();
        QVERIFY(isDrawnAt(0.3));
        QCOMPARE(QApplication::widgetAt(stage.window.mapToGlobal(kInner)), stage.inner.data());
        stage.pointer.moveTo(kBeyond + QPoint(60, 60));
        QVERIFY(!isDrawnAt(0.5));
        const QPoint end = stage.other.mapFromGlobal(connection->endPosition());
        QVERIFY(Stage::isAccent(stage.other, end));
        QVERIFY(Stage::isAccent(stage.other, {100, 0})); // the receiver's frame
        stage.pointer.moveTo(kNowhere);
        QVERIFY(!Stage::isAccent(stage.other, {100, 0}));
        stage.pointer.release();
        QVERIFY(isDrawnAt(0.5));
        FakeClock(connection).advanceAnimations(100); // more than half of the way back
        QVERIFY(!isDrawnAt(0.8));
        Stage::finishAnimations();
        QVERIFY(!connection && !isDrawnAt(0.1));
        QVERIFY(stage.window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly).size() == 2);
    }

    void whatIsRepaintedHoldsTheLineAndLittleElse()
    {
        for (const QPointF end : {QPointF(500, 300), {36, 0}, {-80, 640}, {3, 4}, {0, 0}}) {
            const ui::ConnectionCurve curve{{0, 0}, end};
            const QRegion region = curve.region(4.0);
            for (double share = 0.0; share <= 1.0; share += 0.01) {
                for (const QPointF& aside : {QPointF(3, 3), QPointF(-3, 3), QPointF(3, -3)}) {
                    QVERIFY(region.contains((curve.at(share) + aside).toPoint()));
                }
            }
            QVERIFY(!region.contains(QPoint(400, 20)));
        }
    }
};

const Registration<ConnectionTest> kRegistration;

#include "tst_connection.moc"
