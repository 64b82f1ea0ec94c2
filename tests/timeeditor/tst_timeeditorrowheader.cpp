// SPDX-License-Identifier: Apache-2.0
#include "Editor.h"
#include <MorrantUI/timeeditor/TimeEditorRowHeader.h>

using namespace ui::test;

/// Labels that stand by their rows.
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
                const QPoint top = editor.view->mapFromScene(row->scenePos());
                QCOMPARE(
                    header.mapToGlobal(header.labelRect(row).topLeft()).y(),
                    editor.view->viewport()->mapToGlobal(top).y());
                QCOMPARE(header.labelRect(row).height(), 22);
            }
        }
        const QScrollBar* bar = editor.view->verticalScrollBar();
        header.showRow(editor.curves.front());
        QCOMPARE(bar->value(), 0);
        header.showRow(editor.curves.back());
        QCOMPARE(bar->value(), bar->maximum());
        delete editor.curves.back(); // its label goes with it
        QVERIFY(!header.rowAt({5, header.height() - 1}) && !header.grab().isNull());
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
        QSignalSpy chosen(&header, &TimeEditorRowHeader::currentRowChosen);
        QSignalSpy folds(&header, &TimeEditorRowHeader::foldRequested);
        FakePointer pointer(&header);
        pointer.click(header.labelRect(rows[1]).center());
        pointer.click(header.foldRect(rows[0]).center());
        QCOMPARE(header.currentRow(), rows[1]);
        QTest::keyClick(&header, Qt::Key_Down);
        QTest::keyClick(&header, Qt::Key_Down); // there is no further one
        QCOMPARE(header.currentRow(), rows[2]);
        QTest::keyClick(&header, Qt::Key_Home);
        QTest::keyClick(&header, Qt::Key_Left); // it is folded
        QTest::keyClick(&header, Qt::Key_Right, Qt::ControlModifier);
        QCOMPARE(chosen.size(), 3);
        QCOMPARE(folds.size(), 2);
        QVERIFY(!folds[0][1].toBool() && !folds[0][2].toBool() && folds[1][2].toBool());
        header.setLayoutDirection(Qt::RightToLeft);
        QVERIFY(header.foldRect(rows[0]).left() > header.width() / 2);
    }
};

const ui::test::Registration<TimeEditorRowHeaderTest> kRegistration;

#include "tst_timeeditorrowheader.moc"
