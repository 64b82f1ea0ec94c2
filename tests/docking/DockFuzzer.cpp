#include "docking/DockFuzzer.h"

#include "docking/DockTree.h"
#include "docking/Hand.h"
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/DockableTabHeader.h>
#include <MorrantUI/docking/DockableTabWidget.h>

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCursor>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QTimer>

#include <array>
#include <random>
#include <utility>

namespace ui::test {

namespace {

/// A panel with something in it; some refuse to close.
class FuzzedPanel : public DockableWindow
{
public:
    FuzzedPanel(const QString& title, bool refuses)
        : DockableWindow(new QLineEdit)
        , m_refuses(refuses)
    {
        setText(title);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    }

protected:
    void closeEvent(QCloseEvent* event) override { event->setAccepted(!m_refuses); }

private:
    bool m_refuses;
};

class DockSession
{
public:
    DockSession()
        : m_tree(QSize(1200, 800))
    {
        for (int i = 0; i < 12; ++i) {
            addPanel();
        }
        for (int i = 0; i < 6; ++i) {
            m_tree.root().dockInArea(window(i + 1), static_cast<DockableArea>(1 + i % 4));
        }
        m_tree.show();
    }

    QString play(const DockStep& step)
    {
        using Step = void (DockSession::*)(const DockStep&);
        static constexpr std::array<Step, 48> kSteps{
            &DockSession::dock,           &DockSession::dock,
            &DockSession::dock,           &DockSession::dock,
            &DockSession::undock,         &DockSession::undock,
            &DockSession::undockAndClose, &DockSession::mouseUndock,
            &DockSession::cleanup,        &DockSession::collapse,
            &DockSession::takeAndInsert,  &DockSession::insertStolen,
            &DockSession::changeHeader,   &DockSession::changeLook,
            &DockSession::destroyWindow,  &DockSession::resizeWindow,
            &DockSession::moveHandles,    &DockSession::closeWindow,
            &DockSession::activation,     &DockSession::settleAll,
            &DockSession::settleAll,      &DockSession::addPanelStep,
            &DockSession::focusSomething, &DockSession::processSome,
            &DockSession::dockAsTab,      &DockSession::dockAsTab,
            &DockSession::dockAsTab,      &DockSession::setActive,
            &DockSession::setActive,      &DockSession::setTabText,
            &DockSession::takeTab,        &DockSession::insertTab,
            &DockSession::insertTab,      &DockSession::drag,
            &DockSession::drag,           &DockSession::drag,
            &DockSession::drag,           &DockSession::drag,
            &DockSession::press,          &DockSession::press,
            &DockSession::moveHand,       &DockSession::moveHand,
            &DockSession::release,        &DockSession::endOtherwise,
            &DockSession::lockDrag,       &DockSession::incident,
            &DockSession::contextMenu,    &DockSession::processDeaths};
        (this->*kSteps[step.kind % kSteps.size()])(step);
        return broken();
    }

    /// What is still wrong when the hand has let go and everything has been done.
    QString finish()
    {
        m_hand.release();
        settleAll({});
        return broken();
    }

private:
    QString broken()
    {
        const bool settled = std::exchange(m_settled, false) && !m_hand.isDown();
        const Moment moment = m_hand.isDown() ? Moment::Dragging
                              : settled       ? Moment::Settled
                                              : Moment::Unsettled;
        QStringList found = brokenInvariants(moment);
        if (settled && mouseEventsAreKept()) {
            found << QStringLiteral("mouse events are kept");
        }
        return found.join(QStringLiteral("; "));
    }

    /// All windows in a fixed order: the root, then what belongs to it as it came.
    QList<DockableWindow*> windows()
    {
        QList<DockableWindow*> all = m_tree.root().findChildren<DockableWindow*>();
        all.prepend(&m_tree.root());
        return all;
    }
    /// Also dying ones, and sometimes none.
    DockableWindow* window(int number)
    {
        const auto all = windows();
        const qsizetype index = number % (all.size() + 1);
        return index < all.size() ? all.at(index) : nullptr;
    }
    DockableWindow& someWindow(int number)
    {
        const auto all = windows();
        return *all.at(number % all.size());
    }
    DockableGroup& someGroup(int number)
    {
        QList<DockableGroup*> groups = m_tree.root().findChildren<DockableGroup*>();
        groups.prepend(&m_tree.root());
        return *groups.at(number % groups.size());
    }
    void addPanel()
    {
        const int number = m_panels++;
        auto* panel = new FuzzedPanel(QStringLiteral("p%1").arg(number), number % 5 == 4);
        panel->resize(60 + 20 * (number % 7), 50 + 30 * (number % 4));
        if (number % 3 == 1) {
            panel->content()->setMinimumSize(40 + 10 * number % 90, 30);
        }
        if (number % 6 == 2) {
            panel->content()->setMaximumSize(120, 90);
        }
    }

