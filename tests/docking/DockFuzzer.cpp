#include "docking/DockFuzzer.h"

#include "docking/DockTree.h"
#include <MorrantUI/docking/DockableTabHeader.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLineEdit>

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
        static constexpr std::array<Step, 24> kSteps{
            &DockSession::dock,           &DockSession::dock,           &DockSession::dock,
            &DockSession::dock,           &DockSession::undock,         &DockSession::undock,
            &DockSession::undockAndClose, &DockSession::mouseUndock,    &DockSession::cleanup,
            &DockSession::collapse,       &DockSession::takeAndInsert,  &DockSession::insertStolen,
            &DockSession::changeHeader,   &DockSession::changeLook,     &DockSession::destroyWindow,
            &DockSession::resizeWindow,   &DockSession::moveHandles,    &DockSession::closeWindow,
            &DockSession::activation,     &DockSession::settleAll,      &DockSession::settleAll,
            &DockSession::addPanelStep,   &DockSession::focusSomething, &DockSession::processSome};
        (this->*kSteps[step.kind % kSteps.size()])(step);
        return brokenInvariants(std::exchange(m_settled, false)).join(QStringLiteral("; "));
    }

private:
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
    void destroyWindow(const DockStep& s)
    {
        DockableWindow& target = someWindow(s.a);
        if (&target != gMainWindow) {
            delete &target;
        }
    }
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
        if (QWidget* content = someWindow(s.a).content()) {
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

    DockTree m_tree;
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
    settle();
    return brokenInvariants().join(QStringLiteral("; "));
}

QString shrunkDockSteps(DockSteps steps)
{
    for (std::size_t size = steps.size() / 2; size > 0; size /= 2) {
        for (std::size_t start = 0; start + size <= steps.size();) {
            DockSteps fewer = steps;
            const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(start);
            fewer.erase(first, first + static_cast<std::ptrdiff_t>(size));
            if (playDockSteps(fewer).isEmpty()) {
                start += size;
            } else {
                steps = fewer;
            }
        }
    }
    QString code;
    for (const DockStep& step : steps) {
        code +=
            QStringLiteral("{%1, %2, %3, %4}, ").arg(step.kind).arg(step.a).arg(step.b).arg(step.c);
    }
    return code;
}

} // namespace ui::test
