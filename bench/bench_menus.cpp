#include "Report.h"
#include "themeassets.h"
#include "timing.h"
#include <MorrantUI/MorrantUI.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QTimer>

#include <cstdio>
#include <memory>
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

} // namespace

int main(int argc, char** argv)
{
    return benchWithTheme(argc, argv, [](Report& report) {
        const QStringList texts = rowTexts();
        benchOpening(report, texts);
        benchTyping(report, texts, "menu-key-1000", QStringLiteral("z"));
        benchTyping(report, texts, "menu-key-found-1000", QStringLiteral("e"));
        benchArrows(report, texts);
    });
}
