/// Docking beside a bare tree of splitters with the same panels, in one process and in turns.
#include "Report.h"
#include "themeassets.h"
#include "timing.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/theme/VisualDesignDark.h>

#include <QApplication>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

#include <cstdint>
#include <random>
#include <vector>

namespace {

constexpr int kPanels = 50;
constexpr int kOperations = 1000;

struct Move
{
    std::size_t panel = 0;
    std::size_t target = 0;
    DockableArea area = DockableArea::Right;
};

/// Who goes where: the same for both trees.
std::vector<Move> seededMoves(unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<Move> moves;
    while (moves.size() < kOperations) {
        const std::uint32_t bits = random();
        const Move move{
            bits % kPanels,
            (bits >> 8U) % kPanels,
            static_cast<DockableArea>(1 + (bits >> 16U) % 4)};
        if (move.panel != move.target) {
            moves.push_back(move);
        }
    }
    return moves;
}

void drain()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// A tree of panels in which one can be taken out and put elsewhere.
class Tree
{
public:
    virtual ~Tree() = default;
    virtual QWidget& window() = 0;
    virtual void undock(std::size_t panel) = 0;
    virtual void dock(std::size_t panel, std::size_t target, DockableArea area) = 0;
};

class OurTree final : public Tree
{
public:
    OurTree()
    {
        gMainWindow = &m_root;
        m_root.setAttribute(Qt::WA_DeleteOnClose, false);
        m_root.resize(1600, 1000);
        for (int i = 0; i < kPanels; ++i) {
            auto* panel = new DockableWindow(new QWidget);
            panel->setText(QStringLiteral("Panel %1").arg(i));
            m_panels.push_back(panel);
            if (i == 0) {
                m_root.dockInArea(panel, DockableArea::Right);
            } else {
                const auto area = i % 2 == 0 ? DockableArea::Right : DockableArea::Bottom;
                m_panels[static_cast<std::size_t>(i / 2)]->dockInArea(panel, area);
            }
        }
        m_root.show();
        drain();
    }
    ~OurTree() override { gMainWindow = nullptr; }

    QWidget& window() override { return m_root; }
    void undock(std::size_t panel) override { m_panels[panel]->undock(true); }
    void dock(std::size_t panel, std::size_t target, DockableArea area) override
    {
        m_panels[target]->dockInArea(m_panels[panel], area);
    }

private:
    DockableGroup m_root;
    std::vector<DockableWindow*> m_panels;
};

class BareTree final : public Tree
{
public:
    BareTree()
    {
        auto* layout = new QVBoxLayout(&m_window);
        m_root = new QSplitter;
        layout->addWidget(m_root);
        m_window.resize(1600, 1000);
        for (int i = 0; i < kPanels; ++i) {
            auto* panel = new QWidget;
            auto* rows = new QVBoxLayout(panel);
            rows->setContentsMargins(0, 0, 0, 0);
            rows->setSpacing(0);
            rows->addWidget(new QLabel(QStringLiteral("Panel %1").arg(i)));
            rows->addWidget(new QWidget, 1);
            m_panels.push_back(panel);
            if (i == 0) {
                m_root->addWidget(panel);
            } else {
                const auto area = i % 2 == 0 ? DockableArea::Right : DockableArea::Bottom;
                dock(static_cast<std::size_t>(i), static_cast<std::size_t>(i / 2), area);
            }
        }
        m_window.show();
        drain();
    }

