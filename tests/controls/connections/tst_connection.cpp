#include "MorrantUI/controls/connections/connectiongeometry.h"
#include "controls/KthSignal.h"
#include "support/FakeClock.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/paths.h"
#include "support/pixels.h"
#include "support/themes.h"
#include <MorrantUI/controls/connections/ConnectionInstance.h>
#include <MorrantUI/controls/connections/ConnectionReceiver.h>
#include <MorrantUI/controls/connections/PickWhip.h>
#include <MorrantUI/theme/VisualDesignDark.h>
#include <MorrantUI/theme/colors.h>

#include <QDialog>
#include <QPaintEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QWheelEvent>

#include <cmath>
#include <functional>

using ui::test::closeTo;
using ui::test::FakeClock;
using ui::test::FakePointer;
using ui::test::pixelAt;
using ui::test::renderWidget;
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

    std::function<void(const QString& what, ConnectionInstance*)> reaction;
    QRegion painted;

protected:
    void paintEvent(QPaintEvent* event) override { painted += event->region(); }

private:
    void note(const char* what, ConnectionInstance* connection)
    {
        const QString said = QLatin1String(what);
        const QByteArray line = (objectName() + u' ' + said).toUtf8();
        if (m_log.isEmpty() || m_log.last() != line) { // how many moves there are is not the point
            m_log << line;
        }
        if (reaction) {
            const auto react = reaction; // it may delete us
            react(said, connection);
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
        outer = new Recorder(u"outer"_qs, {80, 120, 120, 200}, log, &window);
        inner = new Recorder(u"inner"_qs, {30, 60, 60, 100}, log, outer);
        beyond = new Recorder(u"beyond"_qs, {0, 0, 140, 140}, log, &other);
        whip = new PickWhip(&window);
        whip->move(10, 10);
        other.show();
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&window) && QTest::qWaitForWindowExposed(&other));
        QObject::connect(
            whip, &PickWhip::connectionFinished, &window, [this](State state) { ended << state; });
    }

    ~Stage() { finishAnimations(); }

    /// Drags from the connector to a point of the window.
    QPointer<ConnectionInstance> dragTo(QPoint position)
    {
        pointer.moveTo(whip->geometry().center());
        pointer.press();
        pointer.dragTo(whip->geometry().center() + QPoint(20, 0));
        log.clear();
        pointer.moveTo(position);
        return ConnectionInstance::current();
    }

    void rightClick()
    {
        pointer.press(Qt::RightButton);
        pointer.release(Qt::RightButton);
    }

    QByteArray taken() { return std::exchange(log, {}).join(", "); }

    static void finishAnimations()
    {
        FakeClock(qApp).advanceAnimations(10000);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QByteArrayList log;
    QList<State> ended;
    QWidget window;
    QWidget other;
    QPointer<Recorder> outer;
    QPointer<Recorder> inner;
    QPointer<Recorder> beyond;
    QPointer<PickWhip> whip;
    QPointer<ConnectionInstance> connection; ///< for a test that takes it away
    FakePointer pointer{&window};
};

using Act = std::function<void(Stage&)>;

constexpr QPoint kNowhere(40, 250);
constexpr QPoint kOuter(95, 140);
constexpr QPoint kInner(140, 230);
constexpr QPoint kBeyond(230, 50); ///< in the other window

} // namespace

class ConnectionTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theInnermostReceiverIsTold()
    {
        Stage stage;
        const QPointer<ConnectionInstance> connection = stage.dragTo(kOuter);
        QVERIFY(connection);
        QCOMPARE(stage.taken(), QByteArray("outer enter, outer move"));
        const auto moveTo = [&stage](QPoint place) {
            stage.pointer.moveTo(place);
            return stage.taken();
        };
        QCOMPARE(moveTo(kInner), QByteArray("outer leave, inner enter, inner move"));
        QCOMPARE(moveTo(kInner), QByteArray()); // the same place again is nothing new
        stage.inner->setEnabled(false);
        QCOMPARE(moveTo(kInner), QByteArray("inner leave, outer enter, outer move"));
        stage.inner->setEnabled(true);
        stage.inner->hide();
        QCOMPARE(moveTo(kInner + QPoint(1, 0)), QByteArray("outer move"));

        QCOMPARE(moveTo(kBeyond), QByteArray("outer leave, beyond enter, beyond move"));
        stage.beyond->removeWidgetReceiver(stage.beyond);
        QCOMPARE(moveTo(kBeyond + QPoint(1, 0)), QByteArray("beyond leave"));
        stage.outer->makeWidgetReceiver(stage.beyond); // one receiver, several widgets
        QCOMPARE(moveTo(kBeyond), QByteArray("outer enter, outer move"));
        delete stage.outer; // with its registrations; it cannot be left any more
        QCOMPARE(moveTo(kBeyond + QPoint(1, 0)), QByteArray());
        QVERIFY(!connection->receiver() && connection->isRunning());
    }

    void aDropComesBeforeTheLeaveAndOnlyWhereItIsAccepted()
    {
        Stage stage;
        bool accepts = true;
        QList<ConnectionStyle> styles;
        stage.beyond->reaction = [&](const QString& what, ConnectionInstance* connection) {
            styles << connection->drawStyle();
            if (what == QLatin1String("enter")) {
                connection->setAccepted(accepts);
                connection->setDrawStyle(ConnectionStyle::Dashed);
            }
        };
        const auto cursorAt = [&](QPoint place) {
            stage.dragTo(place);
            const Qt::CursorShape shape = QGuiApplication::overrideCursor()->shape();
            stage.pointer.release();
            return shape;
        };
        QCOMPARE(cursorAt(kBeyond), Qt::DragLinkCursor);
        QCOMPARE(stage.taken(), QByteArray("beyond enter, beyond move, beyond drop, beyond leave"));
        QVERIFY(styles.first() == ConnectionStyle::Framed && styles[1] == ConnectionStyle::Dashed);
        QCOMPARE(styles.last(), ConnectionStyle::Line); // what was left says nothing any more
        accepts = false;
        QCOMPARE(cursorAt(kBeyond), Qt::ForbiddenCursor);
        QCOMPARE(stage.taken(), QByteArray("beyond enter, beyond move, beyond leave"));
        QCOMPARE(cursorAt(kNowhere), Qt::CrossCursor);
        QCOMPARE(stage.taken(), QByteArray());
        QCOMPARE(stage.ended, QList<State>({State::Dropped, State::Missed, State::Missed}));
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void aConnectionCarriesItsSourceAndBothEnds()
    {
        Stage stage;
        QObject attribute;
        stage.whip->setSource(&attribute, u"position.x"_qs);
        const QPointer<ConnectionInstance> connection = stage.dragTo(kNowhere);
        QCOMPARE(connection->source(), &attribute);
        QCOMPARE(connection->userData(), QVariant(u"position.x"_qs));
        QCOMPARE(connection->sourceWidget(), stage.whip.data());
        QCOMPARE(connection->endPosition(), stage.window.mapToGlobal(kNowhere));
        const QPoint before = stage.whip->mapToGlobal(stage.whip->rect().center());
        QCOMPARE(connection->startPosition(), before);
        stage.whip->move(stage.whip->pos() + QPoint(0, 30)); // as when its list is scrolled
        QCOMPARE(connection->startPosition(), before + QPoint(0, 30));

        const QSignalSpy moves(connection, &ConnectionInstance::moved);
        connection->moveTo(stage.window.mapToGlobal(kInner));
        connection->moveTo(stage.window.mapToGlobal(kInner));
        QCOMPARE(moves.count(), 1);
        connection->drop();
        connection->cancel();
        connection->moveTo({0, 0});
        QCOMPARE(stage.ended, QList<State>({State::Dropped}));
        QCOMPARE(connection->endPosition(), stage.window.mapToGlobal(kInner));

        stage.whip->hide(); // nothing starts where nobody can see it
        QVERIFY(!ConnectionInstance::start(stage.whip, {}));
        QVERIFY(!ConnectionInstance::start(nullptr, {}));
    }

    void receiversBlockedByADialogAreNotReached()
    {
        Stage stage;
        QDialog dialog;
        dialog.setGeometry(240, 190, 140, 100);
        PickWhip whip(&dialog);
        const Recorder inDialog(u"dialog"_qs, {60, 0, 80, 100}, stage.log, &dialog);
        dialog.setModal(true);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        ConnectionInstance* const connection = ConnectionInstance::start(&whip, {});
        connection->moveTo(stage.window.mapToGlobal(kInner));
        QVERIFY(!connection->receiver() && stage.log.isEmpty());
        connection->moveTo(dialog.mapToGlobal(QPoint(100, 50)));
        QCOMPARE(connection->receiverWidget(), &inDialog);
        connection->cancel();
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
            [](Stage& s) {
                ConnectionInstance* const second = ConnectionInstance::start(&s.other, {});
                QCOMPARE(ConnectionInstance::current(), second);
                second->cancel();
            }};
        for (const Act& leave : ways) {
            Stage stage;
            const QPointer<ConnectionInstance> connection = stage.dragTo(kInner);
            QList<State> ended;
            connect(connection, &ConnectionInstance::finished, this, [&](State state) {
                ended << state;
            });
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
        stage.pointer.moveTo(center);
        stage.pointer.press();
        stage.pointer.moveTo(center + QPoint(2, 1)); // an unsteady hand
        stage.pointer.release();
        QTest::keyClick(stage.whip, Qt::Key_Space);
        QTest::keyClick(stage.whip, Qt::Key_Return);
        QCOMPARE(clicks.count(), 3);
        QVERIFY(!ConnectionInstance::current());

        stage.dragTo(kNowhere);
        stage.rightClick();
        stage.pointer.moveTo(center);
        stage.pointer.release();
        QCOMPARE(menus.count(), 0);
        QCOMPARE(clicks.count(), 3);
        stage.pointer.moveTo(kNowhere); // and the next one opens it again
        stage.rightClick();
        QCOMPARE(menus.count(), 1);
    }

    void anythingMayDieInAnyCallback()
    {
        const Act kills[] = {
            [](Stage& s) { delete s.inner; },
            [](Stage& s) { delete s.outer; },
            [](Stage& s) { delete s.whip; },
            [](Stage& s) { s.window.close(); },
            [](Stage& s) { delete s.connection; }};
        const QStringList callbacks = {u"enter"_qs, u"move"_qs, u"drop"_qs, u"leave"_qs};
        for (const Act& kill : kills) {
            for (const QString& callback : callbacks) {
                Stage stage;
                ui::test::KthSignal onCallback;
                int ends = 0;
                connect(stage.whip, &PickWhip::connectionStarted, this, [&](const auto* started) {
                    connect(started, &ConnectionInstance::finished, this, [&] { ++ends; });
                });
                stage.inner->reaction = [&](const QString& what, ConnectionInstance* connection) {
                    if (what == callback && !onCallback.isDone()) {
                        stage.connection = connection;
                        onCallback();
                    }
                };
                onCallback = {0, [&] { kill(stage); }};
                stage.dragTo(kInner);
                stage.pointer.release();
                QVERIFY2(onCallback.isDone(), qPrintable(callback));
                QVERIFY(!ConnectionInstance::current() && !QGuiApplication::overrideCursor());
                QCOMPARE(ends, 1);
                const bool isLeft = stage.inner || callback == u"leave";
                QCOMPARE(stage.log.count(QByteArray("inner leave")), isLeft ? 1 : 0);
            }
        }
    }

    void aDropMayTakeLongerThanTheLine()
    {
        Stage stage;
        bool lived = false;
        const QPointer<ConnectionInstance> connection = stage.dragTo(kInner);
        stage.inner->reaction = [&](const QString& what, ConnectionInstance*) {
            if (what == QLatin1String("drop")) { // as a dialog's event loop does
                Stage::finishAnimations();
                QCoreApplication::processEvents();
                lived = connection && !ConnectionInstance::current();
            }
        };
        stage.pointer.release();
        QVERIFY(lived);
        QCOMPARE(stage.ended, QList<State>({State::Dropped}));
        Stage::finishAnimations();
        QVERIFY(!connection);
    }

    void aRestingPointerSeesWhatMovesBelowIt()
    {
        Stage stage;
        const QPointer<ConnectionInstance> connection = stage.dragTo(kInner);
        QCoreApplication::processEvents();
        stage.taken();
        stage.inner->move(stage.inner->pos() + QPoint(0, 1)); // still below it
        QCoreApplication::processEvents();
        QCOMPARE(stage.taken(), QByteArray());
        stage.inner->move(0, 0);
        stage.inner->resize(10, 10);
        QCoreApplication::processEvents();
        QCOMPARE(stage.taken(), QByteArray("inner leave, outer enter, outer move"));

        const QPoint end = stage.window.mapToGlobal(kInner);
        QWheelEvent wheel(
            kInner, end, {}, {0, 120}, Qt::LeftButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(stage.outer, &wheel);
        QCoreApplication::processEvents();
        QCOMPARE(stage.taken(), QByteArray("outer move")); // another part of it, for all we know

        stage.whip->move(stage.whip->pos() + QPoint(0, 100));
        QCoreApplication::processEvents();
        const ui::ConnectionCurve curve{stage.whip->geometry().center(), kInner};
        const QColor seen = pixelAt(renderWidget(stage.window, 2.0), curve.at(0.3));
        QVERIFY(closeTo(seen, ui::colorQt(u"ConnectorAccent"_qs), 12));
    }

    void theLineCrossesWindowsLeavesTheMouseAloneAndGoesBack()
    {
        Stage stage;
        const QColor accent = ui::colorQt(u"ConnectorAccent"_qs);
        const auto isAccent = [&](QWidget& window, QPointF place) {
            return closeTo(pixelAt(renderWidget(window, 2.0), place), accent, 12);
        };
        const ui::ConnectionCurve curve{stage.whip->geometry().center(), kNowhere};
        const QPointer<ConnectionInstance> connection = stage.dragTo(kNowhere);
        QVERIFY(isAccent(stage.window, curve.at(0.5)));
        QCOMPARE(QApplication::widgetAt(stage.window.mapToGlobal(kInner)), stage.inner.data());

        stage.pointer.moveTo(kBeyond + QPoint(60, 60));
        QVERIFY(!isAccent(stage.window, curve.at(0.5)));
        QVERIFY(isAccent(stage.other, stage.other.mapFromGlobal(connection->endPosition())));
        QVERIFY(isAccent(stage.other, QPoint(100, 0))); // the receiver's frame
        stage.pointer.moveTo(kNowhere);
        QVERIFY(!isAccent(stage.other, QPoint(100, 0)));
        stage.pointer.release();
        QVERIFY(isAccent(stage.window, curve.at(0.5)));
        FakeClock(connection).advanceAnimations(100); // more than half of the way back
        QVERIFY(!isAccent(stage.window, curve.at(0.8)));
        Stage::finishAnimations();
        QVERIFY(!connection && !isAccent(stage.window, curve.at(0.1)));
        QVERIFY(stage.window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly).size() == 2);
    }

    void onlyTheSurroundingsOfTheLineAreRepainted()
    {
        for (const QPointF end : {QPointF(500, 300), {36, 0}, {-80, 640}, {3, 4}, {0, 0}}) {
            const ui::ConnectionCurve curve{{0, 0}, end};
            const QRegion region = curve.region(4.0);
            for (double share = 0.0; share <= 1.0; share += 0.01) {
                for (const QPointF& aside : {QPointF(3, 3), QPointF(-3, 3), QPointF(3, -3)}) {
                    QVERIFY(region.contains((curve.at(share) + aside).toPoint()));
                }
            }
        }

        Stage stage;
        stage.beyond->setParent(&stage.window);
        stage.beyond->setGeometry(stage.window.rect());
        stage.beyond->lower();
        stage.beyond->show();
        stage.dragTo({190, 320});
        int y = 320;
        const auto isRepaintedAlongTheLineOnly = [&] {
            stage.beyond->painted = {};
            stage.pointer.moveTo({190, --y});
            QCoreApplication::processEvents();
            const QRegion painted = stage.beyond->painted;
            return painted.contains(QPoint(188, y)) && !painted.contains(QPoint(190, 20))
                   && !painted.contains(QPoint(20, 300));
        };
        QTRY_VERIFY(isRepaintedAlongTheLineOnly()); // at first the system may repaint more
        stage.pointer.release();
    }

private:
    VisualDesignDark& m_theme = ui::test::makeTheme<VisualDesignDark>(ui::test::assetsPath());
};

const ui::test::Registration<ConnectionTest> kRegistration;

#include "tst_connection.moc"
