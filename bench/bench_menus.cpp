// SPDX-License-Identifier: Apache-2.0
#include "Report.h"
#include "themeassets.h"
#include "timing.h"
#include <MorrantUI/MorrantUI.h>

#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <vector>

using ui::bench::Report;

namespace {

constexpr int kRows = 1000;
constexpr int kKeys = 100; ///< typed in a run

/// Texts as layers have them, all found by "layer", none by "z"; only the last begins with "end".
QStringList rowTexts()
{
    QStringList texts;
    for (int i = 1; i < kRows; ++i) {
        texts << QStringLiteral("Layer %1 of a Composition").arg(i);
    }
    return texts << QStringLiteral("End of the Composition");
}

template <typename Menu>
std::unique_ptr<Menu> makeMenu(const QStringList& texts)
{
    auto menu = std::make_unique<Menu>(nullptr);
    for (const QString& text : texts) {
        menu->addAction(text);
    }
    return menu;
}

std::unique_ptr<ContextMenu> makeRichMenu(const QStringList& texts)
{
    auto menu = std::make_unique<ContextMenu>(nullptr);
    for (const QString& text : texts) {
        new ContextMenuItemWidget(text, menu.get());
    }
    return menu;
}

void open(QMenu& menu)
{
    menu.popup({0, 0});
    QCoreApplication::processEvents();
}

void press(QMenu& menu, int key, const QString& text)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&menu, &event);
}

/// As many menus as there are runs, since a menu measures its rows only once.
template <typename Make>
auto makeMenus(Make&& make)
{
    std::vector<decltype(make())> menus;
    for (int i = 0; i <= ui::bench::kRuns; ++i) {
        menus.push_back(make());
    }
    return menus;
}

template <typename Menus>
auto opener(Menus& menus)
{
    return [&menus, next = std::size_t(0)]() mutable { open(*menus.at(next++)); };
}

template <typename Make>
double openingRatio(const QStringList& texts, Make&& make)
{
    auto ours = makeMenus(make);
    auto floor = makeMenus([&texts] { return makeMenu<QMenu>(texts); });
    return ui::bench::medianRatio(opener(ours), opener(floor));
}

void benchOpening(Report& report, const QStringList& texts)
{
    if (report.wants("menu-open-1000")) {
        const double ratio = openingRatio(texts, [&] { return makeMenu<ContextMenu>(texts); });
        report.judge("menu-open-1000", ratio, "x-QMenu", 1.3);
    }
    if (report.wants("menu-open-rich-1000")) {
        const double ratio = openingRatio(texts, [&] { return makeRichMenu(texts); });
        report.state("menu-open-rich-1000", ratio, "x-QMenu");
    }
}

void lowerAll(const QStringList& texts)
{
    qsizetype letters = 0;
    for (const QString& text : texts) {
        letters += text.toLower().size();
    }
    if (letters == 0) {
        std::fprintf(stderr, "there is nothing to search\n");
    }
}

void benchTyping(Report& report, const QStringList& texts, const char* name, const QString& letter)
{
    if (!report.wants(name)) {
        return;
    }
    const auto menu = makeMenu<ContextMenu>(texts);
    auto* const pause = menu->findChild<QTimer*>();
    open(*menu);
    const double ratio = ui::bench::medianRatio(
        [&] {
            for (int i = 0; i < kKeys; ++i) {
                pause->stop(); // every key starts a new search, which goes round all rows
                press(*menu, Qt::Key_unknown, letter);
            }
        },
        [&texts] {
            for (int i = 0; i < kKeys; ++i) {
                lowerAll(texts);
            }
        });
    const bool found = menu->activeAction() == menu->actions().constLast();
    if (found != (letter == QStringLiteral("e"))) {
        std::fprintf(stderr, "the search went astray\n");
        return;
    }
    report.judge(name, ratio, "x-lower-casing", 2.0);
}

void benchArrows(Report& report, const QStringList& texts)
{
    const char* const name = "menu-arrow-1000";
    if (!report.wants(name)) {
        return;
    }
    const auto ours = makeMenu<ContextMenu>(texts);
    const auto floor = makeMenu<QMenu>(texts);
    open(*ours);
    open(*floor);
    const auto goRound = [](QMenu& menu) {
        for (int i = 0; i < kRows; ++i) {
            press(menu, Qt::Key_Down, QString());
        }
    };
    const double ratio = ui::bench::medianRatio([&] { goRound(*ours); }, [&] { goRound(*floor); });
    if (ours->activeAction() == nullptr
        || ours->activeAction()->text() != floor->activeAction()->text())
    {
        std::fprintf(stderr, "the arrows went astray\n");
        return;
    }
    report.judge(name, ratio, "x-QMenu", 1.5);
}

/// When a widget has been painted first.
class FirstPaint : public QObject
{
public:
    explicit FirstPaint(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !m_time) {
            m_time = Clock::now();
        }
        return false;
    }

    using Clock = std::chrono::steady_clock;

    double waitSince(Clock::time_point start)
    {
        while (!m_time) {
            QCoreApplication::processEvents();
        }
        return std::chrono::duration<double, std::milli>(*m_time - start).count();
    }

private:
    std::optional<Clock::time_point> m_time;
};

QWidget* makeList(int rows)
{
    auto* const list = new QListWidget;
    for (int row = 0; row < rows; ++row) {
        list->addItem(QStringLiteral("Layer %1 of a Composition").arg(row));
    }
    return list;
}

/// Milliseconds from the click, which asks for the content, to the panel on the screen.
double timeToOpen(QWidget& anchor, int rows)
{
    PopoverPanel panel(&anchor);
    FirstPaint paint(panel);
    const auto click = FirstPaint::Clock::now();
    panel.setContentMaker([rows] { return makeList(rows); }, QSize(260, 400));
    panel.openAt(&anchor);
    const double time = paint.waitSince(click);
    while (!panel.content()) {
        QCoreApplication::processEvents();
    }
    return time;
}

void benchPopover(Report& report)
{
    if (!report.wants("popover-open-10000")) {
        return;
    }
    QPushButton anchor;
    anchor.show();
    std::vector<double> times, ratios;
    timeToOpen(anchor, 1);
    for (int run = 0; run < ui::bench::kRuns; ++run) {
        const bool floorFirst = run % 2 == 0;
        double floor = floorFirst ? timeToOpen(anchor, 1) : 0.0;
        times.push_back(timeToOpen(anchor, 10 * kRows));
        floor = floorFirst ? floor : timeToOpen(anchor, 1);
        ratios.push_back(times.back() / floor);
    }
    report.judge("popover-open-10000", ui::bench::median(ratios), "x-one-row", 1.5);
    report.state("popover-open-10000-time", ui::bench::median(times), "ms");
}

} // namespace

int main(int argc, char** argv)
{
    return benchWithTheme(argc, argv, [](Report& report) {
        const QStringList texts = rowTexts();
        benchOpening(report, texts);
        benchTyping(report, texts, "menu-key-1000", QStringLiteral("z"));
        benchTyping(report, texts, "menu-key-found-1000", QStringLiteral("e"));
        benchArrows(report, texts);
        benchPopover(report);
    });
}