    void dock(const DockStep& s)
    {
        someWindow(s.a).dockInArea(window(s.b), static_cast<DockableArea>(s.c % 7));
    }
    void undock(const DockStep& s) { someWindow(s.a).undock(s.b % 2 == 0); }
    void undockAndClose(const DockStep& s) { someWindow(s.a).undockAndClose(); }
    void mouseUndock(const DockStep& s) { someWindow(s.a).mouseUndock(); }
    void cleanup(const DockStep& s) { someWindow(s.a).cleanupOldParent(window(s.b)); }
    void collapse(const DockStep& s) { someGroup(s.a).collapseGroup(); }
    void takeAndInsert(const DockStep& s)
    {
        DockableGroup& from = someGroup(s.a);
        DockableWindow* child = from.takeChild(s.b % 5 - 1);
        someGroup(s.c).insertChild(s.b % 4 - 1, child);
    }
    void insertStolen(const DockStep& s) { someGroup(s.a).insertChild(s.c % 5 - 1, window(s.b)); }
    void changeHeader(const DockStep& s)
    {
        DockableWindow& target = someWindow(s.a);
        switch (s.b % 4) {
        case 0: target.setHeader(new DockableTabHeader); break;
        case 1: target.setHeader(nullptr); break;
        case 2: target.setHeader(someWindow(s.c).header()); break; // another one's
        default: target.setHeaderDirection(static_cast<QBoxLayout::Direction>(s.c % 4)); break;
        }
    }
    void changeLook(const DockStep& s)
    {
        DockableWindow& target = someWindow(s.a);
        target.setText(QStringLiteral("t%1").arg(s.b));
        target.setDim(s.b % 2 == 0);
        target.setFocusFrameVisible(s.b % 3 == 0);
        target.flashFocusColor(Qt::red);
        target.setHeaderVisible(s.b % 4 != 0);
    }
    void destroyWindow(const DockStep& s) { remove(&someWindow(s.a)); }
    void resizeWindow(const DockStep& s)
    {
        someWindow(s.a).window()->resize(200 + 4 * s.b, 150 + 3 * s.c);
    }
    void moveHandles(const DockStep& s)
    {
        DockableGroup& group = someGroup(s.a);
        if (s.b % 4 == 0) {
            group.setLayoutMode(static_cast<DockableGroup::LayoutMode>(s.c % 2));
        } else {
            group.setSizes({s.b, s.c, 50});
        }
    }
    void closeWindow(const DockStep& s)
    {
        DockableWindow& target = someWindow(s.a);
        if (&target != gMainWindow) {
            target.close();
        }
    }
    void activation(const DockStep& s)
    {
        for (DockableWindow* window : windows()) {
            s.a % 2 == 0 ? window->onApplicationDeactivate() : window->onApplicationActivate();
        }
    }
    void focusSomething(const DockStep& s)
    {
        QWidget* content = someWindow(s.a).content();
        if (content && content->isVisible()) {
            content->setFocus();
        }
    }
    void addPanelStep(const DockStep& /*step*/)
    {
        if (windows().size() < 30) {
            addPanel();
        }
    }
    void settleAll(const DockStep& /*step*/)
    {
        settle();
        m_settled = true;
    }
    void processSome(const DockStep& /*step*/) { QCoreApplication::processEvents(); }
    /// Without what the platform has to report, so that a drag goes on.
    void processDeaths(const DockStep& s)
    {
        if (s.a % 2 == 0) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QCoreApplication::sendPostedEvents();
    }

