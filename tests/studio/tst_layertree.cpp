// SPDX-License-Identifier: Apache-2.0
#include "LayerTree.h"
#include "studiotest.h"
#include <MorrantUI/controls/values/AttributeRow.h>
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/docking/DockableWindow.h>

using namespace studio;
using studio::test::layer;

namespace {

/// Four solids over each other; the second one's parent is the third.
struct OpenWindow : StudioWindow
{
    OpenWindow()
    {
        const QByteArray solid = R"(,"ty":1,"sw":100,"sh":100,"sc":"#)";
        const QByteArray layers = layer(R"("nm":"Ada","ind":1)" + solid + "ff0000\"") + ","
                                  + layer(R"("nm":"Bea","ind":2,"parent":3)" + solid + "00ff00\"")
                                  + "," + layer(R"("nm":"Cem","ind":3)" + solid + "0000ff\"") + ","
                                  + layer(R"("nm":"Dua","ind":4,"hd":true)" + solid + "ffffff\"");
        openDocument(std::make_shared<Document>(studio::test::documentOf(layers)), u"four"_qs);
        studio::test::showActive(*this);
        tree().setFocus();
    }

    LayerTree& tree() { return *findChild<LayerTree*>(); }

    /// "Ada Bea Cem Dua(hidden)"
    QString layers() const
    {
        QStringList names;
        for (const Layer& each : document()->main.layers) {
            names.append(
                each.name + (each.hidden ? u"-"_qs : QString())
                + (each.locked ? u"!"_qs : QString()));
        }
        return names.join(u' ');
    }

    QColor drawn()
    {
        viewport().showActualSize();
        const QPointF middle = QRectF(viewport().rect()).center();
        return ui::test::pixelAt(viewport().grab().toImage(), middle);
    }

    void click(int row, int column)
    {
        const QRect cell = tree().visualRect(tree().model()->index(row, column));
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, cell.center());
    }
};

} // namespace

/// The layers in their tree, which edits the document.
class LayerTreeTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:
    void layersMoveByKeyAndMouseAndTheirParentsWithThem()
    {
        OpenWindow window;
        QCOMPARE(window.drawn(), QColor(Qt::red));
        window.selectLayer(0);
        QTest::keyClick(&window.tree(), Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(&window.tree(), Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(window.layers(), u"Cem Ada Bea Dua-"_qs);
        QCOMPARE(window.tree().selectedLayers(), (std::vector{1, 2}));
        QCOMPARE(window.document()->main.layers[2].parent, 0);
        QCOMPARE(window.drawn(), QColor(Qt::blue));

        ui::test::FakePointer pointer(window.tree().viewport());
        const auto rowAt = [&window](int row) {
            return window.tree().visualRect(window.tree().model()->index(row, 0));
        };
        window.selectLayer(0);
        pointer.press(rowAt(0).center());
        pointer.drop(rowAt(3).center() + QPoint(0, 6));
        QCOMPARE(window.layers(), u"Ada Bea Dua- Cem"_qs);
        QCOMPARE(window.tree().selectedLayers(), std::vector{3});
        QCOMPARE(window.document()->main.layers[1].parent, 3);

        window.undo();
        window.undo();
        QCOMPARE(window.layers(), u"Ada Bea Cem Dua-"_qs);
        QCOMPARE(window.tree().selectedLayers(), std::vector{2});
        QCOMPARE(window.document()->main.layers[1].parent, 2);
        QVERIFY(!window.editor().isModified());
    }

    void iconsHideAndLockWithoutSelecting()
    {
        OpenWindow window;
        window.selectLayer(2);
        window.click(0, 1);
        window.click(3, 1);
        window.click(1, 2);
        QCOMPARE(window.layers(), u"Ada- Bea! Cem Dua"_qs);
        QCOMPARE(window.tree().selectedLayers(), std::vector{2});
        QCOMPARE(window.drawn(), QColor(Qt::green));
        window.undo();
        window.undo();
        QCOMPARE(window.layers(), u"Ada- Bea Cem Dua-"_qs);

        window.tree().selectAll();
        QTest::keyClick(&window, Qt::Key_H, Qt::ControlModifier); // hides where any is shown
        QCOMPARE(window.layers(), u"Ada- Bea- Cem- Dua-"_qs);
    }

    void aNewNameIsOneStepAndShownEverywhere()
    {
        OpenWindow window;
        window.selectLayer(1);
        QTest::keyClick(&window, Qt::Key_F2);
        auto* editor = window.tree().findChild<QLineEdit*>();
        QVERIFY(editor);
        QTest::keyClicks(editor, u" Eve "_qs);
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(window.layers(), u"Ada Eve Cem Dua-"_qs);
        QCOMPARE(
            window.workspace().windowOf(u"attributes"_qs)->content()->windowTitle(),
            u"Attributes (Eve)"_qs);
        window.undo();
        QCOMPARE(window.layers(), u"Ada Bea Cem Dua-"_qs);
        QVERIFY(!window.editor().canUndo());
    }

    void aLockedLayerIsLeftAlone()
    {
        OpenWindow window;
        window.selectLayer(1);
        const auto* row = window.findChild<AttributeRow*>();
        QVERIFY(row->isEnabled());
        QTest::keyClick(&window, Qt::Key_L, Qt::ControlModifier);
        QVERIFY(!row->isEnabled());
        QTest::keyClick(&window, Qt::Key_F2);
        QVERIFY(!window.tree().findChild<QLineEdit*>());
        window.selectLayer(1);
        QTest::keyClick(&window.tree(), Qt::Key_Down, Qt::AltModifier);
        DocumentEditor& editor = window.editor();
        editor.renameLayer(1, u"x"_qs);
        editor.toggleKey({1, Attribute::Opacity}, 0);
        editor.setEntries({1, Attribute::Opacity}, 0, {{0, 5}});
        QCOMPARE(window.layers(), u"Ada Bea! Cem Dua-"_qs);
    }

    void whatIsBeingTypedGoesToItsLayerBeforeItMoves()
    {
        OpenWindow window;
        window.selectLayer(0);
        auto* field = window.findChild<AttributeRow*>()->field(0);
        field->setFocus(Qt::TabFocusReason);
        field->selectAll();
        QTest::keyClicks(field, u"12"_qs);
        QTest::keyClick(&window, Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(window.layers(), u"Bea Ada Cem Dua-"_qs);
        QCOMPARE(window.document()->main.layers[1].transform.position.value[0], 12.0);
        QCOMPARE(window.document()->main.layers[0].transform.position.value[0], 0.0);
    }
};

const ui::test::Registration<LayerTreeTest> kRegistration;

#include "tst_layertree.moc"
