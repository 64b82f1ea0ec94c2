// SPDX-License-Identifier: Apache-2.0
#include "docking/DockFuzzer.h"

#include "docking/DockTree.h"
#include "docking/FuzzedPanel.h"
#include <MorrantUI/docking/DockableTabHeader.h>
#include <MorrantUI/docking/DockableTabWidget.h>
#include <MorrantUI/docking/arrangement.h>
#include <MorrantUI/docking/panelnavigation.h>
#include <MorrantUI/docking/saving/savedlayouts.h>

#include <QtWidgets>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <random>
#include <utility>

namespace ui::test {

namespace {

class DockSession
{
public:
    DockSession()
        : m_tree({}, QSize(1200, 800))
    {
        while (m_panels < 12) {
            makePanel();
        }
        for (int i = 0; i < 6; ++i) {
            m_tree.root().dockInArea(window(i + 1), areaAt(1 + i % 4));
        }
        m_tree.root().show();
        settle();
        Deleting::lost = 0;
    }
    ~DockSession()
    {
        ui::setLayoutLocked(false);
        m_trap.reset();
        const Deleting deleting;
        m_tree.destroy();
        for (const auto& panel : m_kept) { // which belong to nobody now
            delete panel;
        }
    }
    Q_DISABLE_COPY_MOVE(DockSession)

    QString play(const DockStep& step)
    {
        (this->*kSteps[step.kind % kSteps.size()])(step);
        return broken();
    }

    /// What is still wrong when the hand has let go and everything has been done.
    QString finish()
    {
        m_hand.release();
        settleAll({});
        m_trap.reset();
        const QString found = broken();
        const auto living = [this] {
            return std::count_if(
                m_kept.begin(), m_kept.end(), [](const auto& panel) { return !panel.isNull(); });
        };
        const auto before = living();
        const Deleting deleting;
        m_tree.destroy();
        return found.isEmpty() && living() != before ? u"kept panels go with the root"_qs : found;
    }

private:
    using Do = const DockStep&;
    using S = DockSession;
    using Step = void (DockSession::*)(Do);

    QString broken()
    {
        const bool settled = std::exchange(m_settled, false) && !m_hand.isDown();
        const Moment moment = m_hand.isDown() ? Moment::Dragging
                              : settled       ? Moment::Settled
                                              : Moment::Unsettled;
        QStringList found = brokenInvariants(moment);
        if (Deleting::lost > 0) {
            found << u"%1 panels are lost"_qs.arg(Deleting::lost);
        }
        for (DockableWindow* window : all<DockableWindow>()) {
            const DockableGroup* group = window->findDockableParentGroup();
            const bool behind = qobject_cast<const DockableTabGroup*>(group);
            if (settled && group && !behind && window->isHidden() && !ui::maximizedPanel()) {
                found << window->getText() + u" is hidden in its group"_qs;
            }
        }
        if (settled && mouseEventsAreKept()) {
            found << u"mouse events are kept"_qs;
        }
        return found.join(u"; "_qs);
    }

    /// All of a kind in a fixed order: the root, then what belongs to it as it came.
    template <typename Window>
    QList<Window*> all()
    {
        QList<Window*> found = m_tree.root().findChildren<Window*>();
        if (auto* root = qobject_cast<Window*>(&m_tree.root())) {
            found.prepend(root);
        }
        return found;
    }
    /// Also dying ones, and sometimes none.
    DockableWindow* window(int number)
    {
        const auto windows = all<DockableWindow>();
        return windows.value(number % (windows.size() + 1));
    }
    template <typename Window = DockableWindow>
    Window* some(int number)
    {
        const auto windows = all<Window>();
        return some(number, windows);
    }
    template <typename Window>
    static Window* some(int number, const QList<Window*>& windows)
    {
        return windows.isEmpty() ? nullptr : windows.at(number % windows.size());
    }
    static DockableArea areaAt(int number) { return static_cast<DockableArea>(number % 7); }

