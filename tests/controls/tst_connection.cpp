#include "support/FakeClock.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/paths.h"
#include "support/pixels.h"
#include "support/themes.h"
#include <MorrantUI/controls/ConnectionInstance.h>
#include <MorrantUI/controls/ConnectionReceiver.h>
#include <MorrantUI/controls/PickWhip.h>
#include <MorrantUI/controls/connectiongeometry.h>
#include <MorrantUI/theme/VisualDesignDark.h>
#include <MorrantUI/theme/colors.h>

#include <QDialog>
#include <QPaintEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTranslator>
#include <QWheelEvent>

#include <cmath>
#include <functional>
#include <memory>

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

    /// How often somebody waits for our death.
    int watchers() const { return receivers(SIGNAL(destroyed(QObject*))); }

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

/// A language of capital letters.
class Shouted : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* source, const char*, int) const override
    {
        return QString::fromUtf8(source).toUpper();
    }
};

/// A window with a connector in its corner and nested receivers, and another window beside it.
struct Stage
{
    Stage()
    {
        window.setGeometry(20, 20, 210, 340); // all on the smallest screen, at ratio 2
        other.setGeometry(240, 20, 140, 140);
        outer = new Recorder(QStringLiteral("outer"), {80, 120, 120, 200}, log, &window);
        inner = new Recorder(QStringLiteral("inner"), {30, 60, 60, 100}, log, outer);
        beyond = new Recorder(QStringLiteral("beyond"), {0, 0, 140, 140}, log, &other);
        whip = new PickWhip(&window);
        whip->move(10, 10);
        other.show();
        window.show();
        window.activateWindow();
        shown = QTest::qWaitForWindowExposed(&window) && QTest::qWaitForWindowExposed(&other);
        pointer = std::make_unique<FakePointer>(&window);
        QObject::connect(
            whip, &PickWhip::connectionFinished, &window, [this](State state) { ended << state; });
    }

    ~Stage() { finishAnimations(); }

    /// Drags from the connector to a point of the window.
    QPointer<ConnectionInstance> dragTo(QPoint position)
    {
        pointer->moveTo(whip->geometry().center());
        pointer->press();
        pointer->dragTo(whip->geometry().center() + QPoint(20, 0));
        log.clear();
        pointer->moveTo(position);
        return ConnectionInstance::current();
    }

    QByteArray taken() { return std::exchange(log, {}).join(", "); }

    static void finishAnimations()
    {
        FakeClock(qApp).advanceAnimations(10000);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    bool shown = false;
    QByteArrayList log;
    QList<State> ended;
    QWidget window;
    QWidget other;
    QPointer<Recorder> outer;
    QPointer<Recorder> inner;
    QPointer<Recorder> beyond;
    QPointer<PickWhip> whip;
    QPointer<ConnectionInstance> connection; ///< for a test that takes it away
    std::unique_ptr<FakePointer> pointer;
};

constexpr QPoint kNowhere(40, 250);
constexpr QPoint kOuter(95, 140);
constexpr QPoint kInner(140, 230);
constexpr QPoint kBeyond(230, 50); ///< in the other window

} // namespace

class ConnectionTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theInnermostReceiverIsTold();
    void aDropComesBeforeTheLeaveAndOnlyWhereItIsAccepted();
    void aConnectionCarriesItsSourceAndBothEnds();
    void receiversBlockedByADialogAreNotReached();

    void everyDoorCancels_data();
    void everyDoorCancels();
    void aDragIsNoClickAndItsCancellingPressOpensNoMenu();
    void anythingMayDieInAnyCallback_data();
    void anythingMayDieInAnyCallback();
    void aDropMayTakeLongerThanTheLine();
    void aRestingPointerSeesWhatMovesBelowIt();
    void aConnectorSpeaksTheLanguageOfNow();

    void theLineCrossesWindowsLeavesTheMouseAloneAndGoesBack();
    void onlyTheSurroundingsOfTheLineAreRepainted();