    QWidget& window() override { return m_window; }
    void undock(std::size_t number) override
    {
        QWidget* panel = m_panels[number];
        auto* from = qobject_cast<QSplitter*>(panel->parentWidget());
        if (!from) {
            return;
        }
        const QPoint position = panel->mapToGlobal(QPoint());
        panel->setParent(&m_window, Qt::Window);
        panel->move(position);
        panel->show();
        auto* above = qobject_cast<QSplitter*>(from->parentWidget());
        if (above && from->count() < 2) {
            const QList<int> sizes = above->sizes();
            const int index = above->indexOf(from);
            from->setParent(nullptr);
            if (from->count() > 0) {
                above->insertWidget(index, from->widget(0));
                above->setSizes(sizes);
            }
            from->deleteLater();
        }
    }
    void dock(std::size_t number, std::size_t targetNumber, DockableArea area) override
    {
        QWidget* target = m_panels[targetNumber];
        auto* parent = qobject_cast<QSplitter*>(target->parentWidget());
        if (!parent) {
            return;
        }
        const QList<int> sizes = parent->sizes();
        const int index = parent->indexOf(target);
        auto* splitter =
            new QSplitter(ui::docking::isVertical(area) ? Qt::Vertical : Qt::Horizontal);
        splitter->setChildrenCollapsible(false);
        splitter->addWidget(target);
        splitter->insertWidget(ui::docking::insertIndex(area), m_panels[number]);
        parent->insertWidget(index, splitter);
        m_panels[number]->show();
        parent->setSizes(sizes);
    }

private:
    QWidget m_window;
    QSplitter* m_root = nullptr;
    std::vector<QWidget*> m_panels;
};

struct Times
{
    std::vector<double> undocks;
    std::vector<double> docks;
};

void perform(Tree& tree, const Move& move, Times& times)
{
    times.undocks.push_back(ui::bench::nanosecondsOf([&] {
        tree.undock(move.panel);
        drain();
    }));
    times.docks.push_back(ui::bench::nanosecondsOf([&] {
        tree.dock(move.panel, move.target, move.area);
        drain();
    }));
}

double medianOf(const std::vector<double>& times, std::size_t first, std::size_t count)
{
    const auto begin = times.begin() + static_cast<std::ptrdiff_t>(first);
    return ui::bench::median({begin, begin + static_cast<std::ptrdiff_t>(count)});
}

/// How much longer the last hundred take than the first.
double growth(const Times& times)
{
    const auto both = [&](std::size_t first) {
        return medianOf(times.undocks, first, 100) + medianOf(times.docks, first, 100);
    };
    return both(kOperations - 100) / both(0);
}

qsizetype objectsBelow(Tree& tree)
{
    return tree.window().findChildren<QObject*>().size();
}

void floatAll(Tree& tree)
{
    for (std::size_t panel = 1; panel < kPanels; ++panel) {
        tree.undock(panel);
        drain();
    }
}

void dockAll(Tree& tree)
{
    for (std::size_t panel = 1; panel < kPanels; ++panel) {
        const auto area = panel % 2 == 0 ? DockableArea::Right : DockableArea::Bottom;
        tree.dock(panel, panel / 2, area);
        drain();
    }
}

void measureChurn(ui::bench::Report& report)
{
    OurTree ours;
    BareTree bare;
    floatAll(ours);
    const qsizetype objects = objectsBelow(ours);
    dockAll(ours);
    Times ourTimes;
    Times bareTimes;
    bool oursFirst = false;
    for (const Move& move : seededMoves(7)) {
        oursFirst = !oursFirst;
        oursFirst ? perform(ours, move, ourTimes) : perform(bare, move, bareTimes);
        oursFirst ? perform(bare, move, bareTimes) : perform(ours, move, ourTimes);
    }
    const auto ratio = [](const std::vector<double>& a, const std::vector<double>& b) {
        return ui::bench::median(a) / ui::bench::median(b);
    };
    report.judge("docking-undock", ratio(ourTimes.undocks, bareTimes.undocks), "times", 2.5);
    report.judge("docking-dock", ratio(ourTimes.docks, bareTimes.docks), "times", 2.5);
    report.judge("docking-growth", growth(ourTimes) / growth(bareTimes), "times", 1.2);
    report.state("docking-undock-time", ui::bench::median(ourTimes.undocks) / 1000, "us");
    report.state("docking-dock-time", ui::bench::median(ourTimes.docks) / 1000, "us");

    floatAll(ours);
    const auto left = static_cast<double>(objectsBelow(ours) - objects);
    report.judge("docking-objects-left", left, "objects", 0);
}

double resizeTime(Tree& tree)
{
    return ui::bench::nanosecondsOf([&] {
        for (int step = 0; step < 200; ++step) {
            tree.window().resize(1600 + step % 40, 1000 + step % 30);
            drain();
        }
    });
}

void measureResizing(ui::bench::Report& report)
{
    OurTree ours;
    BareTree bare;
    const double ratio =
        ui::bench::medianRatio([&] { resizeTime(ours); }, [&] { resizeTime(bare); });
    report.judge("docking-resize", ratio, "times", 1.3);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The bare tree makes native children for a moment, of which the off-screen platform complains.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    ui::bench::Report report(argc, argv);
    const QApplication app(argc, argv);
    const QString assets = themeAssets();
    if (assets.isEmpty()) {
        return 1;
    }
    VisualDesignDark theme(assets);
    theme.applyAppStyle();
    if (report.wants("docking-undock docking-dock docking-growth docking-objects-left")) {
        measureChurn(report);
    }
    if (report.wants("docking-resize")) {
        measureResizing(report);
    }
    return report.exitCode();
}
