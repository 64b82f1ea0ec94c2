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
    /// Into its document, and back.
    void pushMoves()
    {
        std::vector<DopeSheetLine> lines = outline.lines();
        for (const DopeSheetKeyMove& move : outline.movedKeys()) {
            lines[move.place.line].keys[move.place.key].frame = move.frame;
        }
        outline.setLines(lines);
    }
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
        QCOMPARE(outline.movedKeys()[0].distance, 3.0);
        sheet.pushMoves();
        std::vector<DopeSheetLine> lines = outline.lines();
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
        sheet.pane.view().selectAllKeys();
        QCOMPARE(sheet.selection(), u"1.0 1.1 3.0 3.1 5.0"_qs);
        sheet.pointer.press(sheet.at(20, 4));
        sheet.pointer.drop(sheet.at(25, 4));
        QCOMPARE(outline.row(4)->childItems()[1]->x(), 20.0);
        outline.selectKeys({{1, 0}, {3, 1}});
        outline.setFolded({u"a"_qs});
        QCOMPARE(sheet.selection(), u"1.0"_qs);
        outline.updateLines(5, {lines[0], lines[1]}); // one too many, and another id
        QCOMPARE(outline.lines().back().id, u"b"_qs);
    }

    void aFoldedMarkStandsForTheKeysOfItsPress()
    {
        const std::tuple<int, int, bool, QString> cases[] = {
            {10, 25, false, u"25 25 20, 4 marks"_qs},
            {20, 5, false, u"10 10 5, 4 marks"_qs},
            {10, 20, false, u"20 20 20, 3 marks"_qs},
            {10, 25, true, u"10 10 20, 4 marks"_qs}};
        for (const auto& [from, to, escapes, expected] : cases) {
            Sheet sheet;
            DopeSheetOutline& outline = sheet.outline;
            outline.setFolded({u"a"_qs});
            connect(
                &sheet.pane.view(), &TimeEditorView::keysMoving, this, [&] { sheet.pushMoves(); });
            QSignalSpy moved(&sheet.pane.view(), &TimeEditorView::keysMoved);
            sheet.pointer.press(sheet.at(from, 0));
            sheet.pointer.dragTo(sheet.at(to, 0));
            if (escapes) {
                QTest::keyClick(&sheet.pane.view(), Qt::Key_Escape);
            }
            sheet.pointer.release();
            const auto& lines = outline.lines();
            QCOMPARE(
                u"%1 %2 %3, %4 marks"_qs.arg(lines[1].keys[1].frame)
                    .arg(lines[2].keys[0].frame)
                    .arg(lines[2].keys[1].frame)
                    .arg(dynamic_cast<TimeEditorCurveItem&>(*outline.row(0)).keyframes().size()),
                expected);
            QCOMPARE(moved.size(), escapes ? 0 : 1);
        }

        // And its selection is that of its keys, whatever a command makes of their frames.
        Sheet sheet;
        sheet.outline.setFolded({u"a"_qs});
        sheet.outline.selectKeys({{1, 1}, {2, 0}});
        auto lines = sample();
        for (const auto& [frame, selection] :
             {std::pair(15, u"1.1 2.0"_qs), {20, u"1.1"_qs}, {15, u"1.1"_qs}})
        {
            lines[2].keys[0].frame = frame;
            sheet.outline.setLines(lines);
            QCOMPARE(sheet.selection(), selection);
        }
        const TimeEditorBaseItem* const row = sheet.outline.row(0);
        sheet.outline.setFolded({u"a"_qs, u"y"_qs, u"gone"_qs}); // nothing else is seen
        QCOMPARE(sheet.outline.row(0), row);
    }

    void aDragThatCannotGoOnEndsBeforeTheLinesChange()
    {
        using Lines = std::vector<DopeSheetLine>;
        const std::function<void(DopeSheetOutline&, Lines&)> cases[] = {
            [](auto&, Lines& lines) { lines[2].locked = true; },
            [](auto&, Lines& lines) { lines[2].keys[1].locked = true; },
            [](auto&, Lines& lines) { lines[2].keys.clear(); },
            [](auto&, Lines& lines) { lines.erase(lines.begin() + 2); },
            [](auto& outline, Lines&) { outline.setFolded({u"a"_qs}); }};
        for (const auto& change : cases) {
            Sheet sheet;
            DopeSheetOutline& outline = sheet.outline;
            QStringList told;
            connect(&sheet.pane.view(), &TimeEditorView::keysMoved, &outline, [&] {
                const DopeSheetKeyMove move = outline.movedKeys().at(0);
                told << u"%1 to %2"_qs.arg(text({move.place})).arg(move.frame);
                auto first = outline.lines().front();
                first.label.text = u"newer"_qs;
                outline.updateLines(0, {first});
            });
            sheet.pointer.press(sheet.at(20, 2));
            sheet.pointer.dragTo(sheet.at(27, 2));
            Lines lines = sample();
            change(outline, lines);
            outline.setLines(lines);
            sheet.pointer.release();
            QCOMPARE(told, QStringList{u"2.1 to 27"_qs});
            QCOMPARE(outline.lines().size(), lines.size());
            const bool isFolded = !outline.folded().isEmpty(); // set before the lines
            QCOMPARE(outline.lines()[0].label.text, isFolded ? u"a"_qs : u"newer"_qs);
        }

        // So does that of a row which is filled by itself.
        Sheet sheet;
        auto* const row = new DopeSheetRow(&sheet.pane.view());
        sheet.pane.scene().addLayoutItem(row);
        row->setKeys({{10}, {30}});
        sheet.pane.rowsChanged();
        connect(&sheet.pane.view(), &TimeEditorView::keysMoved, row, [row] {
            QCOMPARE(row->keys()[0].frame, 15.0);
            row->setKeys({{16}});
        });
        sheet.pointer.press(sheet.at(10, 6));
        sheet.pointer.dragTo(sheet.at(15, 6));
        row->setKeys({{15, KeyEasing::Bezier, true}, {30}});
        QVERIFY(row->keys() == std::vector<DopeSheetKey>{{16}});
        connect(&sheet.pane.scene(), &QGraphicsScene::selectionChanged, row, [row] { delete row; });
        row->setKeys({{16, KeyEasing::Bezier, true}}); // it was selected
        QCOMPARE(sheet.pane.scene().curves().size(), std::size_t(5));
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
        sheet.outline.setFolded({u"b"_qs});
        DopeSheetView& view = sheet.pane.view();
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down}) {
            QTest::keyClick(&view, key); // onto the bar's keys too
        }
        QCOMPARE(view.accessibleDescription(), u"b, key at frame 20, selected"_qs);
        QAccessibleInterface* const bar = QAccessible::queryAccessibleInterface(&view)->child(4);
        QVERIFY(bar->text(QAccessible::Name) == u"b"_qs && bar->childCount() == 2);
        QCOMPARE(bar->child(1)->parent(), bar);
        sheet.outline.setFolded({});
        sheet.outline.selectKeys({});
        dynamic_cast<TimeEditorClipItem*>(sheet.outline.row(4))->selectItemAndClips();
        auto lines = sample();
        lines[4].color = Qt::red;
        sheet.outline.setLines(lines);
        QCOMPARE(sheet.outline.row(4)->getBaseColor(), QColor(Qt::red));
        lines[4].color = {};
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