    void dock(Do s) { some(s.a)->dockInArea(window(s.b), areaAt(s.c)); }
    void dockAsTab(Do s) { some(s.a)->dockInArea(window(s.b), DockableArea::Center); }
    void undock(Do s) { some(s.a)->undock(s.b % 2 == 0); }
    void undockAndClose(Do s) { some(s.a)->undockAndClose(); }
    void mouseUndock(Do s) { some(s.a)->mouseUndock(); }
    void cleanup(Do s) { some(s.a)->cleanupOldParent(window(s.b)); }
    void collapse(Do s) { some<DockableGroup>(s.a)->collapseGroup(); }
    void takeAndInsert(Do s)
    {
        const QPointer<DockableWindow> child = some<DockableGroup>(s.a)->takeChild(s.b % 5 - 1);
        some<DockableGroup>(s.c)->insertChild(s.b % 4 - 1, child);
    }
    void insertStolen(Do s) { some<DockableGroup>(s.a)->insertChild(s.c % 5 - 1, window(s.b)); }
    void changeHeader(Do s)
    {
        DockableWindow& target = *some(s.a);
        switch (s.b % 4) {
        case 0: target.setHeader(new DockableTabHeader); break;
        case 1: target.setHeader(nullptr); break;
        case 2: target.setHeader(some(s.c)->header()); break; // another one's
        default: target.setHeaderDirection(static_cast<QBoxLayout::Direction>(s.c % 4)); break;
        }
    }
    void changeLook(Do s)
    {
        DockableWindow& target = *some(s.a);
        target.setDim(s.b % 2 == 0);
        target.setFocusFrameVisible(s.b % 3 == 0);
        target.flashFocusColor(Qt::red);
        target.setHeaderVisible(s.b % 4 != 0);
        target.setText(u"t%1"_qs.arg(s.b)); // which a slot may answer by deleting it
    }
    static void remove(DockableWindow* window)
    {
        if (window != gMainWindow) {
            const Deleting deleting;
            delete window;
        }
    }
    void destroyWindow(Do s) { remove(some(s.a)); }
    void resizeWindow(Do s) { some(s.a)->window()->resize(200 + 4 * s.b, 150 + 3 * s.c); }
    void moveHandles(Do s)
    {
        DockableGroup& group = *some<DockableGroup>(s.a);
        if (s.b % 4 == 0) {
            group.setLayoutMode(static_cast<DockableGroup::LayoutMode>(s.c % 2));
        } else {
            group.setSizes({s.b, s.c, 50});
        }
    }
    void closeWindow(Do s) { some(s.a) != gMainWindow ? void(some(s.a)->close()) : void(); }
    void activation(Do s)
    {
        for (DockableWindow* window : all<DockableWindow>()) {
            s.a % 2 == 0 ? window->onApplicationDeactivate() : window->onApplicationActivate();
        }
    }
    void focusSomething(Do s)
    {
        QWidget* content = some(s.a)->content();
        if (content && content->isVisible()) {
            content->setFocus();
        }
    }
    void addPanel(Do /*step*/) { all<DockableWindow>().size() < 30 ? makePanel() : void(); }
    void makePanel()
    {
        auto* panel = new FuzzedPanel(m_panels);
        if (!panel->testAttribute(Qt::WA_DeleteOnClose)) {
            m_kept.emplace_back(panel);
        }
        panel->setText(u"p%1"_qs.arg(m_panels++)); // a slot that hears of it may delete the panel
    }
    void settleAll(Do /*step*/)
    {
        for (int i = 0; i < 3; ++i) { // what a content needs goes up one group a round
            settle();
        }
        m_settled = true;
    }
    void processSome(Do /*step*/) { QCoreApplication::processEvents(); }
    /// Without what the platform has to report, so that a drag goes on.
    void processDeaths(Do s)
    {
        if (s.a % 2 == 0) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QCoreApplication::sendPostedEvents();
    }

    void setActive(Do s)
    {
        if (auto* tabs = some<DockableTabGroup>(s.a)) {
            tabs->setActiveIndex(s.b % (tabs->childCount() + 2) - 1);
        }
    }
    void setTabText(Do s)
    {
        if (auto* tabs = some<DockableTabGroup>(s.a)) {
            DockableWindow* child = s.b % 4 == 0 ? window(s.b) : tabs->getChild(s.b % 5);
            tabs->setTabTextForChild(child, QString(s.c % 9, u'm'));
        }
    }
    void takeTab(Do s)
    {
        if (const QPointer<DockableTabGroup> tabs = some<DockableTabGroup>(s.a)) {
            const QPointer<DockableWindow> child =
                tabs->takeChild(s.b % (tabs->childCount() + 2) - 1);
            tabs ? tabs->insertChild(s.c % 5 - 1, s.c % 2 == 0 ? child : nullptr) : void();
        }
    }
    void insertTab(Do s)
    {
        if (auto* tabs = some<DockableTabGroup>(s.a)) {
            tabs->insertChild(s.c % (tabs->childCount() + 3) - 1, window(s.b));
        }
    }

