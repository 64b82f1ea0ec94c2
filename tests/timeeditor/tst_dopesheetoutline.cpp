// SPDX-License-Identifier: Apache-2.0
#include "Editor.h"
#include "MorrantUI/timeeditor/outlinelines.h"

using namespace ui::test;

namespace {

/// Two groups, "a" with a group in it and "b" with a bar.
std::vector<DopeSheetLine> sample()
{
    const auto line = [](const QString& id, int depth, std::vector<DopeSheetKey> keys) {
        return DopeSheetLine{id, {.text = id, .depth = depth}, false, std::move(keys)};
    };
    std::vector<DopeSheetLine> lines = {
        line(u"a"_qs, 0, {}),
        line(u"x"_qs, 1, {{40}, {10}}),
        line(u"y"_qs, 1, {{10, KeyEasing::Hold}, {20}, {30.5}}),
        line(u"z"_qs, 2, {{20.005}}),
        line(u"b"_qs, 0, {}),
        line(u"c"_qs, 1, {{20}, {50}})};
    lines[4].clip = {5, 60};
    return lines;
}

QString text(const std::vector<DopeSheetPlace>& places)
{
    QStringList texts;
    for (const auto& [line, key] : places) {
        texts << u"%1.%2"_qs.arg(line).arg(key);
    }
    return texts.join(u' ');
}

struct Sheet
{
    Sheet()
    {
        QObject::connect(
            &outline, &DopeSheetOutline::rowsChanged, &pane, &DopeSheetPane::rowsChanged);
        outline.setLines(sample());
        pane.setFrameRange(0, 100);
        pane.resize(1300, 300);
        showActive(pane);
    }
    QPoint at(double frame, int row) { return pane.view().mapFromScene(frame, 22 * row + 11); }
    QString selection() const { return text(outline.selectedKeys()); }

    DopeSheetPane pane;
    DopeSheetOutline outline{pane.view(), pane.header()};
    FakePointer pointer{pane.view().viewport()};
};

} // namespace

