// SPDX-License-Identifier: Apache-2.0
/// Docking beside a bare tree of splitters with the same panels, in one process and in turns.
#include "Report.h"
#include "docktrees.h"
#include "themeassets.h"
#include "timing.h"

#include <QApplication>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using ui::bench::drain;
using ui::bench::kPanels;
using ui::bench::makeBareTree;
using ui::bench::makeOurTree;
using ui::bench::Shape;
using ui::bench::Tree;

constexpr std::size_t kOperations = 1000;
constexpr int kBuilds = 15; // of each tree, in turns

struct Move
{
    std::size_t panel = 0;
    std::size_t target = 0;
    DockableArea area = DockableArea::Right;
};

/// Who goes where: the same for both trees.
std::vector<Move> seededMoves(unsigned seed, Shape shape)
{
    std::mt19937 random(seed);
    std::vector<Move> moves;
    while (moves.size() < kOperations) {
        const std::uint32_t bits = random();
        const Move move{
            bits % kPanels,
            (bits >> 8U) % kPanels,
            shape == Shape::Tabs ? DockableArea::Center
                                 : static_cast<DockableArea>(1 + (bits >> 16U) % 4)};
        if (move.panel != move.target) {
            moves.push_back(move);
        }
    }
    return moves;
}

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

void dockAll(Tree& tree, Shape shape)
{
    for (const bool tabs : {false, true}) { // the first of each group before the others
        for (std::size_t panel = 1; panel < kPanels; ++panel) {
            const DockableArea area = ui::bench::areaOf(panel, shape);
            if ((area == DockableArea::Center) == tabs) {
                tree.dock(panel, ui::bench::targetOf(panel, shape), area);
                drain();
            }
        }
    }
}

void measureChurn(ui::bench::Report& report, Shape shape, const std::string& name)
{
    const auto ours = makeOurTree(shape);
    const auto bare = makeBareTree(shape);
    floatAll(*ours);
    const qsizetype objects = objectsBelow(*ours);
    dockAll(*ours, shape);
    floatAll(*bare);
    dockAll(*bare, shape);
    Times ourTimes;
    Times bareTimes;
    bool oursFirst = false;
    for (const Move& move : seededMoves(7, shape)) {
        oursFirst = !oursFirst;
        oursFirst ? perform(*ours, move, ourTimes) : perform(*bare, move, bareTimes);
        oursFirst ? perform(*bare, move, bareTimes) : perform(*ours, move, ourTimes);
    }
    const auto ratio = [](const std::vector<double>& a, const std::vector<double>& b) {
        return ui::bench::median(a) / ui::bench::median(b);
    };
    report.judge(name + "-undock", ratio(ourTimes.undocks, bareTimes.undocks), "times", 2.5);
    report.judge(name + "-dock", ratio(ourTimes.docks, bareTimes.docks), "times", 2.5);
    report.judge(name + "-growth", growth(ourTimes) / growth(bareTimes), "times", 1.2);
    report.state(name + "-undock-time", ui::bench::median(ourTimes.undocks) / 1000, "us");
    report.state(name + "-dock-time", ui::bench::median(ourTimes.docks) / 1000, "us");

    floatAll(*ours);
    const auto left = static_cast<double>(objectsBelow(*ours) - objects);
    report.judge(name + "-objects-left", left, "objects", 0);
}

/// How many times as long ours takes: the median of runs in turns, of which only the work counts.
double ratioOfBuilds(Shape shape)
{
    std::vector<double> ratios;
    for (int run = 0; run <= kBuilds; ++run) {
        std::unique_ptr<Tree> tree;
        const auto timed = [&](const std::function<std::unique_ptr<Tree>(Shape)>& make) {
            const double time = ui::bench::nanosecondsOf([&] { tree = make(shape); });
            tree.reset();
            drain();
            return time;
        };
        const double before = run % 2 == 0 ? timed(makeBareTree) : 0.0;
        const double ours = timed(makeOurTree);
        const double bare = run % 2 == 0 ? before : timed(makeBareTree);
        if (run > 0) { // the first warms up
            ratios.push_back(ours / bare);
        }
    }
    return ui::bench::median(ratios);
}

/// Ten steps; with all runs two hundred.
void resizeInSteps(Tree& tree)
{
    for (int step = 0; step < 10; ++step) {
        tree.window().resize(1600 + 4 * step, 1000 + 3 * step);
        drain();
    }
}

/// Five switches of all ten groups; with all runs a thousand.
void switchAllTabs(Tree& tree)
{
    for (int step = 0; step < 5; ++step) {
        tree.switchTabs((step + 1) % static_cast<int>(ui::bench::kTabsInGroup));
        drain();
    }
}

double ratioOf(void (*work)(Tree&), Shape shape)
{
    const auto ours = makeOurTree(shape);
    const auto bare = makeBareTree(shape);
    return ui::bench::medianRatio([&] { work(*ours); }, [&] { work(*bare); });
}

void measureShape(ui::bench::Report& report, Shape shape, const std::string& name)
{
    if (report.wants(name + "-build")) {
        report.judge(name + "-build", ratioOfBuilds(shape), "times", 2.5);
    }
    const bool churn = report.wants(
        name + "-undock " + name + "-dock " + name + "-growth " + name + "-objects-left");
    if (shape != Shape::Flat && churn) { // a row is no row any more after a few
        measureChurn(report, shape, name);
    }
    if (report.wants(name + "-resize")) {
        report.judge(name + "-resize", ratioOf(resizeInSteps, shape), "times", 1.3);
    }
    if (shape == Shape::Tabs && report.wants(name + "-switch")) {
        report.judge(name + "-switch", ratioOf(switchAllTabs, shape), "times", 1.3);
    }
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The bare tree makes native children for a moment, of which the off-screen platform complains.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return benchWithTheme(argc, argv, [](ui::bench::Report& report) {
        measureShape(report, Shape::Splits, "docking");
        measureShape(report, Shape::Flat, "docking-flat");
        measureShape(report, Shape::Tabs, "docking-tabs");
    });
}
