#include "controls/StyledApplication.h"
#include "support/FakeClock.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/docking/TabBarHeader.h>
#include <MorrantUI/docking/TabBarOverlay.h>
#include <MorrantUI/docking/TabGradientOverlay.h>
#include <MorrantUI/docking/TabItem.h>

#include <QtWidgets>

#include <functional>

using ui::test::FakeClock;
using ui::test::FakePointer;

namespace {

const QString kFormat = QStringLiteral("application/tab-reorder");

/// A header that notes its drags instead of running them.
class Header : public TabBarHeader
{
public:
    explicit Header(int tabs)
    {
        for (int i = 0; i < tabs; ++i) {
            insertTab(-1, new TabItem(QStringLiteral("Tab %1").arg(i), this));
        }
        resize(qMin(sizeHint().width(), 500), sizeHint().height());
        show();
    }

    struct Drag
    {
        QByteArray data;
        QStringList formats;
        QPoint hotSpot;
        QSize pixmap;
        bool fadesShown;
    };

    QList<Drag> drags;
    std::function<void()> whileDragging;

    /// The middle of a tab, in the header.
    QPoint middle(int index) const { return tab(index)->mapTo(this, tab(index)->rect().center()); }

    QString order() const
    {
        QStringList all;
        for (int i = 0; i < count(); ++i) {
            all << tab(i)->text().mid(4);
        }
        return all.join(QLatin1Char(' '));
    }

    bool showsDrop() const { return findChild<TabBarOverlay*>()->isVisible(); }

protected:
    Qt::DropAction runDrag(QDrag* drag) override
    {
        drags.append({
            drag->mimeData()->data(kFormat),
            drag->mimeData()->formats(),
            drag->hotSpot(),
            drag->pixmap().size(),
            findChild<TabGradientOverlay*>()->isVisible(),
        });
        if (whileDragging) {
            const auto run = whileDragging; // may delete this
            run();
        }
        return Qt::IgnoreAction;
    }
};

/// What is dragged over a header, as the system tells.
struct Dragged
{
    explicit Dragged(const QByteArray& bytes, const QString& format = kFormat)
    {
        data.setData(format, bytes);
    }

    template <typename Event>
    bool send(QWidget* to, QPoint at)
    {
        Event event(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.setAccepted(false);
        QCoreApplication::sendEvent(to, &event);
        return event.isAccepted();
    }
    bool enter(QWidget* to, QPoint at) { return send<QDragEnterEvent>(to, at); }
    bool move(QWidget* to, QPoint at) { return send<QDragMoveEvent>(to, at); }
    bool drop(QWidget* to, QPoint at) { return send<QDropEvent>(to, at); }

    QMimeData data;
};

} // namespace

class TabDragTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aDragCarriesTheIndexAndThePictureOfItsTab();
    void noDragStartsWhereNothingCouldMove();
    void theHeaderMayDieOrLoseTheTabInTheDrag();
    void aDropMovesTheTabUnderThePointer_data();
    void aDropMovesTheTabUnderThePointer();
    void aDropCountsWhatIsScrolledOutOfSight();
    void forgedDataIsRefused_data();
    void forgedDataIsRefused();
    void theMarkerShowsOnlyWhatADropWouldChange();
    void holdingATabAtTheEdgeScrolls();

private:
    ui::test::StyledApplication m_application;
};

void TabDragTest::aDragCarriesTheIndexAndThePictureOfItsTab()
{
    Header header(14);
    QVERIFY(QTest::qWaitForWindowExposed(&header));
    FakePointer pointer(&header);
    for (const int index : {0, 12}) {
        header.scrollTo(index);
        TabItem* const tab = header.tab(index);
        const QPoint press = header.middle(index) + QPoint(3, 2);
        pointer.moveTo(press);
        pointer.press();
        pointer.moveTo(press + QPoint(QApplication::startDragDistance() - 1, 0));
        QVERIFY(header.drags.isEmpty());
        pointer.moveTo(press + QPoint(QApplication::startDragDistance(), 0));
        QCOMPARE(header.drags.size(), 1);
        pointer.moveTo(press + QPoint(40, 0)); // one drag a press
        pointer.release();
        const Header::Drag drag = header.drags.takeFirst();
        QVERIFY(header.drags.isEmpty());
        QCOMPARE(drag.data, index == 0 ? QByteArray("0") : QByteArray("12"));
        QCOMPARE(drag.formats, QStringList{kFormat});
        QCOMPARE(drag.hotSpot, press - tab->mapTo(&header, QPoint(0, 0)));
        QCOMPARE(drag.pixmap, tab->size() * header.devicePixelRatio());
        QVERIFY(!drag.fadesShown);
        QVERIFY(header.findChild<TabGradientOverlay*>()->isVisible());
    }
}

