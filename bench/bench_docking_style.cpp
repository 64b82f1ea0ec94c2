// SPDX-License-Identifier: Apache-2.0
/// Docking in the theme beside the same without it, in steps: what of it is the font, the gaps, the
/// palette, and what the style's own share is, which draws and measures the same widgets with the
/// same sizes, colours and font as Qt's Fusion does beside it.
#include "Report.h"
#include "docktrees.h"
#include "themeassets.h"
#include "timing.h"

#include <QStyle>
#include <QStyleFactory>
#include <QWidget>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace {

using ui::bench::drain;
using ui::bench::kPanels;
using ui::bench::kRuns;
using ui::bench::Shape;
using ui::bench::Tree;

constexpr std::size_t kOperations = 40; // in each run

/// What of the theme there is, each step with all before it.
enum Look : std::size_t
{
    Plain,
    WithFont,
    WithGaps,
    WithPalette,
    WithStyle,
};
constexpr std::size_t kLooks = WithStyle + 1;

/// Programs in steps from Qt's own look to ours.
class Wardrobe
{
public:
    /// Before the theme is applied.
    explicit Wardrobe(VisualDesignDark& theme)
        : m_theme(theme)
        , m_plainFont(QApplication::font())
    {
        const std::unique_ptr<QStyle> fusion(QStyleFactory::create(QStringLiteral("fusion")));
        m_plainPalette = fusion->standardPalette();
        m_plainGaps = gapsOf(*fusion);
        m_theme.applyAppStyle();
        m_gaps = gapsOf(*QApplication::style());
    }
    void dress(Tree& tree, Look look) const
    {
        if (look == WithStyle) {
            m_theme.applyAppStyle();
        } else {
            QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
        }
        QApplication::setPalette(look >= WithPalette ? m_theme.getPalette() : m_plainPalette);
        QApplication::setFont(look >= WithFont ? m_theme.getFont() : m_plainFont);
        const Gaps& gaps = look >= WithGaps ? m_gaps : m_plainGaps;
        ui::bench::setLabelGaps(tree.window(), gaps.margin, gaps.gap);
        drain();
    }

private:
    struct Gaps
    {
        int margin = 0;
        int gap = 0;
    };
    static Gaps gapsOf(const QStyle& style)
    {
        return {
            style.pixelMetric(QStyle::PM_LayoutLeftMargin),
            style.pixelMetric(QStyle::PM_LayoutVerticalSpacing)};
    }

    VisualDesignDark& m_theme;
    QFont m_plainFont;
    QPalette m_plainPalette;
    Gaps m_plainGaps;
    Gaps m_gaps;
};

/// The median ratios of each step to the one before, and of all to none; after runs in turns.
void measure(
    ui::bench::Report& report, const Wardrobe& wardrobe, Tree& tree, const std::string& name)
{
    const auto moves = ui::bench::seededMoves(7, Shape::Splits, kPanels, kOperations);
    std::array<std::vector<double>, kLooks> steps;
    std::vector<double> whole;
    for (int run = 0; run <= kRuns; ++run) {
        std::array<double, kLooks> times{};
        for (std::size_t turn = 0; turn < kLooks; ++turn) { // each look first at times
            const std::size_t look = (turn + static_cast<std::size_t>(run)) % kLooks;
            wardrobe.dress(tree, static_cast<Look>(look));
            times[look] = ui::bench::nanosecondsOf([&] {
                for (const ui::bench::Move& move : moves) {
                    tree.undock(move.panel);
                    drain();
                    tree.dock(move.panel, move.target, move.area);
                    drain();
                }
            });
        }
        for (std::size_t look = WithFont; run > 0 && look < kLooks; ++look) { // the first warms up
            steps[look].push_back(times[look] / times[look - 1]);
        }
        if (run > 0) {
            whole.push_back(times[WithStyle] / times[Plain]);
        }
    }
    report.state(name + "-font-share", ui::bench::median(steps[WithFont]), "times");
    report.state(name + "-gaps-share", ui::bench::median(steps[WithGaps]), "times");
    report.state(name + "-palette-share", ui::bench::median(steps[WithPalette]), "times");
    report.judge(name + "-style-share", ui::bench::median(steps[WithStyle]), "times", 1.15);
    report.state(name + "-theme", ui::bench::median(whole), "times");
}

} // namespace

int main(int argc, char** argv)
{
    return benchWithAssets(argc, argv, [](ui::bench::Report& report, const QString& assets) {
        VisualDesignDark theme(assets);
        const Wardrobe wardrobe(theme);
        if (report.wants("docking-style-share docking-theme")) {
            measure(report, wardrobe, *ui::bench::makeOurTree(Shape::Splits), "docking");
        }
        if (report.wants("docking-bare-style-share docking-bare-theme")) {
            measure(report, wardrobe, *ui::bench::makeBareTree(Shape::Splits), "docking-bare");
        }
    });
}