    DockableTabGroup* someTabs(int number)
    {
        const auto groups = m_tree.root().findChildren<DockableTabGroup*>();
        return groups.isEmpty() ? nullptr : groups.at(number % groups.size());
    }
    void dockAsTab(const DockStep& s)
    {
        someWindow(s.a).dockInArea(window(s.b), DockableArea::Center);
    }
    void setActive(const DockStep& s)
    {
        if (DockableTabGroup* tabs = someTabs(s.a)) {
            tabs->setActiveIndex(s.b % (tabs->childCount() + 2) - 1);
        }
    }
    void setTabText(const DockStep& s)
    {
        if (DockableTabGroup* tabs = someTabs(s.a)) {
            DockableWindow* child = s.b % 4 == 0 ? window(s.b) : tabs->getChild(s.b % 5);
            tabs->setTabTextForChild(child, QString(s.c % 9, u'm'));
        }
    }
    void takeTab(const DockStep& s)
    {
        if (DockableTabGroup* tabs = someTabs(s.a)) {
            DockableWindow* child = tabs->takeChild(s.b % (tabs->childCount() + 2) - 1);
            if (child && s.c % 2 == 0) {
                tabs->insertChild(s.c % 5 - 1, child);
            }
        }
    }
    void insertTab(const DockStep& s)
    {
        if (DockableTabGroup* tabs = someTabs(s.a)) {
            tabs->insertChild(s.c % (tabs->childCount() + 3) - 1, window(s.b));
        }
    }

    /// All that a window can be grabbed by.
    QList<QWidget*> grips()
    {
        QList<QWidget*> found;
        for (QWidget* widget : m_tree.root().findChildren<QWidget*>()) {
            const bool isGrip =
                qobject_cast<DockableHeader*>(widget) || qobject_cast<DockableTabWidget*>(widget);
            if (isGrip && widget->isVisible() && widget->window()->windowHandle()) {
                found << widget;
            }
        }
        return found;
    }
    void press(const DockStep& s)
    {
        const auto found = grips();
        if (m_hand.isDown() || found.isEmpty()) {
            return;
        }
        QWidget* grip = found.at(s.a % found.size());
        const QPoint point(4 + s.b % 20, 4 + s.b % 8);
        if (grip->mapToGlobal(point) != reachable(grip->mapToGlobal(point))) {
            return;
        }
        auto* tab = qobject_cast<DockableTabWidget*>(grip);
        m_grabbed = DockableWindow::findDockableParent(grip);
        if (auto* tabs = qobject_cast<DockableTabGroup*>(m_grabbed.data()); tabs && tab) {
            for (int i = 0; i < tabs->childCount(); ++i) {
                m_grabbed = tabs->tabAt(i) == tab ? tabs->getChild(i) : m_grabbed.data();
            }
        }
        m_grabbed->sideDockingDisabled = s.c % 8 == 1;
        m_grabbed->verticalDockingDisabled = s.c % 16 == 2;
        m_hand.press(*grip, point);
    }
    /// Onto a zone or the middle of a window, or away from them all.
    void moveHand(const DockStep& s)
    {
        DockableWindow& target = someWindow(s.b);
        const int right = target.width() - 5;
        const int bottom = target.height() - 5;
        const std::array<QPoint, 8> places{
            QPoint(5, bottom / 2),
            QPoint(right, bottom / 2),
            QPoint(right / 2, bottom),
            QPoint(right / 2, 5),
            QPoint(right / 2, 34),
            QPoint(right / 2, bottom / 2),
            QPoint(12, 10),
            QPoint(-300, -300)};
        const QPoint place = target.mapToGlobal(places[s.c % places.size()]);
        m_hand.moveTo(reachable(place), 1 + s.c / 8 % 3);
    }
    /// Off screen the pointer goes anywhere, on a display only as far as that goes.
    static QPoint reachable(QPoint point)
    {
        const QRect area = QGuiApplication::primaryScreen()->virtualGeometry();
        const bool anywhere = QGuiApplication::platformName() == QLatin1String("offscreen");
        return anywhere ? point
                        : QPoint(
                            qBound(area.left(), point.x(), area.right()),
                            qBound(area.top(), point.y(), area.bottom()));
    }
    void drag(const DockStep& s)
    {
        press(s);
        for (int zone : {7, 5, s.c % 8}) { // away, into the window, then where it is dropped
            moveHand({0, s.a, s.b, static_cast<std::uint8_t>(zone)});
            moveHand({0, s.a, s.b, static_cast<std::uint8_t>(zone)});
        }
        const int happening = s.c / 8;
        if (happening % 4 == 1) {
            incident({0, static_cast<std::uint8_t>(s.c / 32), s.b, s.c});
        }
        happening % 4 == 2 ? endOtherwise({0, s.c, s.b, 0}) : release(s);
    }
    void release(const DockStep& /*step*/)
    {
        if (m_hand.isDown()) {
            m_hand.release();
        }
    }
    void endOtherwise(const DockStep& s)
    {
        if (!m_hand.isDown()) {
            return;
        }
        if (s.a % 2 == 0) {
            m_hand.pressKey(Qt::Key_Escape);
            m_hand.release();
        } else {
            m_hand.loseRelease();
            m_hand.moveTo(reachable(QCursor::pos() + QPoint(1, 0)));
        }
    }
    void lockDrag(const DockStep& s) { someWindow(s.a).setDragEnabled(s.b % 3 != 0); }
    /// What may happen to those that take part in a drag.
    void incident(const DockStep& s)
    {
        DockableGroup* group = m_grabbed ? m_grabbed->findDockableParentGroup() : nullptr;
        DockableWindow* hovered =
            DockableWindow::findDockableParent(QApplication::widgetAt(QCursor::pos()));
        switch (s.a % 8) {
        case 0: remove(m_grabbed); break;
        case 1: remove(hovered); break;
        case 2: remove(group); break;
        case 3: remove(group ? group->getChild(s.b % 3) : nullptr); break;
        case 4: processDeaths(s); break;
        case 5: closeWindow(s); break;
        case 6:
            if (m_grabbed) {
                m_grabbed->setHeader(new DockableTabHeader);
            }
            break;
        default:
            if (m_grabbed) {
                m_grabbed->undockAndClose();
            }
        }
    }
    static void remove(DockableWindow* window)
    {
        if (window != gMainWindow) {
            delete window;
        }
    }
    void contextMenu(const DockStep& s)
    {
        const auto found = grips();
        if (found.isEmpty()) {
            return;
        }
        QWidget* grip = found.at(s.a % found.size());
        const QPointer<DockableWindow> window = DockableWindow::findDockableParent(grip);
        QTimer::singleShot(0, qApp, [s, window] {
            if (s.c % 8 == 0) {
                remove(window);
            }
            if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
                const auto actions = menu->actions();
                menu->setActiveAction(actions.at(s.b % actions.size()));
                QKeyEvent key(QEvent::KeyPress, s.c % 4 == 1 ? Qt::Key_Escape : Qt::Key_Return, {});
                QCoreApplication::sendEvent(menu, &key);
            }
        });
        QContextMenuEvent event(
            QContextMenuEvent::Mouse, QPoint(4, 4), grip->mapToGlobal(QPoint(4, 4)));
        QCoreApplication::sendEvent(grip, &event);
    }