/// Rows that are given as a list of lines.
class DopeSheetOutlineTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void foldedGroupsHideTheirLinesAndSumUpTheirKeys()
    {
        std::vector<DopeSheetLine> lines = sample();
        const std::pair<QSet<QString>, std::vector<std::size_t>> cases[] = {
            {{}, {0, 1, 2, 3, 4, 5}},
            {{u"y"_qs, u"z"_qs}, {0, 1, 2, 4, 5}},
            {{u"a"_qs, u"y"_qs, u"b"_qs}, {0, 4}}};
        for (const auto& [folded, seen] : cases) {
            QVERIFY(ui::seenLines(lines, folded) == seen);
        }
        lines[3].locked = true;
        lines[5].keys[0].frame = std::nan("");
        QStringList sums;
        for (const ui::KeySum& sum : ui::keySums(lines, 0, 6)) {
            sums << u"%1: %2%3"_qs.arg(sum.key.frame)
                        .arg(text(sum.keys))
                        .arg(sum.key.locked ? u" locked"_qs : QString());
        }
        QCOMPARE(
            sums.join(u", "),
            u"0: 5.0, 10: 1.1 2.0, 20: 2.1 3.0 locked, 30.5: 2.2, 40: 1.0, 50: 5.1"_qs);
        QCOMPARE(ui::keySums(lines, 0, 6)[1].key.easing, KeyEasing::Linear); // both have another
    }

    void whatIsSelectedStaysSoHoweverLinesFoldAndMove()
    {
        Sheet sheet;
        DopeSheetOutline& outline = sheet.outline;
        TimeEditorRowHeader& header = sheet.pane.header();
        QSignalSpy told(&sheet.pane.scene(), &QGraphicsScene::selectionChanged);
        QSignalSpy folds(&outline, &DopeSheetOutline::foldedChanged);
        outline.selectKeys({{1, 1}, {2, 0}, {5, 1}, {9, 9}});
        header.setCurrentRow(outline.row(3));
        QCOMPARE(told.size(), 1);
        FakePointer(&header).click(header.foldRect(outline.row(0)).center());
        QVERIFY(folds.size() == 1 && outline.folded() == QSet<QString>{u"a"_qs});
        QVERIFY(!outline.row(3) && header.currentRow() == outline.row(0));
        QVERIFY(header.label(outline.row(0))->folded && !outline.lineOf(nullptr));
        QCOMPARE(sheet.selection(), u"1.1 2.0 5.1"_qs);
        QCOMPARE(told.size(), 1);

        sheet.pointer.press(sheet.at(10, 0));
        sheet.pointer.drop(sheet.at(13, 0));
        std::vector<DopeSheetLine> lines = outline.lines();
        for (const DopeSheetKeyMove& move : outline.movedKeys()) {
            QVERIFY(move.selected && move.distance == 3);
            lines[move.place.line].keys[move.place.key].frame = move.frame;
        }
        outline.setLines(lines);
        QCOMPARE(sheet.selection(), u"1.1 2.0 5.1"_qs);
        std::rotate(lines.begin(), lines.begin() + 4, lines.end());
        std::swap(lines[1].keys[0], lines[1].keys[1]);
        outline.setLines(lines);
        QCOMPARE(sheet.selection(), u"1.0 3.1 4.0"_qs);
        QCOMPARE(header.currentRow(), outline.row(2));
        outline.setFolded({});
        QCOMPARE(sheet.selection(), u"1.0 3.1 4.0"_qs);
        QCOMPARE(sheet.pane.scene().sceneRect().height(), 132.0);

        // Half of what a mark stands for is not moved alone, and what is locked not at all.
        told.clear();
        lines[4].locked = true;
        const TimeEditorBaseItem* const row = outline.row(3);
        outline.updateLines(4, {lines[4]});
        QVERIFY(told.size() == 1 && outline.row(3) == row && !outline.row(4)->isEnabled());
        outline.setFolded({u"a"_qs});
        QCOMPARE(sheet.selection(), u"1.0"_qs);
        outline.updateLines(5, {lines[0], lines[1]}); // one too many, and another id
        QCOMPARE(outline.lines().back().id, u"b"_qs);
    }

    void barsAndSoundsAreLinesToo()
    {
        Sheet sheet;
        std::vector<DopeSheetClip> told;
        connect(
            &sheet.outline,
            &DopeSheetOutline::clipChanging,
            this,
            [&](std::size_t line, const DopeSheetClip& now) {
                QCOMPARE(line, std::size_t(4));
                told.push_back(now);
            });
        sheet.pointer.press(sheet.at(30, 4));
        sheet.pointer.drop(sheet.at(40, 4));
        QVERIFY(!told.empty() && told.back() == (DopeSheetClip{15, 70, 0}));
        QVERIFY(sheet.outline.selectedLines() == std::vector<std::size_t>{4});
        auto lines = sample();
        lines.insert(lines.begin(), {.id = u"beat"_qs, .sound = DopeSheetSound()});
        sheet.outline.setLines(lines);
        QVERIFY(sheet.outline.selectedLines() == std::vector<std::size_t>{5});
        QVERIFY(dynamic_cast<TimeEditorSoundItem*>(sheet.outline.row(0)));

        sheet.pane.scene().clearScene(); // by whoever may
        sheet.outline.updateLines(1, {lines[1]});
        QVERIFY(sheet.outline.row(6) && !sheet.pane.grab().isNull());
        auto pane = std::make_unique<DopeSheetPane>();
        DopeSheetOutline outline(pane->view(), pane->header());
        outline.setLines(lines);
        pane.reset();
        outline.setLines(sample());
        outline.selectKeys({{1, 0}});
        QVERIFY(outline.movedKeys().empty() && !outline.row(1));
    }

    void keysAreSelectedByTheirFrames()
    {
        Sheet sheet;
        DopeSheetView& view = sheet.pane.view();
        sheet.outline.setFolded({u"a"_qs});
        sheet.pane.setCurrentFrame(20);
        const std::pair<std::function<void()>, QString> cases[] = {
            {[&] { view.selectKeyColumn(); }, u"2.1 3.0 5.0"_qs},
            {[&] { view.selectKeysUpTo(20); }, u"1.1 2.0 2.1 3.0 5.0"_qs},
            {[&] { view.selectKeyColumn(); }, u"1.1 2.0 2.1 3.0 5.0"_qs},
            {[&] { view.selectKeysFrom(40); }, u"1.0 5.1"_qs},
            {[&] { view.selectAllKeys(); }, u"1.0 1.1 2.0 2.1 2.2 3.0 5.0 5.1"_qs}};
        for (const auto& [select, selection] : cases) {
            select();
            QCOMPARE(sheet.selection(), selection);
        }
        QVERIFY((view.selectedFrames() == std::vector<double>{10, 20, 30.5, 40, 50}));
    }
};

const ui::test::Registration<DopeSheetOutlineTest> kRegistration;

#include "tst_dopesheetoutline.moc"