private:
    VisualDesignDark& m_theme = ui::test::makeTheme<VisualDesignDark>(ui::test::assetsPath());
};

void ConnectionTest::theInnermostReceiverIsTold()
{
    Stage stage;
    QVERIFY(stage.shown);
    const QPointer<ConnectionInstance> connection = stage.dragTo(kOuter);
    QVERIFY(connection);
    QCOMPARE(stage.taken(), QByteArray("outer enter, outer move"));
    const auto moveTo = [&stage](QPoint place) {
        stage.pointer->moveTo(place);
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
    const int watchers = stage.inner->watchers();
    for (int again = 0; again < 3; ++again) {
        stage.inner->removeWidgetReceiver(stage.inner);
        stage.inner->makeWidgetReceiver(stage.inner);
    }
    QCOMPARE(stage.inner->watchers(), watchers);
    delete stage.outer; // with its registrations; it cannot be left any more
    QCOMPARE(moveTo(kBeyond + QPoint(1, 0)), QByteArray());
    QVERIFY(!connection->receiver() && connection->isRunning());
}

void ConnectionTest::aDropComesBeforeTheLeaveAndOnlyWhereItIsAccepted()
{
    Stage stage;
    QVERIFY(stage.shown);
    bool accepts = true;
    QList<ConnectionStyle> styles;
    stage.beyond->reaction = [&](const QString& what, ConnectionInstance* connection) {
        styles << connection->drawStyle();
        if (what == QLatin1String("enter")) {
            connection->setAccepted(accepts);
            connection->setDrawStyle(ConnectionStyle::Dashed);
        }
    };
    QPointer<ConnectionInstance> connection = stage.dragTo(kBeyond);
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::DragLinkCursor);
    stage.pointer->release();
    QCOMPARE(stage.taken(), QByteArray("beyond enter, beyond move, beyond drop, beyond leave"));
    QCOMPARE(styles.first(), ConnectionStyle::Framed);
    QCOMPARE(styles[1], ConnectionStyle::Dashed);
    QCOMPARE(styles.last(), ConnectionStyle::Line); // what was left says nothing any more

    accepts = false;
    connection = stage.dragTo(kBeyond);
    QVERIFY(!connection->isAccepted());
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::ForbiddenCursor);
    stage.pointer->release();
    QCOMPARE(stage.taken(), QByteArray("beyond enter, beyond move, beyond leave"));

    stage.dragTo(kNowhere);
    stage.pointer->release();
    QCOMPARE(stage.taken(), QByteArray());
    QCOMPARE(stage.ended, QList<State>({State::Dropped, State::Missed, State::Missed}));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void ConnectionTest::aConnectionCarriesItsSourceAndBothEnds()
{
    Stage stage;
    QVERIFY(stage.shown);
    QObject attribute;
    stage.whip->setSource(&attribute, QStringLiteral("position.x"));
    const QPointer<ConnectionInstance> connection = stage.dragTo(kNowhere);
    QVERIFY(connection);
    QCOMPARE(connection->source(), &attribute);
    QCOMPARE(connection->userData(), QVariant(QStringLiteral("position.x")));
    QCOMPARE(connection->sourceWidget(), stage.whip.data());
    QCOMPARE(connection->endPosition(), stage.window.mapToGlobal(kNowhere));
    QCOMPARE(connection->startPosition(), stage.whip->mapToGlobal(stage.whip->rect().center()));
    const QPoint before = connection->startPosition();
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

void ConnectionTest::receiversBlockedByADialogAreNotReached()
{
    Stage stage;
    QVERIFY(stage.shown);
    QDialog dialog;
    dialog.setGeometry(240, 190, 140, 100);
    PickWhip whip(&dialog);
    QByteArrayList log;
    const Recorder inDialog(QStringLiteral("dialog"), {60, 0, 80, 100}, log, &dialog);
    dialog.setModal(true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    ConnectionInstance* const connection = ConnectionInstance::start(&whip, {});
    QVERIFY(connection);
    connection->moveTo(stage.window.mapToGlobal(kInner));
    QVERIFY(!connection->receiver());
    connection->moveTo(dialog.mapToGlobal(QPoint(100, 50)));
    QCOMPARE(connection->receiverWidget(), &inDialog);
    connection->cancel();
    QVERIFY(stage.log.isEmpty());
}

void ConnectionTest::everyDoorCancels_data()
{
    using Door = std::function<void(Stage&)>;
    QTest::addColumn<Door>("door");
    const auto sendTo = [](QEvent::Type type) {
        return [type](Stage& stage) {
            QEvent event(type);
            QCoreApplication::sendEvent(&stage.window, &event);
        };
    };
    QTest::newRow("Escape") << Door(
        [](Stage& stage) { QTest::keyClick(&stage.window, Qt::Key_Escape); });
    QTest::newRow("right press") << Door(
        [](Stage& stage) { stage.pointer->press(Qt::RightButton); });
    QTest::newRow("hidden") << Door([](Stage& stage) { stage.whip->hide(); });
    QTest::newRow("window closed") << Door([](Stage& stage) { stage.window.close(); });
    QTest::newRow("disabled") << Door([](Stage& stage) { stage.window.setEnabled(false); });
    QTest::newRow("deactivated") << Door(sendTo(QEvent::WindowDeactivate));
    QTest::newRow("connector deleted") << Door([](Stage& stage) { delete stage.whip; });
    QTest::newRow("dialog") << Door([](Stage& stage) {
        QDialog dialog(&stage.window);
        dialog.setModal(true);
        dialog.show();
        dialog.hide();
    });
    QTest::newRow("application quits")
        << Door([](Stage&) { QMetaObject::invokeMethod(qApp, "aboutToQuit"); });
    QTest::newRow("another start") << Door([](Stage& stage) {
        ConnectionInstance* const second = ConnectionInstance::start(&stage.other, {});
        QCOMPARE(ConnectionInstance::current(), second);
        second->cancel();
    });
    QTest::newRow("release lost") << Door([](Stage& stage) {
        FakePointer released(&stage.window);
        released.moveTo(kOuter);
    });
    QTest::newRow("connection deleted")
        << Door([](Stage&) { delete ConnectionInstance::current(); });
}

void ConnectionTest::everyDoorCancels()
{
    QFETCH(std::function<void(Stage&)>, door);
    Stage stage;
    QVERIFY(stage.shown);
    const QPointer<ConnectionInstance> connection = stage.dragTo(kInner);
    QVERIFY(connection);
    QList<State> ended;
    connect(connection, &ConnectionInstance::finished, this, [&](State state) { ended << state; });
    stage.taken();
    door(stage);
    QCOMPARE(ended, QList<State>({State::Cancelled}));
    QCOMPARE(stage.taken(), QByteArray("inner leave"));
    QVERIFY(!ConnectionInstance::current());
    QVERIFY(!QGuiApplication::overrideCursor());
    stage.pointer->moveTo(kInner);
    stage.pointer->release();
    QCOMPARE(stage.taken(), QByteArray());
}

void ConnectionTest::aDragIsNoClickAndItsCancellingPressOpensNoMenu()
{
    Stage stage;
    QVERIFY(stage.shown);
    int menus = 0;
    const auto requested = [&menus] { ++menus; };
    stage.window.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&stage.window, &QWidget::customContextMenuRequested, this, requested);
    const QSignalSpy clicks(stage.whip, &QAbstractButton::clicked);

    const QPoint center = stage.whip->geometry().center();
    stage.pointer->moveTo(center);
    stage.pointer->press();
    stage.pointer->moveTo(center + QPoint(2, 1)); // an unsteady hand
    stage.pointer->release();
    QTest::keyClick(stage.whip, Qt::Key_Space);
    QTest::keyClick(stage.whip, Qt::Key_Return);
    QCOMPARE(clicks.count(), 3);
    QVERIFY(!ConnectionInstance::current());

    stage.dragTo(kNowhere);
    stage.pointer->press(Qt::RightButton);
    stage.pointer->release(Qt::RightButton);
    stage.pointer->moveTo(center);
    stage.pointer->release();
    QCOMPARE(menus, 0);
    QCOMPARE(clicks.count(), 3);

    stage.pointer->moveTo(kNowhere); // and the next one opens it again
    stage.pointer->press(Qt::RightButton);
    stage.pointer->release(Qt::RightButton);
    QCOMPARE(menus, 1);
}

void ConnectionTest::anythingMayDieInAnyCallback_data()
{
    QTest::addColumn<QByteArray>("callback");
    QTest::addColumn<std::function<void(Stage&)>>("kill");
    const auto add = [](const char* victim, const std::function<void(Stage&)>& kill) {
        for (const char* const callback : {"enter", "move", "leave", "drop"}) {
            QTest::addRow("%s in %s", victim, callback) << QByteArray(callback) << kill;
        }
    };
    add("receiver", [](Stage& stage) { delete stage.inner; });
    add("its parent", [](Stage& stage) { delete stage.outer; });
    add("connector", [](Stage& stage) { delete stage.whip; });
    add("window closed", [](Stage& stage) { stage.window.close(); });
    add("connection", [](Stage& stage) { delete stage.connection; });
}

void ConnectionTest::anythingMayDieInAnyCallback()
{
    QFETCH(QByteArray, callback);
    QFETCH(std::function<void(Stage&)>, kill);
    Stage stage;
    QVERIFY(stage.shown);
    bool done = false;
    int ends = 0;
    connect(
        stage.whip,
        &PickWhip::connectionStarted,
        &stage.window,
        [&](const ConnectionInstance* connection) {
            connect(connection, &ConnectionInstance::finished, &stage.window, [&] { ++ends; });
        });
    stage.inner->reaction = [&](const QString& what, ConnectionInstance* connection) {
        if (what == QLatin1String(callback) && !std::exchange(done, true)) {
            stage.connection = connection;
            kill(stage);
        }
    };
    stage.dragTo(kInner);
    stage.pointer->moveTo(kInner + QPoint(5, 5));
    stage.pointer->release();
    QVERIFY(done);
    QVERIFY(!ConnectionInstance::current());
    QCOMPARE(ends, 1);
    const auto leaves = stage.log.count(QByteArray("inner leave"));
    QCOMPARE(leaves, stage.inner || callback == "leave" ? 1 : 0);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void ConnectionTest::aDropMayTakeLongerThanTheLine()
{
    Stage stage;
    QVERIFY(stage.shown);
    QPointer<ConnectionInstance> connection;
    bool lived = false;
    stage.inner->reaction = [&](const QString& what, ConnectionInstance*) {
        if (what == QLatin1String("drop")) { // as a dialog's event loop does
            Stage::finishAnimations();
            QCoreApplication::processEvents();
            lived = connection && !ConnectionInstance::current();
        }
    };
    connection = stage.dragTo(kInner);
    stage.pointer->release();
    QVERIFY(lived);
    QCOMPARE(stage.ended, QList<State>({State::Dropped}));
    Stage::finishAnimations();
    QVERIFY(!connection);
}

void ConnectionTest::aRestingPointerSeesWhatMovesBelowIt()
{
    Stage stage;
    QVERIFY(stage.shown);
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
    QVERIFY(closeTo(seen, ui::colorQt(QStringLiteral("ConnectorAccent")), 12));
}

void ConnectionTest::aConnectorSpeaksTheLanguageOfNow()
{
    QWidget window;
    PickWhip whip(&window);
    PickWhip named(&window);
    whip.setConnected(true);
    named.setToolTip(QStringLiteral("Parent"));
    const QString before = whip.toolTip();
    Shouted translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(whip.toolTip(), before.toUpper());
    QCOMPARE(whip.accessibleDescription(), QStringLiteral("CONNECTED"));
    QCOMPARE(named.toolTip(), QStringLiteral("Parent"));
    QCoreApplication::removeTranslator(&translator);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(whip.toolTip(), before);
}

void ConnectionTest::theLineCrossesWindowsLeavesTheMouseAloneAndGoesBack()
{
    Stage stage;
    QVERIFY(stage.shown);
    const QColor accent = ui::colorQt(QStringLiteral("ConnectorAccent"));
    const QPoint center = stage.whip->geometry().center();
    const auto lineShows = [&](const QPoint& end, double share) {
        const ui::ConnectionCurve curve{center, end};
        const QImage image = renderWidget(stage.window, 2.0);
        return closeTo(pixelAt(image, curve.at(share)), accent, 12);
    };
    const QPointer<ConnectionInstance> connection = stage.dragTo(kNowhere);
    QVERIFY(lineShows(kNowhere, 0.5));
    QCOMPARE(QApplication::widgetAt(stage.window.mapToGlobal(kInner)), stage.inner.data());

    stage.pointer->moveTo(kBeyond + QPoint(60, 60));
    QVERIFY(!lineShows(kNowhere, 0.5));
    const QImage other = renderWidget(stage.other);
    const QPoint end = stage.other.mapFromGlobal(connection->endPosition());
    QVERIFY(closeTo(pixelAt(other, end), accent, 12));
    QVERIFY(closeTo(pixelAt(other, QPoint(100, 0)), accent, 12)); // the receiver's frame

    stage.pointer->moveTo(kNowhere);
    QVERIFY(!closeTo(pixelAt(renderWidget(stage.other), QPoint(100, 0)), accent, 12));
    stage.pointer->release();
    QVERIFY(lineShows(kNowhere, 0.5));
    FakeClock(connection).advanceAnimations(100); // more than half of the way back
    QVERIFY(!lineShows(kNowhere, 0.8));
    Stage::finishAnimations();
    QVERIFY(!connection);
    QVERIFY(!lineShows(kNowhere, 0.1));
    QVERIFY(stage.window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly).size() == 2);
}

void ConnectionTest::onlyTheSurroundingsOfTheLineAreRepainted()
{
    for (const QPointF end : {QPointF(500, 300), {36, 0}, {-80, 640}, {3, 4}, {0, 0}}) {
        const ui::ConnectionCurve curve{{0, 0}, end};
        const QRegion region = curve.region(4.0);
        for (double share = 0.0; share <= 1.0; share += 0.01) {
            const QPointF point = curve.at(share);
            for (const QPointF& aside : {QPointF(3, 3), QPointF(-3, 3), QPointF(3, -3)}) {
                QVERIFY2(
                    region.contains((point + aside).toPoint()), qPrintable(QString::number(share)));
            }
        }
    }

    Stage stage;
    QVERIFY(stage.shown);
    stage.beyond->setParent(&stage.window);
    stage.beyond->setGeometry(stage.window.rect());
    stage.beyond->lower();
    stage.beyond->show();
    stage.dragTo({190, 320});
    int y = 320;
    const auto isRepaintedAlongTheLineOnly = [&] {
        stage.beyond->painted = {};
        stage.pointer->moveTo({190, --y});
        QCoreApplication::processEvents();
        const QRegion painted = stage.beyond->painted;
        return painted.contains(QPoint(188, y)) && !painted.contains(QPoint(190, 20))
               && !painted.contains(QPoint(20, 300));
    };
    QTRY_VERIFY(isRepaintedAlongTheLineOnly()); // at first the system may repaint more
    stage.pointer->release();
}

namespace {
const ui::test::Registration<ConnectionTest> kRegistration;
} // namespace

#include "tst_connection.moc"