    DockTree m_tree;
    Hand m_hand;
    QPointer<DockableWindow> m_grabbed; ///< at the last press
    int m_panels = 0;
    bool m_settled = false; ///< by the last step
};

} // namespace

DockSteps randomDockSteps(unsigned seed, int count)
{
    std::mt19937 random(seed); // the same everywhere, as the library's distributions are not
    DockSteps steps(static_cast<std::size_t>(count));
    for (DockStep& step : steps) {
        const std::uint32_t bits = random();
        step = {
            static_cast<std::uint8_t>(bits),
            static_cast<std::uint8_t>(bits >> 8U),
            static_cast<std::uint8_t>(bits >> 16U),
            static_cast<std::uint8_t>(bits >> 24U)};
    }
    return steps;
}

QString playDockSteps(const DockSteps& steps)
{
    DockSession session;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const QString broken = session.play(steps[i]);
        if (!broken.isEmpty()) {
            return QStringLiteral("step %1: %2").arg(i).arg(broken);
        }
    }
    return session.finish();
}

/// Without as many as can go of the runs of steps of that length.
static DockSteps withoutRuns(DockSteps steps, std::size_t length)
{
    for (std::size_t start = 0; start + length <= steps.size();) {
        DockSteps fewer = steps;
        const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(start);
        fewer.erase(first, first + static_cast<std::ptrdiff_t>(length));
        if (playDockSteps(fewer).isEmpty()) {
            start += length;
        } else {
            steps = fewer;
        }
    }
    return steps;
}

QString shrunkDockSteps(DockSteps steps)
{
    std::size_t before = 0;
    do {
        before = steps.size();
        for (std::size_t length = steps.size() / 2; length > 0; length /= 2) {
            steps = withoutRuns(steps, length);
        }
    } while (steps.size() < before);
    QString code;
    for (const DockStep& step : steps) {
        code +=
            QStringLiteral("{%1, %2, %3, %4}, ").arg(step.kind).arg(step.a).arg(step.b).arg(step.c);
    }
    return code;
}

} // namespace ui::test
