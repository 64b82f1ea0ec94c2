// SPDX-License-Identifier: Apache-2.0
#include "docking/DockTree.h"
#include "support/TestCase.h"
#include <MorrantUI/MorrantUI.h>

using namespace ui::test;
using Area = DockableArea;

namespace {

/// Counts the show events that come through.
class CountingWindow : public DockableWindow
{
public:
    CountingWindow()
        : DockableWindow(new QWidget)
    {}
    int shown = 0;

protected:
    void showEvent(QShowEvent* /*event*/) override { ++shown; }
};

/// A header with a button, to see what setHeader() is asked from.
class ButtonHeader : public DockableHeader
{
public:
    QPushButton* button = new QPushButton(this);
};

} // namespace

class DockableWindowTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aNewWindowFloatsUnseen()
    {
        DockTree tree;
        auto* group = new DockableWindow;
        const QPointer<DockableWindow> panel = new DockableWindow(new QLabel);
        for (DockableWindow* window : {group, panel.data()}) {
            QVERIFY(window->isWindow() && window->isFloating() && window->isHidden());
            QCOMPARE(window->parentWidget(), gMainWindow);
            QVERIFY(window->windowHandle() == nullptr); // no native window before it shows
            const bool isPanel = window == panel;
            QCOMPARE(window->windowMode() == DockableWindow::WindowMode::Panel, isPanel);
            QCOMPARE(window->header()->isHidden(), !isPanel);
        }
        QVERIFY(!tree.root().isFloating() && tree.root().parentWidget() == nullptr);
        panel->show();
        panel->close();
        settle();
        QVERIFY(panel.isNull());
        const DockableWindow empty(static_cast<QWidget*>(nullptr));
        QCOMPARE(empty.content(), nullptr);
    }

    void theTreeEndsAtTheTopLevelWindow()
    {
        DockTree tree(u"H(V(x a) b)"_qs);
        DockableWindow* x = tree["x"];
        DockableGroup* nested = x->findDockableParentGroup();
        QCOMPARE(x->findDockableParent(), nested);
        QCOMPARE(nested->findDockableParent(), &tree.root());
        QCOMPARE(x->findDockableRoot(), &tree.root());
        QCOMPARE(DockableWindow::findDockableParent(x->content()), x);
        QCOMPARE(DockableWindow::findDockableParent(x), x);
        QCOMPARE(DockableWindow::findDockableParent(nullptr), nullptr);
        x->undock(false); // its parent widget is still the main window
        QVERIFY(!x->findDockableParent() && !x->findDockableParentGroup());
        QCOMPARE(x->findDockableRoot(), x);
        auto* dialog = new QWidget(tree["a"], Qt::Dialog);
        QCOMPARE(DockableWindow::findDockableParent(new QWidget(dialog)), nullptr);
    }

    void aTextReachesHeaderAndTitleUnlessItIsEmpty()
    {
        DockTree tree;
        DockableWindow* panel = DockTree::panel();
        const QSignalSpy changed(panel, &DockableWindow::textChanged);
        for (const QString& text : {u"Layers"_qs, QString(), u"Layers"_qs}) {
            panel->setText(text);
            panel->setHeader(new DockableTabHeader);
            const DockableHeader& header = *panel->header();
            for (const QString& shown :
                 {panel->getText(), header.text(), header.accessibleName(), panel->windowTitle()})
            {
                QCOMPARE(shown, u"Layers"_qs);
            }
        }
        QCOMPARE(changed.size(), 1);
    }

    void aHeaderIsReplacedEvenByItsOwnPress()
    {
        DockTree tree(u"H(p) b"_qs);
        DockableWindow* panel = tree["p"];
        const QPointer<ButtonHeader> first = new ButtonHeader;
        panel->setHeader(first);
        auto* second = new DockableTabHeader;
        connect(first->button, &QPushButton::pressed, panel, [&] { panel->setHeader(second); });
        settle();
        QTest::mouseClick(first->button, Qt::LeftButton);
        settle();
        QVERIFY(first.isNull());
        panel->setHeader(second); // the same again
        settle();
        QCOMPARE(panel->header(), second);
        QCOMPARE(panel->layout()->indexOf(second), 0);
        tree["b"]->setHeader(second); // to another window
        QCOMPARE(panel->header(), nullptr);
        panel->setHeaderVisible(true);
        panel->setText(u"q"_qs);
        QCOMPARE(second->text(), u"b"_qs);
        delete panel;
        QCOMPARE(tree["b"]->header(), second);
        tree["b"]->setHeader(nullptr);
        QCOMPARE(tree["b"]->header(), nullptr);
    }

    void thePanelKeepsWithinItsContentsLimits()
    {
        DockTree tree(u"H() p=100x80"_qs);
        DockableWindow& panel = *tree["p"];
        panel.content()->setMinimumSize(150, 100);
        panel.content()->setMaximumSize(180, 120);
        settle();
        const int header = panel.header()->height();
        QCOMPARE(panel.minimumSize(), QSize(150, 100 + header));
        QCOMPARE(panel.maximumSize(), QSize(180, 120 + header));
        QVERIFY(panel.width() >= 150);
    }

    void theFocusFrameIsALineAlongTheTop()
    {
        DockTree tree(u"H() p"_qs);
        DockableWindow& panel = *tree["p"];
        panel.setFocusFrameVisible(true);
        QVERIFY(panel.focusFrameVisible());
        panel.resize(170, 90);
        settle();
        auto* frame = panel.findChild<morrant::FocusFrame*>();
        QVERIFY(frame->testAttribute(Qt::WA_TransparentForMouseEvents));
        const QColor green = ui::colorQt(u"Green"_qs);
        const QImage image = renderWidget(panel);
        QVERIFY(closeTo(pixelAt(image, {169, 0}), green));
        QVERIFY(!closeTo(pixelAt(image, {169, 1}), green));
        panel.setHeader(new DockableTabHeader); // comes later, lies below
        panel.setFocusFrameVisible(true);
        QVERIFY(closeTo(pixelAt(renderWidget(panel), {10, 0}), green));
        panel.setFocusFrameVisible(false);
        QVERIFY(!panel.focusFrameVisible());
    }

    void aFlashReturnsToTheOwnColor()
    {
        DockTree tree(u"H() p"_qs);
        DockableWindow& panel = *tree["p"];
        auto* frame = panel.findChild<morrant::FocusFrame*>();
        panel.setFocusFrameVisible(true);
        const QColor own = frame->lineColor();
        FakeClock clock(&panel);
        // No colour is none; another restarts it in the middle, which is after 750 milliseconds.
        for (const auto& [flash, middle] :
             {std::pair(QColor(), own), {Qt::red, Qt::red}, {Qt::blue, Qt::blue}})
        {
            panel.flashFocusColor(flash);
            clock.advanceAnimations(750);
            const auto now = frame->property("currentColor").value<QColor>();
            QVERIFY(closeTo(now, middle, 3));
            QVERIFY(closeTo(pixelAt(renderWidget(*frame), {30, 0}), now));
        }
        clock.advanceAnimations(750);
        QCOMPARE(frame->property("currentColor").value<QColor>(), own);
        settle();
        panel.flashFocusColor(Qt::red);
        delete &panel;
    }

    void theDimmerCoversTheWindowWhateverItsSize()
    {
        DockTree tree(u"H() p=120x90"_qs);
        DockableWindow& panel = *tree["p"];
        panel.setDim(true);
        QVERIFY(panel.getDim());
        auto* dimmer = panel.findChild<WindowDimmer*>();
        QVERIFY(dimmer->testAttribute(Qt::WA_TransparentForMouseEvents));
        panel.resize(200, 150);
        auto* late = new QWidget(&panel);
        late->show();
        panel.setHeader(new DockableTabHeader);
        settle();
        QCOMPARE(dimmer->geometry(), panel.rect());
        QCOMPARE(panel.children().last(), dimmer); // above what came later

        const QColor base = ui::colorQt(u"Base"_qs);
        panel.content()->setAutoFillBackground(true);
        panel.content()->setPalette(QPalette(Qt::white));
        const QColor half(
            (255 + base.red()) / 2, (255 + base.green()) / 2, (255 + base.blue()) / 2);
        for (const bool dim : {true, false}) {
            panel.setDim(dim);
            const QPoint middle = panel.content()->geometry().center();
            QVERIFY(closeTo(pixelAt(renderWidget(panel), middle), dim ? half : Qt::white, 3));
        }
        QVERIFY(!panel.getDim());
    }

    void windowsFloatOnlyWhileTheApplicationIsActive()
    {
        DockTree tree(u"H(a)"_qs);
        QTRY_COMPARE(QGuiApplication::applicationState(), Qt::ApplicationActive);
        auto* panel = new CountingWindow;
        const auto showAgain = [&] {
            panel->hide();
            panel->shown = 0;
            panel->show();
            return panel->shown;
        };
        const Qt::WindowFlags flags = panel->windowFlags();
        QCOMPARE(showAgain(), 0); // made to float instead
        panel->onApplicationDeactivate();
        QCOMPARE(showAgain(), 1); // must not come back up
        panel->onApplicationActivate();
        QCOMPARE(showAgain(), 0);
        QCOMPARE(panel->windowFlags(), flags);
        tree.root().dockInArea(panel, Area::Left);
        QCOMPARE(showAgain(), 1); // the main window does not float
        tree.root().onApplicationDeactivate();
        tree.root().onApplicationActivate();
        QVERIFY(tree.root().isWindow());

        panel->undock(true);
        settle();
        for (const auto state : {Qt::ApplicationInactive, Qt::ApplicationActive}) {
            const bool left = state != Qt::ApplicationActive;
            Q_EMIT qApp->applicationStateChanged(state); // without a word from the host
            auto* late = new CountingWindow;
            QCoreApplication::sendPostedEvents(); // but nothing from the system
            QCOMPARE(showAgain(), left ? 1 : 0);
            late->show();
            QCOMPARE(late->shown, left ? 1 : 0);
        }
    }

    void bringingToFrontEndsTheMinimisedState()
    {
        DockTree tree(u"H() V(f g)"_qs);
        DockableGroup& group = *tree.group("^f");
        group.setWindowState(Qt::WindowMinimized);
        settle();
        group.bringToFront();
        settle();
        QVERIFY(!group.isMinimized() && group.isVisible());
        group.hide();
        group.bringToFront();
        QVERIFY(group.isVisible());
    }
};

const ui::test::Registration<DockableWindowTest> kRegistration;
#include "tst_dockablewindow.moc"