    struct Grip
    {
        QWidget* widget;
        DockableWindow* window;
        bool atTheEnd = false; ///< a strip of tabs is a handle where it has none
    };
    /// By whatever a window can be grabbed.
    QList<Grip> grips()
    {
        QList<Grip> found;
        for (DockableWindow* window : all<DockableWindow>()) {
            found.append({window->header(), window});
            auto* tabs = qobject_cast<DockableTabGroup*>(window);
            for (int i = 0; tabs && i < tabs->childCount(); ++i) {
                found.append({tabs->tabAt(i), tabs->getChild(i)});
            }
            if (tabs && tabs->childCount() > 0) {
                found.append({tabs->tabAt(0)->parentWidget()->parentWidget(), tabs, true});
            }
        }
        found.removeIf([](const Grip& grip) {
            return !grip.widget || !grip.widget->isVisible()
                   || !grip.widget->window()->windowHandle();
        });
        return found;
    }
    void press(Do s) { take(s, &Hand::press); }
    void doubleClick(Do s)
    {
        if (s.c % 4 != 0) {
            take(s, &Hand::doubleClick);
            return;
        }
        const auto handles = m_tree.root().findChildren<QSplitterHandle*>();
        QSplitterHandle* handle = handles.value(s.a % (handles.size() + 1));
        if (handle && handle->isVisible() && !m_hand.isDown()) {
            m_hand.doubleClick(*handle, handle->rect().center());
        }
    }
    void take(const DockStep& s, void (Hand::*how)(QWidget&, QPoint, Qt::MouseButton))
    {
        const QList<Grip> grips = this->grips();
        if (m_hand.isDown() || grips.isEmpty()) {
            return;
        }
        const Grip& grip = grips.at(s.a % grips.size());
        const int end = grip.widget->width() - 2;
        const QPoint point(grip.atTheEnd ? end : 4 + s.b % 20, 4 + s.b % 8);
        if (grip.widget->mapToGlobal(point) == reachable(grip.widget->mapToGlobal(point))) {
            m_grabbed = grip.window;
            m_grabbed->sideDockingDisabled = s.c % 8 == 1;
            m_grabbed->verticalDockingDisabled = s.c % 16 == 2;
            (m_hand.*how)(*grip.widget, point, Qt::LeftButton);
        }
    }
    /// Onto a zone or the middle of a window, or away from them all.
    void moveHand(Do s)
    {
        DockableWindow& target = *some(s.b);
        const QPoint far = QPoint(target.width(), target.height()) - QPoint(5, 5);
        const int x = far.x() / 2;
        const int y = far.y() / 2;
        const QPoint places[] = {
            {5, y}, {far.x(), y}, {x, far.y()}, {x, 5}, {x, 34}, {x, y}, {12, 10}, {-300, -300}};
        m_hand.moveTo(reachable(target.mapToGlobal(places[s.c % 8U])), 1 + s.c / 8 % 3);
    }
    /// Off screen the pointer goes anywhere, on a display only as far as that goes.
    static QPoint reachable(QPoint point)
    {
        const QRect area = QGuiApplication::primaryScreen()->virtualGeometry();
        const QPoint bounded(
            qBound(area.left(), point.x(), area.right()),
            qBound(area.top(), point.y(), area.bottom()));
        return QGuiApplication::platformName() == u"offscreen" ? point : bounded;
    }
    void drag(Do s)
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
    void release(Do /*step*/) { m_hand.isDown() ? m_hand.release() : void(); }
    void endOtherwise(Do s)
    {
        if (!m_hand.isDown()) {
            return;
        }
        if (s.a % 2 == 0) {
            m_hand.pressEscape();
            m_hand.release();
        } else {
            m_hand.loseRelease();
            m_hand.moveTo(reachable(QCursor::pos() + QPoint(1, 0)));
        }
    }
    /// The button stays down.
    void escape(Do /*step*/) { m_hand.isDown() ? m_hand.pressEscape() : void(); }
    void toggleFloating(Do s) { some(s.a) != gMainWindow ? some(s.a)->toggleFloating() : void(); }
    void maximize(Do s)
    {
        if (s.b % 3 == 0) {
            ui::restorePanels();
        } else {
            ui::maximizePanel(some(s.a, ui::panelsInOrder()));
        }
    }
    void arrange(Do s)
    {
        for (DockableWindow* panel : ui::allPanels()) {
            panel->setObjectName(panel->getText());
        }
        s.a % 3 == 0 ? void(m_layout = ui::saveLayout()) : void(ui::restoreLayout(m_layout));
    }
    void lockLayout(Do s) { ui::setLayoutLocked(s.a % 4 == 0); }
    /// Of a window that floats, or the main window.
    void changeState(Do s)
    {
        QWidget* top = some(s.a)->window();
        if (top->isVisible()) {
            const std::array states{
                Qt::WindowNoState, Qt::WindowMaximized, Qt::WindowMinimized, Qt::WindowNoState};
            top->setWindowState(states[s.b % 4U]);
        }
    }
    void showClosed(Do s)
    {
        DockableWindow& window = *some(s.a);
        if (window.isFloating() && !window.isClosing()) {
            window.show();
        }
    }
    void changeMind(Do s)
    {
        if (auto* panel = dynamic_cast<FuzzedPanel*>(some(s.a))) {
            panel->setRefuses(s.b % 2 == 0);
        }
    }
    void askAll(Do /*step*/) { m_tree.root().mayClose(); }
    void lockDrag(Do s) { some(s.a)->setDragEnabled(s.b % 3 != 0); }
    /// What may happen to those that take part in a drag.
    void incident(Do s)
    {
        DockableGroup* group = m_grabbed ? m_grabbed->findDockableParentGroup() : nullptr;
        switch (s.a % 8) {
        case 0: remove(m_grabbed); break;
        case 1:
            remove(DockableWindow::findDockableParent(QApplication::widgetAt(QCursor::pos())));
            break;
        case 2: remove(group); break;
        case 3: remove(group ? group->getChild(s.b % 3) : nullptr); break;
        case 4: processDeaths(s); break;
        case 5: closeWindow(s); break;
        case 6: m_grabbed ? m_grabbed->setHeader(new DockableTabHeader) : void(); break;
        default: m_grabbed ? m_grabbed->undockAndClose() : void();
        }
    }
    /// Another step, from inside the next signal of a window or tab, or event of a content.
    void reactToNext(Do s)
    {
        static constexpr std::array<Step, 8> kReactions{
            &S::insertTab,
            &S::setActive,
            &S::dock,
            &S::dockAsTab,
            &S::undock,
            &S::undockAndClose,
            &S::closeWindow,
            &S::destroyWindow};
        m_trap = std::make_unique<Trap>();
        m_trap->action = [this, s] { (this->*kReactions[s.b % 8U])({0, s.c, s.b, s.a}); };
        const auto spring = [trap = m_trap.get()](auto* sender, auto signal) {
            QObject::connect(sender, signal, trap, &Trap::spring);
        };
        if (s.a % 2 == 0 && s.b % 8U != 7) { // Qt itself cannot have one deleted in an event
            for (DockableWindow* panel : all<DockableWindow>()) {
                panel->content() ? panel->content()->installEventFilter(m_trap.get()) : void();
            }
            return;
        }
        spring(&m_tree.root(), &DockableGroup::layoutChanged);
        for (DockableWindow* window : all<DockableWindow>()) {
            spring(window, &DockableWindow::docked);
            spring(window, &DockableWindow::undocked);
            if (auto* panel = dynamic_cast<FuzzedPanel*>(window)) {
                panel->onClose = [trap = QPointer<Trap>(m_trap.get())] {
                    trap ? trap->spring() : void();
                };
            }
            if (auto* tabs = qobject_cast<DockableTabGroup*>(window)) {
                spring(tabs, &DockableTabGroup::activeIndexChanged);
                for (int i = 0; i < tabs->childCount(); ++i) {
                    spring(tabs->tabAt(i), &DockableTabWidget::pressed);
                }
            }
        }
    }

