#include "Editor.h"
#include "support/TestCase.h"
#include <MorrantUI/timeeditor/TimeEditorRowHeader.h>
#include <MorrantUI/timeeditor/framefollowing.h>

using namespace ui::test;

/// Labels that stand by their rows, and pages that a playhead turns.
class TimeEditorRowHeaderTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void labelsStandExactlyByTheirRowsHoweverTheViewScrolls()
    {
        Editor editor({{1}, {2}, {3}, {4}, {5}, {6}, {7}, {8}, {9}, {10}, {11}, {12}});
        TimeEditorRowHeader header(editor.view);
        header.setGeometry(0, 0, 100, 260);
        header.show();
        for (TimeEditorCurveItem* row : editor.curves) {
            header.setLabel(row, {u"row"_qs});
        }
        for (const int scroll : {0, 7, 22, 64}) {
            editor.view->verticalScrollBar()->setValue(scroll);
            for (const TimeEditorCurveItem* row : editor.curves) {
                const int top = editor.view->viewport()
                                    ->mapToGlobal(editor.view->mapFromScene(row->scenePos()))
                                    .y();
                QCOMPARE(header.mapToGlobal(header.labelRect(row).topLeft()).y(), top);
                QCOMPARE(header.labelRect(row).height(), 22);
            }
        }
        header.showRow(editor.curves.front());
        QCOMPARE(editor.view->verticalScrollBar()->value(), 0);
        header.showRow(editor.curves.back());
        QCOMPARE(
            editor.view->verticalScrollBar()->value(), editor.view->verticalScrollBar()->maximum());
        delete editor.curves.back();
        QVERIFY(!header.grab().isNull());
    }

    void rowsAreChosenAndFoldedByMouseAndKeys()
    {
        Editor editor({{1}, {2}, {3}});
        const auto& rows = editor.curves;
        TimeEditorRowHeader header(editor.view);
        header.resize(100, 200);
        header.show();
        header.setLabel(rows[0], {u"group"_qs, {}, 0, true, true, false});
        header.setLabel(rows[1], {u"one"_qs});
        header.setLabel(rows[2], {u"two"_qs});
        QStringList told;
        connect(
            &header, &TimeEditorRowHeader::currentRowChosen, this, [&](TimeEditorBaseItem* row) {
                told << header.label(row)->text;
            });
        connect(
            &header,
            &TimeEditorRowHeader::foldRequested,
            this,
            [&](TimeEditorBaseItem* row, bool folded, bool all) {
                told << u"%1 %2 %3"_qs.arg(header.label(row)->text).arg(folded).arg(all);
            });
        FakePointer pointer(&header);
        pointer.click(header.labelRect(rows[1]).center());
        pointer.click(header.foldRect(rows[0]).center());
        QCOMPARE(header.currentRow(), rows[1]);
        for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Home, Qt::Key_Left}) {
            QTest::keyClick(&header, key);
        }
        QTest::keyClick(&header, Qt::Key_Right, Qt::ControlModifier);
        QCOMPARE(
            told,
            (QStringList{u"one"_qs, u"group 0 0"_qs, u"two"_qs, u"group"_qs, u"group 0 1"_qs}));
        header.setCurrentRow(nullptr);
        QTest::keyClick(&header, Qt::Key_Right);
        QCOMPARE(told.size(), 5);
    }

    void aPageIsTurnedWhenItsFrameIsOutOfSight()
    {
        QVERIFY(!ui::pageFor(10, 30, 10) && !ui::pageFor(10, 30, 30) && !ui::pageFor(30, 30, 5));
        QCOMPARE(*ui::pageFor(10, 30, 31), 30.0);
        QCOMPARE(*ui::pageFor(10, 30, 0), -1.0);
    }
};

const ui::test::Registration<TimeEditorRowHeaderTest> kRegistration;

#include "tst_timeeditorrowheader.moc"