void TabDragTest::noDragStartsWhereNothingCouldMove()
{
    Header lone(1);
    QVERIFY(QTest::qWaitForWindowExposed(&lone));
    QSignalSpy clicked(lone.tab(0), &TabItem::clicked);
    FakePointer pointer(&lone);
    pointer.moveTo({5, 10});
    pointer.press();
    pointer.dragTo({40, 10});
    pointer.release();
    QVERIFY(lone.drags.isEmpty());
    QCOMPARE(clicked.count(), 1); // a shaky click remains one

    Header header(3);
    QVERIFY(QTest::qWaitForWindowExposed(&header));
    header.tab(1)->setEnabled(false);
    FakePointer other(&header);
    const auto drag = [&](QPoint from, Qt::MouseButton button) {
        other.moveTo(from);
        other.press(button);
        other.dragTo(from + QPoint(30, 0));
        other.release(button);
    };
    drag(header.middle(1), Qt::LeftButton);
    drag(header.middle(0), Qt::RightButton);
    QVERIFY(header.drags.isEmpty());
    drag(header.middle(0), Qt::LeftButton);
    QCOMPARE(header.drags.size(), 1);
}

void TabDragTest::theHeaderMayDieOrLoseTheTabInTheDrag()
{
    const auto drag = [](Header* header) {
        QVERIFY(QTest::qWaitForWindowExposed(header));
        FakePointer pointer(header);
        pointer.moveTo(header->middle(1));
        pointer.press();
        pointer.moveTo(header->middle(1) + QPoint(60, 0));
        pointer.release();
    };
    const QPointer<Header> mortal = new Header(3);
    mortal->whileDragging = [mortal] { delete mortal.data(); };
    drag(mortal);
    QVERIFY(mortal.isNull());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the drag itself

    Header header(4);
    header.whileDragging = [&header] {
        header.removeTab(1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    drag(&header);
    QCOMPARE(header.order(), QStringLiteral("0 2 3"));
    header.whileDragging = [&header] { // the data still says 1
        header.removeTab(0);
        Dragged dragged(header.drags.last().data);
        QVERIFY(dragged.enter(&header, header.middle(0)));
        QVERIFY(dragged.drop(&header, header.middle(1) + QPoint(5, 0)));
    };
    drag(&header);
    QCOMPARE(header.drags.last().data, QByteArray("1"));
    QCOMPARE(header.order(), QStringLiteral("3 2"));
}

void TabDragTest::aDropMovesTheTabUnderThePointer_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("over");
    QTest::addColumn<int>("beside"); // pixels in reading direction from the middle of that tab
    QTest::addColumn<QString>("order");
    QTest::addColumn<QString>("moved");
    const auto row = [](const char* name) -> QTestData& { return QTest::newRow(name); };
    row("to the right, behind") << QByteArray("0") << 2 << 5 << "1 2 0 3"
                                << "0 2";
    row("to the right, before") << QByteArray("0") << 2 << -5 << "1 0 2 3"
                                << "0 1";
    row("to the left, before") << QByteArray("3") << 0 << -5 << "3 0 1 2"
                               << "3 0";
    row("to the left, behind") << QByteArray("3") << 0 << 5 << "0 3 1 2"
                               << "3 1";
    row("onto itself") << QByteArray("1") << 1 << 5 << "0 1 2 3"
                       << "";
    row("beside itself") << QByteArray("1") << 2 << -5 << "0 1 2 3"
                         << "";
    row("behind all") << QByteArray("1") << 3 << 500 << "0 2 3 1"
                      << "1 3";
}

void TabDragTest::aDropMovesTheTabUnderThePointer()
{
    QFETCH(QByteArray, data);
    QFETCH(int, over);
    QFETCH(int, beside);
    QFETCH(QString, order);
    QFETCH(QString, moved);
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        Header header(4);
        header.setLayoutDirection(direction);
        QCoreApplication::sendPostedEvents();
        header.setCurrentIndex(1);
        QString told;
        connect(&header, &TabBarHeader::tabMoved, &header, [&told](int from, int to) {
            told += QStringLiteral("%1 %2").arg(from).arg(to);
        });
        const int away = direction == Qt::LeftToRight ? beside : -beside;
        const QPoint at = header.middle(over) + QPoint(away, 0);
        Dragged dragged(data);
        QVERIFY(dragged.enter(&header, {1, 1}));
        QVERIFY(dragged.move(&header, at));
        QVERIFY(dragged.drop(&header, at));
        QCOMPARE(header.order(), order);
        QCOMPARE(told, moved);
        QVERIFY(!header.showsDrop());
        if (!moved.isEmpty()) {
            QCOMPARE(header.currentTab()->text().mid(4), QString::fromLatin1(data));
        }
    }
}

