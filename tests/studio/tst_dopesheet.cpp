// SPDX-License-Identifier: Apache-2.0
#include "DocumentPage.h"
#include "DocumentTabs.h"
#include "studiotest.h"
#include "timeline/DopeSheet.h"
#include "timeline/doperows.h"
#include <MorrantUI/MorrantUI.h>

using namespace studio;
using studio::test::settle;

namespace {

/// Two layers of a hundred frames: "A" with keys of rotation and opacity, "B" with rotation alone
/// and shown from 5 to 60.
Document twoLayers()
{
    const auto keys = [](const char* name, const QByteArrayList& times) {
        return QByteArray(name) + R"(:{"k":[{"s":[0],"t":)" + times.join(R"(},{"s":[0],"t":)")
               + "}]}";
    };
    const QByteArray a = keys(R"("r")", {"10", "40"}) + "," + keys(R"("o")", {"10", "20", "30.5"});
    return studio::test::documentOf(
        studio::test::layer(R"("nm":"A","ty":3,"ks":{)" + a + "}") + ","
        + studio::test::layer(
            R"("nm":"B","ty":3,"ip":5,"op":60,"ks":{)" + keys(R"("r")", {"20", "50"}) + "}"));
}

QString text(const std::vector<double>& numbers)
{
    QStringList texts;
    for (const double number : numbers) {
        texts.append(QString::number(number));
    }
    return texts.join(u' ');
}

/// Rows from the top: A, Rotation, Opacity, B, Rotation.
struct Sheet : StudioWindow
{
    Sheet()
    {
        openDocument(std::make_shared<Document>(twoLayers()), u"sheet"_qs);
        resize(1200, 800);
        studio::test::showActive(*this);
        settle();
    }

    DopeSheetView& view() { return dopeSheet().view(); }
    QPoint at(double frame, int row) { return view().mapFromScene(frame, 22 * row + 11); }

    void drag(QPoint from, QPoint to, bool releases = true)
    {
        pointer.press(from);
        pointer.dragTo(to);
        if (releases) {
            pointer.release();
            settle();
        }
    }
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        view().setFocus();
        pointer.hold(modifiers);
        QTest::keyClick(&view(), Qt::Key(key), modifiers);
        pointer.hold({});
        settle();
    }

    double time(Attribute attribute, std::size_t key) // of A, in the document
    {
        return editor().property({0, attribute})->keys[key].time;
    }
    QString clip(int layer)
    {
        const ClipTimes times = *editor().clipOf(layer);
        return text({times.inPoint, times.outPoint, times.startTime});
    }
    QString selection()
    {
        std::vector<double> frames;
        for (const TimeEditorKeyframeItem* key : view().selectedKeyframes()) {
            frames.push_back(key->scenePos().x());
        }
        std::sort(frames.begin(), frames.end());
        return text(frames);
    }
    /// The times in the rows on the screen.
    QString shown()
    {
        QMap<double, QString> rows;
        for (const TimeEditorCurveItem* row : view().getEditorScene()->curves()) {
            std::vector<double> frames;
            for (const TimeEditorKeyframeItem* key : row->keyframes()) {
                frames.push_back(key->x());
            }
            rows[row->scenePos().y()] = text(frames);
        }
        return rows.values().join(u" | ");
    }

    ui::test::FakePointer pointer{view().viewport()};
};

} // namespace

