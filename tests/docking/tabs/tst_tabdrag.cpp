#include "controls/StyledApplication.h"
#include "support/FakeClock.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabBarOverlay.h>
#include <MorrantUI/docking/tabs/TabGradientOverlay.h>
#include <MorrantUI/docking/tabs/TabItem.h>

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
            insertTab(-1, new TabItem(QString::number(i), this));
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
            all << tab(i)->text();
        }
        return all.join(u' ');
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
    void aPressOnACloseButtonDragsNoTab();
    void theHeaderMayDieOrLoseTheTabInTheDrag();
    void aDropMovesTheTabUnderThePointer();
    void aDropCountsWhatIsScrolledOutOfSight();
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
    const auto drag = [](Header& header, int tab, Qt::MouseButton button) {
        QVERIFY(QTest::qWaitForWindowExposed(&header));
        FakePointer pointer(&header);
        pointer.moveTo(header.middle(tab));
        pointer.press(button);
        pointer.dragTo(header.middle(tab) + QPoint(25, 0));
        pointer.release(button);
    };
    Header lone(1);
    QSignalSpy clicked(lone.tab(0), &TabItem::clicked);
    drag(lone, 0, Qt::LeftButton);
    QVERIFY(lone.drags.isEmpty());
    QCOMPARE(clicked.count(), 1); // a shaky click remains one
    Header header(3);
    header.tab(1)->setEnabled(false);
    drag(header, 1, Qt::LeftButton);
    drag(header, 0, Qt::RightButton);
    QVERIFY(header.drags.isEmpty());
    drag(header, 0, Qt::LeftButton);
    QCOMPARE(header.drags.size(), 1);
}

void TabDragTest::aPressOnACloseButtonDragsNoTab()
{
    Header header(3);
    header.tab(1)->addCloseButton();
    header.resize(header.sizeHint());
    QVERIFY(QTest::qWaitForWindowExposed(&header));
    auto* const button = header.tab(1)->childAt(header.tab(1)->width() - 10, 10);
    FakePointer pointer(&header);
    for (const bool inside : {true, false}) { // a press on a tab that ends before
        pointer.moveTo(header.middle(0));
        pointer.press();
        pointer.moveTo(inside ? header.middle(0) : header.middle(0) - QPoint(0, 5));
        pointer.release();
        pointer.moveTo(button->mapTo(&header, button->rect().center()));
        pointer.press();
        pointer.dragTo(header.middle(2));
        pointer.release();
        QVERIFY(header.drags.isEmpty());
    }
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

void TabDragTest::aDropMovesTheTabUnderThePointer()
{
    struct Drop
    {
        int tab, over;
        int beside; // pixels in reading direction from the middle of that tab
        QLatin1String outcome;
    };
    const Drop drops[] = {
        {0, 2, 5, QLatin1String("0>2: 1 2 0 3")},
        {0, 2, -5, QLatin1String("0>1: 1 0 2 3")},
        {3, 0, -5, QLatin1String("3>0: 3 0 1 2")},
        {3, 0, 5, QLatin1String("3>1: 0 3 1 2")},
        {1, 1, 5, QLatin1String(": 0 1 2 3")},  // onto itself
        {1, 2, -5, QLatin1String(": 0 1 2 3")}, // beside itself
        {1, 3, 500, QLatin1String("1>3: 0 2 3 1")},
    };
    for (const Drop& drop : drops) {
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            Header header(4);
            header.setLayoutDirection(direction);
            QCoreApplication::sendPostedEvents();
            header.setCurrentIndex(1);
            QString told;
            connect(&header, &TabBarHeader::tabMoved, &header, [&told](int from, int to) {
                told += u"%1>%2"_qs.arg(from).arg(to);
            });
            const int away = direction == Qt::LeftToRight ? drop.beside : -drop.beside;
            const QPoint at = header.middle(drop.over) + QPoint(away, 0);
            Dragged dragged(QByteArray::number(drop.tab));
            QVERIFY(dragged.enter(&header, {1, 1}));
            QVERIFY(dragged.move(&header, at));
            QVERIFY(dragged.drop(&header, at));
            QCOMPARE(told + u": "_qs + header.order(), drop.outcome);
            QVERIFY(!header.showsDrop());
            QCOMPARE(header.currentTab()->text().toInt(), drop.tab);
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
        QCOMPARE(header.tab(landed)->text(), u"3"_qs); // now of that index
        QCOMPARE(qAbs(landed - header.indexOf(target)), 1);
    }
}

void TabDragTest::forgedDataIsRefused()
{
    const std::pair<QString, QByteArray> forgeries[] = {
        {kFormat, QByteArray()},
        {kFormat, "-1"},
        {kFormat, "4"}, // of no tab
        {kFormat, QByteArray(4000, '9')},
        {kFormat, "one"},
        {u"text/plain"_qs, "1"},
    };
    for (const auto& [format, data] : forgeries) {
        Header header(4);
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
        QCOMPARE(header.order(), u"0 1 2 3"_qs);
    }
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
    const auto* const timer = header.findChild<QTimer*>();
    QTest::qSleep(6);
    QVERIFY(dragged.move(&header, {header.width() - 2, 5}));
    QVERIFY(timer->remainingTime() < timer->interval() - 3); // a trembling hand puts nothing off
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
