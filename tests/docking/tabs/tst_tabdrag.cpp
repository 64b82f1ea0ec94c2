// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include "docking/tabs/TabBench.h"
#include <MorrantUI/docking/tabs/TabBarOverlay.h>
#include <MorrantUI/docking/tabs/TabGradientOverlay.h>

using namespace ui::test;

namespace {

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

    QPoint middle(int index) const { return middleOf(*this, index); }

    /// With the mouse, from there by that.
    void drag(QPoint from, QPoint way, Qt::MouseButton button = Qt::LeftButton)
    {
        QVERIFY(QTest::qWaitForWindowExposed(this));
        FakePointer pointer(this);
        pointer.press(from, button);
        pointer.dragTo(from + way, 1);
        pointer.release(button);
    }

    QString order() const
    {
        QString all;
        for (int i = 0; i < count(); ++i) {
            all += tab(i)->text();
        }
        return all;
    }

    bool showsDrop() const { return findChild<TabBarOverlay*>()->isVisible(); }
    bool showsFades() const { return findChild<TabGradientOverlay*>()->isVisible(); }

    std::function<void(const QDrag&)> whileDragging = [](const QDrag&) {};
    int drags = 0;

protected:
    Qt::DropAction runDrag(QDrag* drag) override
    {
        ++drags;
        const auto run = whileDragging; // may delete this
        run(*drag);
        return Qt::IgnoreAction;
    }
};

} // namespace

class TabDragTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aDragCarriesTheIndexAndThePictureOfItsTab()
    {
        Header header(14);
        for (const auto& [index, data] : {std::pair(0, "0"), {12, "12"}}) {
            header.scrollTo(index);
            const QPoint press = header.middle(index) + QPoint(3, 2);
            const TabItem& tab = *header.tab(index);
            header.whileDragging = [&, bytes = QByteArray(data)](const QDrag& drag) {
                QCOMPARE(drag.mimeData()->formats(), QStringList(u"application/tab-reorder"_qs));
                QCOMPARE(drag.mimeData()->data(u"application/tab-reorder"_qs), bytes);
                QCOMPARE(drag.hotSpot(), press - tab.mapTo(&header, QPoint(0, 0)));
                QCOMPARE(drag.pixmap().size(), tab.size() * header.devicePixelRatio());
                QVERIFY(!header.showsFades());
            };
            const int drags = header.drags;
            header.drag(press, {QApplication::startDragDistance() - 1, 0});
            QCOMPARE(header.drags, drags);
            header.drag(press, {QApplication::startDragDistance() + 30, 0});
            QCOMPARE(header.drags, drags + 1); // one a press
            QVERIFY(header.showsFades());
        }
    }

    void noDragStartsWhereNothingCouldMove()
    {
        Header lone(1);
        const QSignalSpy clicked(lone.tab(0), &TabItem::clicked);
        lone.drag(lone.middle(0), {20, 0});
        QCOMPARE(lone.drags, 0);
        QCOMPARE(clicked.count(), 1); // a shaky click remains one
        Header header(3);
        header.tab(1)->setEnabled(false);
        header.tab(2)->addCloseButton();
        header.resize(header.sizeHint());
        header.drag(header.middle(1), {25, 0});
        header.drag(header.middle(0), {25, 0}, Qt::RightButton);
        for (const QPoint& way : {QPoint(0, 0), QPoint(0, -5)}) { // after a press that ends there
            header.drag(header.middle(0), way);
            QWidget* const button = header.tab(2)->childAt(header.tab(2)->width() - 10, 10);
            header.drag(button->mapTo(&header, button->rect().center()), {-60, 0});
        }
        QCOMPARE(header.drags, 0);
        header.drag(header.middle(0), {25, 0});
        QCOMPARE(header.drags, 1);
    }

    void theHeaderMayDieOrLoseTheTabInTheDrag()
    {
        const QPointer<Header> mortal = new Header(3);
        mortal->whileDragging = [mortal](const QDrag&) { delete mortal.data(); };
        mortal->drag(mortal->middle(1), {60, 0});
        QVERIFY(mortal.isNull());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the drag itself

        Header header(4);
        header.whileDragging = [&header](const QDrag&) {
            header.removeTab(1);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        };
        header.drag(header.middle(1), {60, 0});
        QCOMPARE(header.order(), u"023"_qs);
        header.whileDragging = [&header](const QDrag&) {
            header.removeTab(0);
            Dragged dragged("1"); // as it was when the drag began
            QVERIFY(dragged.enter(&header, header.middle(0)));
            QVERIFY(dragged.drop(&header, header.middle(1) + QPoint(5, 0)));
        };
        header.drag(header.middle(1), {60, 0});
        QCOMPARE(header.order(), u"32"_qs);
    }

    void aDropCountsWhatIsScrolledOutOfSight()
    {
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            Header header(60);
            header.setLayoutDirection(direction);
            QCoreApplication::sendPostedEvents();
            header.setScrollOffset(INT_MAX);
            TabItem* const target = header.tab(57);
            Dragged dragged("2");
            QVERIFY(dragged.enter(&header, header.middle(57)));
            header.removeTab(0); // meanwhile
            QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
            QVERIFY(dragged.drop(&header, header.middle(header.indexOf(target)) + QPoint(0, 3)));
            const int landed = header.currentIndex();
            QCOMPARE(header.tab(landed)->text(), u"3"_qs); // now of that index
            QCOMPARE(qAbs(landed - header.indexOf(target)), 1);
        }
    }

    void forgedDataIsRefused()
    {
        const QString format = u"application/tab-reorder"_qs;
        for (const auto& [type, data] :
             {std::pair(format, QByteArray("4")), {u"text/plain"_qs, "1"}}) {
            Header header(4); // no tab is at 4
            const QPoint at = header.middle(2);
            Dragged forged(data, type);
            QVERIFY(!forged.enter(&header, at) && !forged.enter(header.tab(2), {5, 5}));
            QVERIFY(!header.showsDrop());
            Dragged honest("0"); // that turns bad on the way
            QVERIFY(honest.enter(&header, at) && header.showsDrop());
            QVERIFY(!forged.move(&header, at) && !header.showsDrop() && !forged.drop(&header, at));
            QCOMPARE(header.order(), u"0123"_qs);
        }
    }

    void theMarkerShowsOnlyWhatADropWouldChange()
    {
        Header header(4);
        const QColor accent = theme().getColor(u"Accent1"_qs);
        const auto marker = [&] { // the first x, or -1
            const QImage image = renderWidget(header, 2.0);
            for (int x = 0; x < header.width(); ++x) {
                const QPointF at(x + 0.25, header.height() - 4.0);
                if (closeTo(pixelAt(image, at), accent)) {
                    return x;
                }
            }
            return -1;
        };
        Dragged dragged("1");
        const QPoint behind(header.tab(2)->geometry().right() + 1, 5);
        QVERIFY(dragged.enter(&header, behind) && qAbs(marker() - behind.x()) < 4);
        QVERIFY(dragged.move(&header, header.middle(1)));
        QVERIFY(header.showsDrop()); // the tab itself is dimmed
        QCOMPARE(marker(), -1);
        QVERIFY(dragged.move(&header, {-5, 5}));
        QVERIFY(marker() >= 0 && marker() <= 3); // whole at the edge
        header.removeTab(1);
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(&header, &leave);
        QVERIFY(!header.showsDrop());
    }

    void holdingATabAtTheEdgeScrolls()
    {
        Header header(30);
        FakeClock clock(&header);
        Dragged dragged("0");
        QVERIFY(dragged.enter(&header, {header.width() - 1, 5}));
        const auto* const timer = header.findChild<QTimer*>();
        QTest::qSleep(6);
        QVERIFY(dragged.move(&header, {header.width() - 2, 5}));
        QVERIFY(timer->remainingTime() < timer->interval() - 3); // trembling puts nothing off
        for (const int x : {header.width() - 2, header.width() - 2, header.width() / 2}) {
            QVERIFY(dragged.move(&header, {x, 5}));
            const int before = header.scrollOffset();
            clock.fireTimers(50);
            QCOMPARE(header.scrollOffset() > before, x > header.width() / 2);
        }
        QVERIFY(dragged.drop(&header, {1, 5}));
        QCOMPARE(clock.fireTimers(50), 0); // nothing runs at idle
    }
};

const ui::test::Registration<TabDragTest> kRegistration;
#include "tst_tabdrag.moc"
