#include "docking/DockTree.h"
#include "support/FakeClock.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/docking/DockableTabHeader.h>
#include <MorrantUI/docking/WindowDimmer.h>
#include <MorrantUI/theme/FocusFrame.h>
#include <MorrantUI/theme/colors.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

#include <utility>

using ui::test::closeTo;
using ui::test::DockTree;
using ui::test::pixelAt;
using ui::test::renderWidget;
using ui::test::settle;
using Area = DockableArea;

/// Makes what the class offers its heirs callable.
class OpenWindow : public DockableWindow
{
public:
    using DockableWindow::DockableWindow;
    using DockableWindow::topOffset;
};

class DockableWindowTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aNewWindowFloatsUnseen();
    void theTreeEndsAtTheTopLevelWindow();
    void aTextReachesHeaderAndTitleUnlessItIsEmpty();
    void aHeaderIsReplacedEvenByItsOwnPress();
    void aHeaderCanMoveToAnotherWindow();
    void theTopOffsetIsAHeaderOnTop();
    void thePanelKeepsWithinItsContentsLimits();
    void theFocusFrameIsALineAlongTheTop();
    void aFlashReturnsToTheOwnColor();
    void theDimmerCoversTheWindowWhateverItsSize();
    void windowsFloatOnlyWhileTheApplicationIsActive();
    void bringingToFrontEndsTheMinimisedState();
};

void DockableWindowTest::aNewWindowFloatsUnseen()
{
    DockTree tree;
    auto* group = new DockableWindow;
    auto* panel = new DockableWindow(new QLabel);
    for (DockableWindow* window : {group, panel}) {
        QVERIFY(window->isWindow() && window->isFloating() && window->isHidden());
        QCOMPARE(window->parentWidget(), gMainWindow);
        QVERIFY(window->testAttribute(Qt::WA_DeleteOnClose));
        QVERIFY(window->windowHandle() == nullptr); // no native window before it shows
        QVERIFY(closeTo(window->palette().color(QPalette::Window), QColor(31, 31, 31), 0));
        QVERIFY(!window->sideDockingDisabled && !window->verticalDockingDisabled);
        QCOMPARE(window->dropArea(), Area::None);
        QVERIFY(!window->getDim() && !window->focusFrameVisible());
    }
    QCOMPARE(group->windowMode(), DockableWindow::WindowMode::Group);
    QVERIFY(group->header()->isHidden());
    QCOMPARE(panel->windowMode(), DockableWindow::WindowMode::Panel);
    QVERIFY(!panel->header()->isHidden());
    QVERIFY(!tree.root().isFloating() && tree.root().parentWidget() == nullptr);

    const QPointer<DockableWindow> guard(panel);
    panel->show();
    panel->close();
    settle();
    QVERIFY(guard.isNull());
    DockableWindow empty(static_cast<QWidget*>(nullptr));
    QCOMPARE(empty.content(), nullptr);
}

void DockableWindowTest::theTreeEndsAtTheTopLevelWindow()
{
    DockTree tree;
    tree.showRow({200, 394});
    DockableGroup& root = tree.root();
    DockableWindow* a = root.getChild(0);
    DockableWindow* guest = DockTree::panel(QStringLiteral("x"));
    auto* nested = qobject_cast<DockableGroup*>(a->dockInArea(guest, Area::Top));
    QCOMPARE(guest->findDockableParent(), nested);
    QCOMPARE(guest->findDockableParentGroup(), nested);
    QCOMPARE(nested->findDockableParent(), &root);
    QCOMPARE(guest->findDockableRoot(), &root);
    QCOMPARE(DockableWindow::findDockableParent(guest->content()), guest);
    QCOMPARE(DockableWindow::findDockableParent(guest), guest);
    QCOMPARE(DockableWindow::findDockableParent(nullptr), nullptr);

    guest->undock(false); // its parent widget is still the main window
    QCOMPARE(guest->findDockableParent(), nullptr);
    QCOMPARE(guest->findDockableParentGroup(), nullptr);
    QCOMPARE(guest->findDockableRoot(), guest);
    auto* dialog = new QWidget(a, Qt::Dialog);
    QCOMPARE(DockableWindow::findDockableParent(new QWidget(dialog)), nullptr);
}

void DockableWindowTest::aTextReachesHeaderAndTitleUnlessItIsEmpty()
{
    DockTree tree;
    DockableWindow* panel = DockTree::panel();
    QSignalSpy changed(panel, &DockableWindow::textChanged);
    for (const QString& text : {QStringLiteral("Layers"), QString(), QStringLiteral("Layers")}) {
        panel->setText(text);
    }
    QCOMPARE(panel->getText(), QStringLiteral("Layers"));
    QCOMPARE(panel->header()->text(), QStringLiteral("Layers"));
    QCOMPARE(panel->header()->accessibleName(), QStringLiteral("Layers"));
    QCOMPARE(panel->windowTitle(), QStringLiteral("Layers"));
    QCOMPARE(changed.size(), 1);
    panel->setHeader(new DockableTabHeader);
    QCOMPARE(panel->header()->text(), QStringLiteral("Layers"));
}