void TabDragTest::aDropCountsWhatIsScrolledOutOfSight()
{
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        Header header(60);
        header.setLayoutDirection(direction);
        QCoreApplication::sendPostedEvents();
        header.setScrollOffset(INT_MAX);
        TabItem* const target = header.tab(57);
        Dragged dragged(QByteArray("2"));
        const QPoint at = header.middle(57);
        QVERIFY(dragged.enter(&header, at));
        header.removeTab(0); // meanwhile
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QVERIFY(dragged.drop(&header, header.middle(header.indexOf(target)) + QPoint(0, 3)));
        const int landed = header.currentIndex();
        QCOMPARE(header.tab(landed)->text(), QStringLiteral("Tab 3")); // now of that index
        QCOMPARE(qAbs(landed - header.indexOf(target)), 1);
    }
}

void TabDragTest::forgedDataIsRefused_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("empty") << kFormat << QByteArray();
    QTest::newRow("negative") << kFormat << QByteArray("-1");
    QTest::newRow("of no tab") << kFormat << QByteArray("4");
    QTest::newRow("huge") << kFormat << QByteArray(4000, '9');
    QTest::newRow("no digits") << kFormat << QByteArray("one");
    QTest::newRow("another format") << QStringLiteral("text/plain") << QByteArray("1");
}

void TabDragTest::forgedDataIsRefused()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, data);
    Header header(4);
    QSignalSpy moved(&header, &TabBarHeader::tabMoved);
    Dragged forged(data, format);
    QVERIFY(!forged.enter(&header, header.middle(2)));
    QVERIFY(!forged.enter(header.tab(2), {5, 5}));
    QVERIFY(!header.showsDrop());

    // Data that turns bad on the way.
    Dragged honest(QByteArray("0"));
    QVERIFY(honest.enter(&header, header.middle(2)));
    QVERIFY(header.showsDrop());
    QVERIFY(!forged.move(&header, header.middle(2)));
    QVERIFY(!header.showsDrop());
    QVERIFY(!forged.drop(&header, header.middle(2)));
    QCOMPARE(moved.count(), 0);
    QCOMPARE(header.order(), QStringLiteral("0 1 2 3"));
}

void TabDragTest::theMarkerShowsOnlyWhatADropWouldChange()
{
    Header header(4);
    const QColor accent = m_application.theme().getColor(QStringLiteral("Accent1"));
    const auto markerAt = [&](int x) {
        const QImage image = ui::test::renderWidget(header, 2.0);
        const QPointF at(x + 0.25, header.height() - 4.0);
        return ui::test::closeTo(ui::test::pixelAt(image, at), accent);
    };
    Dragged dragged(QByteArray("1"));
    const QPoint behindSecond(header.tab(2)->geometry().right() + 1, 5);
    QVERIFY(dragged.enter(&header, behindSecond));
    QVERIFY(markerAt(behindSecond.x()));
    QVERIFY(dragged.move(&header, header.middle(1)));
    QVERIFY(header.showsDrop()); // the tab itself is dimmed
    for (int x = 0; x < header.width(); ++x) {
        QVERIFY(!markerAt(x));
    }
    QVERIFY(dragged.move(&header, {-5, 5}));
    QVERIFY(markerAt(3)); // whole at the edge
    header.removeTab(1);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&header, &leave);
    QVERIFY(!header.showsDrop());
}

void TabDragTest::holdingATabAtTheEdgeScrolls()
{
    Header header(30);
    FakeClock clock(&header);
    Dragged dragged(QByteArray("0"));
    QVERIFY(dragged.enter(&header, {header.width() - 1, 5}));
    for (int i = 0; i < 3; ++i) {
        const int before = header.scrollOffset();
        QCOMPARE(clock.fireTimers(50), 1);
        QVERIFY(header.scrollOffset() > before);
    }
    QVERIFY(dragged.move(&header, {header.width() / 2, 5}));
    const int before = header.scrollOffset();
    clock.fireTimers(50);
    QCOMPARE(header.scrollOffset(), before);
    QVERIFY(dragged.drop(&header, {1, 5}));
    QCOMPARE(clock.fireTimers(50), 0); // nothing runs at idle
}

const ui::test::Registration<TabDragTest> kRegistration;

#include "tst_tabdrag.moc"