    static const std::array<Step, 64> kSteps;

    DockTree m_tree;
    Hand& m_hand = m_tree.hand;
    std::unique_ptr<Trap> m_trap;
    QPointer<DockableWindow> m_grabbed;           ///< at the last press
    std::vector<QPointer<DockableWindow>> m_kept; ///< when they are closed
    QByteArray m_layout;
    int m_panels = 0;
    bool m_settled = false; ///< by the last step
};

// What users do most stands in here most often.
const std::array<DockSession::Step, 64> DockSession::kSteps{
    &S::dock,         &S::dock,           &S::dock,           &S::dock,
    &S::undock,       &S::undock,         &S::undockAndClose, &S::mouseUndock,
    &S::cleanup,      &S::collapse,       &S::takeAndInsert,  &S::insertStolen,
    &S::changeHeader, &S::changeLook,     &S::destroyWindow,  &S::resizeWindow,
    &S::moveHandles,  &S::closeWindow,    &S::activation,     &S::settleAll,
    &S::arrange,      &S::addPanel,       &S::focusSomething, &S::processSome,
    &S::dockAsTab,    &S::dockAsTab,      &S::dockAsTab,      &S::setActive,
    &S::setActive,    &S::setTabText,     &S::takeTab,        &S::insertTab,
    &S::insertTab,    &S::drag,           &S::drag,           &S::drag,
    &S::drag,         &S::reactToNext,    &S::press,          &S::press,
    &S::moveHand,     &S::moveHand,       &S::release,        &S::endOtherwise,
    &S::lockDrag,     &S::incident,       &S::reactToNext,    &S::processDeaths,
    &S::doubleClick,  &S::doubleClick,    &S::doubleClick,    &S::escape,
    &S::escape,       &S::toggleFloating, &S::maximize,       &S::maximize,
    &S::lockLayout,   &S::changeState,    &S::showClosed,     &S::showClosed,
    &S::changeMind,   &S::askAll,         &S::arrange,        &S::drag};

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
            return u"step %1: %2"_qs.arg(i).arg(broken);
        }
    }
    return session.finish();
}

} // namespace ui::test