/// A header with a button, to see what setHeader() is asked from.
class ButtonHeader : public DockableHeader
{
public:
    ButtonHeader() { button = new QPushButton(this); }
    QPushButton* button = nullptr;
};

void DockableWindowTest::aHeaderIsReplacedEvenByItsOwnPress()
{
    DockTree tree;
    DockableWindow* panel = DockTree::panel(QStringLiteral("p"));
    auto* first = new ButtonHeader;
    const QPointer<DockableHeader> guard(first);
    panel->setHeader(first);
    QCOMPARE(panel->layout()->indexOf(first), 0);
    auto* second = new DockableTabHeader;
    connect(first->button, &QPushButton::pressed, panel, [&] { panel->setHeader(second); });
    tree.root().dockInArea(panel, Area::Left);
    tree.show();
    QTest::mouseClick(first->button, Qt::LeftButton);
    QCOMPARE(panel->header(), second);
    settle();
    QVERIFY(guard.isNull());
    QCOMPARE(panel->layout()->indexOf(second), 0);
    panel->setHeader(second); // the same again
    settle();
    QCOMPARE(panel->header(), second);
    panel->setHeader(nullptr);
    QCOMPARE(panel->header(), nullptr);
    panel->setHeaderVisible(true);
    panel->setText(QStringLiteral("q"));
    QCOMPARE(panel->getText(), QStringLiteral("q"));
}

void DockableWindowTest::aHeaderCanMoveToAnotherWindow()
{
    DockTree tree;
    DockableWindow* a = DockTree::panel(QStringLiteral("a"));
    DockableWindow* b = DockTree::panel(QStringLiteral("b"));
    DockableHeader* header = a->header();
    b->setHeader(header);
    QCOMPARE(a->header(), nullptr);
    QCOMPARE(header->text(), QStringLiteral("b"));
    a->setText(QStringLiteral("c"));
    QCOMPARE(header->text(), QStringLiteral("b"));
    delete a;
    QCOMPARE(b->header(), header);
}

void DockableWindowTest::theTopOffsetIsAHeaderOnTop()
{
    DockTree tree;
    auto* panel = new OpenWindow(new QWidget);
    tree.root().dockInArea(panel, Area::Left);
    tree.show();
    QVERIFY(panel->header()->height() > 10);
    QCOMPARE(panel->topOffset(), panel->header()->height());
    panel->setHeaderDirection(QBoxLayout::BottomToTop);
    QCOMPARE(panel->topOffset(), 0);
    settle();
    QVERIFY(panel->header()->y() > panel->content()->y());
    panel->setHeaderDirection(QBoxLayout::TopToBottom);
    panel->setHeaderVisible(false);
    QCOMPARE(panel->topOffset(), 0);
}

void DockableWindowTest::thePanelKeepsWithinItsContentsLimits()
{
    DockTree tree;
    DockableWindow* panel = DockTree::panel(QStringLiteral("p"));
    panel->show();
    panel->content()->setMinimumSize(150, 100);
    panel->content()->setMaximumSize(180, 120);
    settle();
    const int header = panel->header()->height();
    QCOMPARE(panel->minimumSize(), QSize(150, 100 + header));
    QCOMPARE(panel->maximumSize(), QSize(180, 120 + header));
    QVERIFY(panel->width() >= 150);
}

void DockableWindowTest::theFocusFrameIsALineAlongTheTop()
{
    DockTree tree;
    DockableWindow* panel = DockTree::panel(QStringLiteral("p"));
    panel->show();
    panel->setFocusFrameVisible(true);
    QVERIFY(panel->focusFrameVisible());
    panel->resize(170, 90);
    settle();
    auto* frame = panel->findChild<morrant::FocusFrame*>();
    QCOMPARE(frame->geometry(), QRect(0, 0, 170, 1));
    QVERIFY(frame->testAttribute(Qt::WA_TransparentForMouseEvents));
    const QColor green = ui::colorQt(QStringLiteral("Green"));
    const QImage image = renderWidget(*panel);
    QVERIFY(closeTo(pixelAt(image, {169, 0}), green));
    QVERIFY(!closeTo(pixelAt(image, {169, 1}), green));
    panel->setHeader(new DockableTabHeader); // comes later, lies below
    panel->setFocusFrameVisible(true);
    QVERIFY(closeTo(pixelAt(renderWidget(*panel), {10, 0}), green));
    panel->setFocusFrameVisible(false);
    QVERIFY(!panel->focusFrameVisible());
}

