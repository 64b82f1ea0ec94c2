// SPDX-License-Identifier: Apache-2.0
/// Docking beside a bare tree of splitters with the same panels, in one process and in turns.
#include "Report.h"
#include "docktrees.h"
#include "themeassets.h"
#include "timing.h"

#include <QApplication>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using ui::bench::drain;
using ui::bench::kPanels;
using ui::bench::makeBareTree;
using ui::bench::makeOurTree;
using ui::bench::Move;
using ui::bench::Shape;
using ui::bench::Tree;

constexpr std::size_t kOperations = 1000;
constexpr std::size_t kFewOperations = 200; // with many panels
constexpr std::size_t kManyPanels = 200;
constexpr int kBuilds = 15; // of each tree, in turns

/// What is measured: a shape of tree with so many panels.
struct Case
{
    Shape shape = Shape::Splits;
    std::size_t panels = kPanels;
    std::string name;
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
    return both(times.docks.size() - 100) / both(0);
}

qsizetype objectsBelow(Tree& tree)
{
    return tree.window().findChildren<QObject*>().size();
}

void floatAll(Tree& tree, std::size_t panels)
{
    for (std::size_t panel = 1; panel < panels; ++panel) {
        tree.undock(panel);
        drain();
    }
}

void dockAll(Tree& tree, Shape shape, std::size_t panels)
{
    for (const bool tabs : {false, true}) { // the first of each group before the others
        for (std::size_t panel = 1; panel < panels; ++panel) {
            const DockableArea area = ui::bench::areaOf(panel, shape);
            if ((area == DockableArea::Center) == tabs) {
                tree.dock(panel, ui::bench::targetOf(panel, shape), area);
                drain();
            }
        }
    }
}

/// What a pair of undock and dock does to the contents, in a tree as the moves have left it.
void countEvents(ui::bench::Report& report, const std::string& name, Tree& ours, Tree& bare)
{
    const std::vector<Move> moves = ui::bench::seededMoves(11, Shape::Splits, kPanels, 200);
    const auto count = [&](Tree& tree, const std::string& which) {
        const ui::bench::ContentEvents events;
        Times times;
        for (const Move& move : moves) {
            perform(tree, move, times);
        }
        const auto pairs = static_cast<double>(moves.size());
        report.state(name + which + "-resizes", events.resizes / pairs, "a pair");
        report.state(name + which + "-paints", events.paints / pairs, "a pair");
        return events.resizes + events.paints;
    };
    const double floor = count(bare, "-bare");
    report.judge(name + "-events", count(ours, "-own") / floor, "times", 1.0);
}

void measureChurn(ui::bench::Report& report, const Case& what)
{
    const Shape shape = what.shape;
    const bool many = what.panels > kPanels;
    const auto ours = makeOurTree(shape, what.panels);
    const auto bare = makeBareTree(shape, what.panels);
    qsizetype objects = 0;
    if (!many) {
        floatAll(*ours, what.panels);
        objects = objectsBelow(*ours);
        dockAll(*ours, shape, what.panels);
        floatAll(*bare, what.panels);
        dockAll(*bare, shape, what.panels);
    }
    Times ourTimes;
    Times bareTimes;
    bool oursFirst = false;
    const std::size_t operations = many ? kFewOperations : kOperations;
    for (const Move& move : ui::bench::seededMoves(7, shape, what.panels, operations)) {
        oursFirst = !oursFirst;
        oursFirst ? perform(*ours, move, ourTimes) : perform(*bare, move, bareTimes);
        oursFirst ? perform(*bare, move, bareTimes) : perform(*ours, move, ourTimes);
    }
    const auto ratio = [](const std::vector<double>& a, const std::vector<double>& b) {
        return ui::bench::median(a) / ui::bench::median(b);
    };
    const double limit = shape == Shape::Splits ? 1.2 : 1.5;
    report.judge(what.name + "-undock", ratio(ourTimes.undocks, bareTimes.undocks), "times", limit);
    report.judge(what.name + "-dock", ratio(ourTimes.docks, bareTimes.docks), "times", limit);
    report.state(what.name + "-undock-time", ui::bench::median(ourTimes.undocks) / 1000, "us");
    report.state(what.name + "-dock-time", ui::bench::median(ourTimes.docks) / 1000, "us");
    if (many) {
        return;
    }
    report.judge(what.name + "-growth", growth(ourTimes) / growth(bareTimes), "times", 1.2);
    if (shape == Shape::Splits) {
        countEvents(report, what.name, *ours, *bare);
    }
    floatAll(*ours, what.panels);
    const auto left = static_cast<double>(objectsBelow(*ours) - objects);
    report.judge(what.name + "-objects-left", left, "objects", 0);
}

/// How many times as long ours takes: the median of runs in turns, of which only the work counts.
double ratioOfBuilds(const Case& what)
{
    std::vector<double> ratios;
    for (int run = 0; run <= kBuilds; ++run) {
        std::unique_ptr<Tree> tree;
        using Make = std::function<std::unique_ptr<Tree>(Shape, std::size_t)>;
        const auto timed = [&](const Make& make) {
            const double time =
                ui::bench::nanosecondsOf([&] { tree = make(what.shape, what.panels); });
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
        const QSize grown(step == 0 ? -36 : 4, step == 0 ? -27 : 3);
        tree.window().resize(tree.window().size() + grown);
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

/// Of the two windows neither is the active one: Qt asks the style about all that it paints in
/// others.
double ratioOf(void (*work)(Tree&), const Case& what)
{
    const auto ours = makeOurTree(what.shape, what.panels);
    const auto bare = makeBareTree(what.shape, what.panels);
    QWidget active;
    active.show();
    active.activateWindow();
    drain();
    return ui::bench::medianRatio([&] { work(*ours); }, [&] { work(*bare); });
}

void measure(ui::bench::Report& report, const Case& what)
{
    const std::string& name = what.name;
    if (report.wants(name + "-build")) {
        report.judge(name + "-build", ratioOfBuilds(what), "times", 1.5);
    }
    const bool churn = report.wants(
        name + "-undock " + name + "-dock " + name + "-growth " + name + "-objects-left " + name
        + "-events");
    if (what.shape != Shape::Flat && churn) { // a row is no row any more after a few
        measureChurn(report, what);
    }
    if (report.wants(name + "-resize")) {
        report.judge(name + "-resize", ratioOf(resizeInSteps, what), "times", 1.1);
    }
    if (what.shape == Shape::Tabs && report.wants(name + "-switch")) {
        report.judge(name + "-switch", ratioOf(switchAllTabs, what), "times", 1.3);
    }
}

} // namespace

int main(int argc, char** argv)
{
    return benchWithTheme(argc, argv, [](ui::bench::Report& report) {
        measure(report, {Shape::Splits, kPanels, "docking"});
        measure(report, {Shape::Flat, kPanels, "docking-flat"});
        measure(report, {Shape::Tabs, kPanels, "docking-tabs"});
        measure(report, {Shape::Splits, kManyPanels, "docking-many"});
    });
}