/// The dope sheet: what it shows of a document, and what becomes of it under the user's hands.
class DopeSheetTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:
    void whatCannotBeEditedIsLockedAndSeen()
    {
        Document document = twoLayers();
        document.main.layers[0].transform.skew = document.main.layers[1].transform.rotation;
        const auto rows = dopeRows(document, 0);
        QVERIFY(rows.size() == 4 && rows[3].line.locked && !rows[2].line.locked);
        document.main.layers[0].transform.skew.keys[0].time = -7.5;
        document.main.layers[0].transform.skew.keys[1].time = 1000;
        QCOMPARE(sheetRange(document), std::pair(-8, 200));
    }

    void clipsKeepWhatTheyHaveBetweenFrames()
    {
        const ClipTimes times{2.25, 50, 1};
        const DopeSheetClip frames = clipFrames(times);
        QCOMPARE(editedTimes(times, frames, {12, 60, 0}), (ClipTimes{12.25, 60, 11}));
        QCOMPARE(editedTimes(times, frames, {2, 55, 0}), (ClipTimes{2.25, 55, 1}));
        QCOMPARE(editedTimes(times, frames, {2, 50, -4}), (ClipTimes{2.25, 50, -3}));
    }

    void aDragIsOneStepAndEscapeTakesItBack()
    {
        Sheet sheet;
        sheet.drag(sheet.at(20, 2), sheet.at(25, 2), false);
        QCOMPARE(sheet.time(Attribute::Opacity, 1), 25.0); // seen everywhere meanwhile
        sheet.pointer.drop(sheet.at(35, 2));
        QCOMPARE(sheet.shown(), u"10 40 | 10 30.5 35 | 20 50"_qs);
        QCOMPARE(sheet.documents().current().layer, 0);

        sheet.drag(sheet.at(10, 1), sheet.at(15, 1), false);
        QCOMPARE(sheet.time(Attribute::Rotation, 0), 15.0);
        sheet.key(Qt::Key_Escape);
        QCOMPARE(sheet.time(Attribute::Rotation, 0), 10.0);
        sheet.pointer.release();
        QCOMPARE(sheet.editor().undoText(), u"Move Key"_qs);
        sheet.undo();
        settle();
        QCOMPARE(sheet.shown(), u"10 40 | 10 20 30.5 | 20 50"_qs);
        QVERIFY(!sheet.editor().canUndo());

        // On its way a key is where another one is, which the graph does not show meanwhile.
        sheet.drag(sheet.at(10, 1), sheet.at(40, 1), false);
        settle();
        sheet.pointer.drop(sheet.at(55, 1));
        settle();
        QCOMPARE(sheet.shown(), u"40 55 | 10 20 30.5 | 20 50"_qs);
        QCOMPARE(sheet.selection(), u"55"_qs);
        sheet.undo();
        settle();

        // A band over two rows, and what it has caught.
        sheet.drag(sheet.at(6, 1) - QPoint(0, 5), sheet.at(15, 2));
        QCOMPARE(sheet.selection(), u"10 10"_qs);
        sheet.drag(sheet.at(10, 2), sheet.at(13, 2), false);
        sheet.undo(); // ends the drag
        sheet.pointer.drop(sheet.at(18, 2));
        settle();
        QCOMPARE(sheet.shown(), u"10 40 | 10 20 30.5 | 20 50"_qs);
    }

    void scalingKeepsWhatItIsAboutSelectedAndNotWhatItRipples()
    {
        Sheet sheet;
        sheet.key(Qt::Key_T);
        sheet.drag(sheet.at(6, 2) + QPoint(0, 5), sheet.at(22, 2));
        sheet.key(Qt::Key_Right, Qt::AltModifier);
        sheet.undo();
        settle();
        for (const QGraphicsItem* item : sheet.view().items()) { // the tool goes back too
            const auto* tool = dynamic_cast<const TranslateScaleTool*>(item);
            QVERIFY(!tool || (tool->isVisible() && tool->rect().left() == 10));
        }
        sheet.pointer.hold(Qt::AltModifier);
        sheet.drag(sheet.at(20, 2) - QPoint(2, 0), sheet.at(25, 2));
        QCOMPARE(sheet.shown(), u"10 40 | 10 25 35 | 20 50"_qs);
        QCOMPARE(sheet.selection(), u"10 25"_qs);
    }

    void clipsAreMovedAndTrimmed()
    {
        Sheet sheet;
        sheet.drag(sheet.at(59.8, 3), sheet.at(69.8, 3));
        QCOMPARE(sheet.clip(1), u"5 70 0"_qs);
        sheet.drag(sheet.at(30, 3), sheet.at(25, 3));
        QCOMPARE(sheet.clip(1), u"0 65 -5"_qs);
        sheet.player().seek(30);
        sheet.key(Qt::Key_BracketRight, Qt::AltModifier);
        QCOMPARE(sheet.clip(1), u"0 31 -5"_qs);
        for (const QString& before : {u"0 65 -5"_qs, u"5 70 0"_qs, u"5 60 0"_qs}) {
            sheet.undo();
            QCOMPARE(sheet.clip(1), before);
        }
        sheet.drag(sheet.at(59.8, 3), sheet.at(80, 3), false);
        sheet.key(Qt::Key_Escape);
        sheet.pointer.release();
        QCOMPARE(sheet.clip(1), u"5 60 0"_qs);
        QVERIFY(!sheet.editor().canUndo());
        sheet.openFile(samplePaths().at(1));
        sheet.drag(
            sheet.at(16.2, 2), sheet.at(20.2, 2)); // by its start, where a path's key is marked
        QCOMPARE(sheet.clip(2), u"20 90 0"_qs);
    }

    void keysOfTheKeyboardEditWhatIsSelected()
    {
        Sheet sheet;
        sheet.player().seek(60);
        sheet.pointer.click(sheet.at(10, 2));
        const std::tuple<int, Qt::KeyboardModifiers, QString, QString> cases[] = {
            {Qt::Key_C, Qt::ControlModifier, u"10 20 30.5"_qs, u"10"_qs},
            {Qt::Key_V, Qt::ControlModifier, u"10 20 30.5 60"_qs, u"60"_qs},
            {Qt::Key_Left, Qt::AltModifier, u"10 20 30.5 59"_qs, u"59"_qs},
            {Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier, u"10 20 30.5 69"_qs, u"69"_qs},
            {Qt::Key_D, Qt::ControlModifier, u"10 20 30.5 60 69"_qs, u"60"_qs},
            {Qt::Key_D, Qt::ControlModifier, u"10 20 30.5 60 61 69"_qs, u"61"_qs},
            {Qt::Key_X, Qt::ControlModifier, u"10 20 30.5 60 69"_qs, QString()},
            {Qt::Key_BracketRight, Qt::NoModifier, u"10 20 30.5 60 69"_qs, u"60 69"_qs},
            {Qt::Key_Delete, Qt::NoModifier, u"10 20 30.5"_qs, QString()},
            {Qt::Key_A, Qt::ControlModifier, u"10 20 30.5"_qs, u"10 10 20 20 30.5 40 50"_qs}};
        for (const auto& [key, modifiers, opacity, selection] : cases) {
            sheet.key(key, modifiers);
            QCOMPARE(sheet.shown(), u"10 40 | %1 | 20 50"_qs.arg(opacity));
            QCOMPARE(sheet.selection(), selection);
        }
        sheet.editor().deleteKeys({{{0, Attribute::Opacity}, 0}});
        settle();
        const QSignalSpy told(sheet.view().getEditorScene(), &QGraphicsScene::selectionChanged);
        sheet.undo(); // other marks are selected now, which is told once
        settle();
        QCOMPARE(told.count(), 1);
        int steps = 0;
        for (; sheet.editor().canUndo(); ++steps) {
            sheet.undo();
        }
        QCOMPARE(steps, 7);
        sheet.pointer.click(sheet.at(20, 2));
        sheet.key(Qt::Key_K);
        QCOMPARE(sheet.selection(), u"20 20"_qs);
        sheet.key(Qt::Key_Space);
        QVERIFY(sheet.player().isPlaying());
    }

    void aFoldedLayersMarksStandForAllTheirKeys()
    {
        Sheet sheet;
        TimeEditorRowHeader& header = sheet.dopeSheet().header();
        const auto rowAt = [&](int row) { return header.rowAt({50, 22 * row + 11}); };
        ui::test::FakePointer(&header).click(header.foldRect(rowAt(0)).center());
        QCOMPARE(sheet.shown(), u"20 50"_qs);
        QCOMPARE(sheet.view().getEditorScene()->sceneRect().height(), 66.0);
        sheet.drag(sheet.at(10, 0), sheet.at(13, 0));
        QCOMPARE(sheet.time(Attribute::Opacity, 0), 13.0);
        QCOMPARE(sheet.time(Attribute::Rotation, 0), 13.0);
        QCOMPARE(sheet.selection(), u"13"_qs);
        sheet.editor().moveLayers({0}, 2); // what is folded and selected stays so
        settle();
        QCOMPARE(sheet.selection(), u"13"_qs);
        ui::test::FakePointer(&header).click({50, 33});
        QCOMPARE(sheet.documents().current().layer, 0);
        sheet.selectLayer(1);
        QCOMPARE(header.currentRow(), rowAt(2));
    }

    void editsElsewhereShowInTheirRowsAlone()
    {
        Sheet sheet;
        const auto rows = sheet.view().getEditorScene()->curves();
        sheet.editor().nudgeKeys({{{1, Attribute::Rotation}, 1}}, 5);
        sheet.editor().addKey({0, Attribute::Opacity}, 25);
        settle();
        QCOMPARE(sheet.shown(), u"10 40 | 10 20 25 30.5 | 20 55"_qs);
        QVERIFY(sheet.view().getEditorScene()->curves() == rows);
        sheet.editor().addKey({1, Attribute::Opacity}, 8);
        settle();
        QCOMPARE(sheet.shown(), u"10 40 | 10 20 25 30.5 | 20 55 | 8"_qs);
    }

    void whatIsPlayedAndSeenBelongsToItsDocument()
    {
        Sheet sheet;
        sheet.dopeSheet().ruler().setPlaybackRange(20, 30);
        QCOMPARE(sheet.player().playbackRange(), std::pair(20, 30));
        QCOMPARE(sheet.view().getEditorScene()->getBackgroundRegion(), std::pair(20, 30));
        const QPoint at = sheet.at(50, 1);
        ui::test::turnWheel(*sheet.view().viewport(), at, {0, 1440}, Qt::ControlModifier);
        QVERIFY(std::abs(sheet.at(50, 1).x() - at.x()) <= 1);
        const QRectF zoomed = sheet.view().getVisibleRect();
        QVERIFY(zoomed.width() < 40);
        sheet.setLayoutDirection(Qt::RightToLeft); // time goes on as before
        settle();
        const auto xOf = [](const QGraphicsView& view) {
            return view.viewport()->mapToGlobal(view.mapFromScene(50, 0)).x();
        };
        QCOMPARE(xOf(sheet.dopeSheet().ruler()), xOf(sheet.view()));
        sheet.player().seek(90); // followed by pages
        QVERIFY(sheet.view().getVisibleRect().contains(90, 1));
        sheet.dopeSheet().ruler().seek(92);
        QCOMPARE(sheet.player().frame(), 92);
        sheet.openFile(samplePaths().first());
        QVERIFY(sheet.player().playbackRange() == sheet.player().frameRange());
        sheet.documents().setTab(0);
        QCOMPARE(sheet.player().playbackRange(), std::pair(20, 30));
        QVERIFY(qAbs(sheet.view().getVisibleRect().width() - zoomed.width()) < 1);
    }

    void aSoundIsDroppedIntoARowAndRemoved()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"beat.WAV"_qs);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray::fromHex("524946462800000057415645666d74201000000001000100401f0000"
                                       "803e0000020010006461746104000000ff7f0080"));
        file.close();
        Sheet sheet;
        const auto drop = [&sheet](const QString& name) {
            QMimeData data;
            data.setUrls({QUrl::fromLocalFile(name)});
            ui::test::dropOn(*sheet.view().viewport(), data);
        };
        const auto first = [&sheet] {
            const TimeEditorRowHeader& header = sheet.dopeSheet().header();
            return header.label(header.rowAt({50, 11}))->text;
        };
        drop(path);
        QCOMPARE(first(), u"beat"_qs);
        drop(folder.filePath(u"none.wav"_qs));
        QVERIFY(sheet.notices().texts().value(0).contains(u"none.wav"_qs));
        sheet.dopeSheet().menu()->actions().last()->trigger();
        QCOMPARE(first(), u"A"_qs);
    }
};

const ui::test::Registration<DopeSheetTest> kRegistration;

#include "tst_dopesheet.moc"