void DockableWindowTest::aFlashReturnsToTheOwnColor()
{
    DockTree tree;
    DockableWindow* panel = DockTree::panel(QStringLiteral("p"));
    auto* frame = panel->findChild<morrant::FocusFrame*>();
    const auto color = [&] { return frame->property("currentColor").value<QColor>(); };
    const QColor own = frame->lineColor();
    ui::test::FakeClock clock(panel);
    panel->flashFocusColor(QColor()); // no colour: nothing
    clock.advanceAnimations(750);
    QCOMPARE(color(), own);
    panel->flashFocusColor(Qt::red);
    clock.advanceAnimations(750);
    QVERIFY(closeTo(color(), Qt::red, 3));
    panel->flashFocusColor(Qt::blue); // restarted in the middle
    clock.advanceAnimations(750);
    QVERIFY(closeTo(color(), Qt::blue, 3));
    panel->setFocusFrameVisible(true);
    panel->resize(60, 60);
    QVERIFY(closeTo(pixelAt(renderWidget(*frame), {30, 0}), color()));
    clock.advanceAnimations(750);
    QCOMPARE(color(), own);
    settle();
    panel->flashFocusColor(Qt::red);
    delete panel;
    settle();
}

void DockableWindowTest::theDimmerCoversTheWindowWhateverItsSize()
{
    DockTree tree;
    auto* content = new QWidget;
    auto* panel = new DockableWindow(content);
    panel->resize(120, 90);
    panel->show();
    panel->setDim(true);
    QVERIFY(panel->getDim());
    auto* dimmer = panel->findChild<WindowDimmer*>();
    QVERIFY(dimmer->testAttribute(Qt::WA_TransparentForMouseEvents));
    const QColor base = ui::colorQt(QStringLiteral("Base"));
    QCOMPARE(dimmer->color().rgb(), base.rgb());
    QVERIFY(qAbs(dimmer->color().alphaF() - 0.5F) < 0.01F);
    panel->resize(200, 150);
    auto* late = new QWidget(panel);
    late->setGeometry(0, 0, 30, 30);
    late->show();
    panel->setHeader(new DockableTabHeader);
    settle();
    QCOMPARE(dimmer->geometry(), panel->rect());
    QCOMPARE(panel->children().last(), dimmer); // above what came later

    content->setAutoFillBackground(true);
    content->setPalette(QPalette(Qt::white));
    const QColor half((255 + base.red()) / 2, (255 + base.green()) / 2, (255 + base.blue()) / 2);
    const QPoint middle = content->geometry().center();
    QVERIFY(closeTo(pixelAt(renderWidget(*panel), middle), half, 3));
    panel->setDim(false);
    QVERIFY(!panel->getDim());
    QVERIFY(closeTo(pixelAt(renderWidget(*panel), middle), Qt::white));
}

/// Counts the show events that the base class did not keep for itself.
class ShownWindow : public DockableWindow
{
public:
    ShownWindow()
        : DockableWindow(new QWidget)
    {}
    int shown = 0;

protected:
    void showEvent(QShowEvent* /*event*/) override { ++shown; }
};

void DockableWindowTest::windowsFloatOnlyWhileTheApplicationIsActive()
{
    DockTree tree;
    tree.showRow({200, 394});
    auto* panel = new ShownWindow;
    const auto showAgain = [&] {
        panel->hide();
        panel->show();
        return std::exchange(panel->shown, 0);
    };
    const Qt::WindowFlags flags = panel->windowFlags();
    QCOMPARE(showAgain(), 0); // made to float instead
    panel->onApplicationDeactivate();
    QCOMPARE(showAgain(), 1); // must not come back up
    panel->onApplicationActivate();
    QCOMPARE(showAgain(), 0);
    QCOMPARE(panel->windowFlags(), flags);
    tree.root().dockInArea(panel, Area::Left);
    panel->shown = 0;
    QCOMPARE(showAgain(), 1); // the main window does not float
    tree.root().onApplicationDeactivate();
    tree.root().onApplicationActivate();
}

void DockableWindowTest::bringingToFrontEndsTheMinimisedState()
{
    DockTree tree;
    DockableWindow* f = DockTree::panel(QStringLiteral("f"));
    f->show();
    auto* group = qobject_cast<DockableGroup*>(
        f->dockInArea(DockTree::panel(QStringLiteral("g")), Area::Top));
    group->setWindowState(Qt::WindowMinimized);
    settle();
    group->bringToFront();
    settle();
    QVERIFY(!group->isMinimized() && group->isVisible());
    group->hide();
    group->bringToFront();
    QVERIFY(group->isVisible());
}

const ui::test::Registration<DockableWindowTest> kRegistration;
#include "tst_dockablewindow.moc"
