// SPDX-License-Identifier: Apache-2.0
#include "AttributePanel.h"
#include "LayerTree.h"
#include "controls/PaintCounter.h"
#include "lottie/evaluate.h"
#include "studiotest.h"
#include "timeline/DopeSheet.h"
#include <MorrantUI/MorrantUI.h>

using namespace studio;
using ui::test::FakePointer;
using Key = KeyframeButton::State;

namespace {

/// A red and a green square of 20 pixels on 200 by 100; the red one's scale grows from 100 to 200
/// over ten frames.
std::shared_ptr<Document> squares()
{
    const auto square = [](const QByteArray& color, const QByteArray& transform) {
        return studio::test::layer(
            R"("ty":1,"sw":20,"sh":20,"sc":")" + color + R"(","ks":{)" + transform + "}");
    };
    return std::make_shared<Document>(studio::test::documentOf(
        square(
            "#ff0000",
            R"("p":{"k":[30,40]},"s":{"a":1,"k":[{"t":0,"s":[100,100]},{"t":10,"s":[200,200]}]})")
            + "," + square("#00ff00", R"("p":{"s":true,"x":{"k":100},"y":{"k":50}})"),
        R"("w":200,"op":20,)"));
}

struct OpenWindow : StudioWindow
{
    OpenWindow()
    {
        openDocument(squares(), u"squares"_qs);
        studio::test::showActive(*this);
        viewport().setBackdrop(CanvasBackdrop::Dark);
        select(0);
    }

    void select(int layer)
    {
        selectLayer(layer);
        QCoreApplication::processEvents();
    }

    AttributeRow& row(const char* name)
    {
        for (auto* row : findChildren<AttributeRow*>()) {
            if (row->name() == QLatin1String(name) && row->isVisible()) {
                return *row;
            }
        }
        qFatal("There is no row %s.", name);
    }

    NumericField* field(const char* name, int index = 0) { return row(name).field(index); }
    Key keyState(const char* name) { return row(name).keyframeButton()->state(); }

    /// Of the red square.
    const NumberProperty& property(Attribute attribute)
    {
        return *editor().property({0, attribute});
    }
    Numbers value(Attribute attribute) { return valueAt(property(attribute), player().frame()); }
    double x() { return value(Attribute::Position)[0]; }
    double y() { return value(Attribute::Position)[1]; }

    /// What is drawn at a point of the composition.
    QColor colorAt(QPointF point)
    {
        QCoreApplication::processEvents();
        const QImage picture = viewport().grab().toImage();
        return ui::test::pixelAt(picture, viewport().mapping().toView(point));
    }

    void press(QKeySequence::StandardKey keys, int times = 1)
    {
        for (int i = 0; i < times; ++i) {
            QTest::keySequence(this, keys);
        }
    }
};

/// A drag to the right in a field, as far as the release.
struct Scrub
{
    Scrub(NumericField* field, int distance)
        : pointer(field)
    {
        const QPoint start = field->rect().center();
        pointer.press(start);
        pointer.dragTo(start + QPoint(distance, 0), 1);
    }

    FakePointer pointer;
};

void scrub(NumericField* field, int distance)
{
    Scrub(field, distance).pointer.release();
}

void type(NumericField* field, const char* text)
{
    ui::test::click(field);
    QVERIFY(field->hasFocus());
    field->selectAll();
    QTest::keyClicks(field, QString::fromLatin1(text));
}

} // namespace

class AttributePanelTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:
    void aScrubMovesThePictureAndOneUndoRestoresIt()
    {
        OpenWindow window;
        QCOMPARE(window.colorAt({31, 41}), QColor(Qt::red));
        {
            Scrub drag(window.field("Position"), 60);
            QVERIFY2(window.x() > 55, "the document follows during the drag");
            QCOMPARE(window.colorAt({31, 41}), QColor(Qt::black));
            drag.pointer.release();
        }
        const double moved = window.x();
        QCOMPARE(window.colorAt({moved + 1, 41}), QColor(Qt::red));
        scrub(window.field("Position", 1), 20);
        const double lowered = window.y();
        QCoreApplication::processEvents();
        ui::test::PaintCounter paints(&window.viewport());
        window.press(QKeySequence::Undo);
        QCOMPARE(window.value(Attribute::Position), (Numbers{moved, 40, 0, 0}));
        QCOMPARE(paints.take(), 1);
        window.press(QKeySequence::Undo);
        QCOMPARE(window.colorAt({31, 41}), QColor(Qt::red));
        QCOMPARE(window.row("Position").value(0), 30.0);
        QVERIFY(!window.editor().canUndo());
        window.press(QKeySequence::Redo, 2);
        QCOMPARE(window.value(Attribute::Position), (Numbers{moved, lowered, 0, 0}));
    }

    void everyDoorEndsTheGesture()
    {
        const std::function<void(OpenWindow&, FakePointer&)> doors[] = {
            [](OpenWindow&, FakePointer& pointer) { pointer.release(); },
            [](OpenWindow& window, FakePointer&) { window.selectLayer(1); },
            [](OpenWindow& window, FakePointer&) { window.selectLayer(-1); },
            [](OpenWindow& window, FakePointer&) { window.player().seek(7); },
            [](OpenWindow& window, FakePointer&) { window.setGalleryShown(true); },
            [](OpenWindow& window, FakePointer&) { window.hide(); },
            [](OpenWindow& window, FakePointer&) {
                window.press(QKeySequence::Undo);
                QCOMPARE(window.x(), 30.0);
                window.press(QKeySequence::Redo);
            },
            [](OpenWindow& window, FakePointer&) { // another change
                window.row("Opacity").keyframeButton()->click();
                window.editor().undo();
            }};
        for (const auto& leave : doors) {
            OpenWindow window;
            Scrub drag(window.field("Position"), 25);
            const double dragged = window.x();
            QVERIFY(dragged > 30);
            leave(window, drag.pointer);
            QCOMPARE(window.x(), dragged);
            drag.pointer.release();
            drag.pointer.moveTo({400, 0});
            QCOMPARE(window.x(), dragged);
            window.editor().undo();
            QCOMPARE(window.x(), 30.0);
            QVERIFY(!window.editor().canUndo());
        }
        OpenWindow window; // a document that is opened meanwhile is not touched
        Scrub late(window.field("Position"), 25);
        window.openDocument(squares(), u"other"_qs);
        late.pointer.moveTo({400, 0});
        late.pointer.release();
        QCOMPARE(window.x(), 30.0);
        QVERIFY(!window.editor().canUndo() && !window.isWindowModified());
    }

    void valuesAndKeysFollowTheFrameAndChangesBecomeKeys()
    {
        OpenWindow window;
        AttributeRow& scale = window.row("Scale");
        QSignalSpy still(window.field("Position"), &QLineEdit::textChanged);
        QSignalSpy moving(scale.field(0), &QLineEdit::textChanged);
        const std::tuple<int, double, Key> expected[] = {
            {5, 150, Key::Animated}, {10, 200, Key::KeyAtFrame}, {15, 200, Key::Animated}};
        for (const auto& [frame, value, state] : expected) {
            window.player().seek(frame);
            QCOMPARE(scale.value(0), value);
            QCOMPARE(scale.value(1), value);
            QCOMPARE(window.keyState("Scale"), state);
            QCOMPARE(window.keyState("Position"), Key::None);
        }
        QCOMPARE(moving.size(), 2);
        QCOMPARE(still.size(), 0);

        const NumberProperty before = window.property(Attribute::Scale);
        window.player().play();
        window.player().seek(4);
        scrub(scale.field(0), 30);
        QVERIFY(!window.player().isPlaying());
        const auto& keys = window.property(Attribute::Scale).keys;
        QCOMPARE(keys.size(), std::size_t(3));
        QCOMPARE(keys[1].time, 4.0);
        QCOMPARE(keys[1].value, (Numbers{scale.value(0), 140, keys[1].value[2], 0}));
        QCOMPARE(window.keyState("Scale"), Key::KeyAtFrame);
        window.press(QKeySequence::Undo);
        QCOMPARE(window.property(Attribute::Scale), before);
        QCOMPARE(scale.value(0), 140.0);

        window.select(1);
        KeyframeButton* button = window.row("Position Y").keyframeButton();
        ui::test::click(button);
        QCOMPARE(button->state(), Key::KeyAtFrame);
        window.player().seek(8);
        ui::test::click(button);
        ui::test::click(button);
        QCOMPARE(button->state(), Key::Animated);
        window.press(QKeySequence::Undo, 3);
        QCOMPARE(button->state(), Key::None);
    }

    void typedTextIsOneStepAndEscapeLeavesNone()
    {
        OpenWindow window;
        AttributeRow& row = window.row("Position");
        type(row.field(0), "90+2");
        QTest::keyClick(row.field(0), Qt::Key_Return);
        QCOMPARE(window.x(), 92.0);
        window.press(QKeySequence::Undo);
        QCOMPARE(window.x(), 30.0);
        QVERIFY(!window.editor().canUndo());

        // What has been typed is what the user sees, and what undo takes back.
        scrub(row.field(1), 30);
        const double y = row.value(1);
        type(row.field(1), "55");
        window.findChild<QAction*>(u"undo"_qs)->trigger();
        QCOMPARE(window.y(), y);
        QCOMPARE(row.value(1), y);
        window.press(QKeySequence::Undo);
        QCOMPARE(window.y(), 40.0);

        // What is typed when the frame changes belongs to the frame at which it was typed.
        type(window.field("Scale", 1), "50");
        window.player().seek(10);
        QCOMPARE(window.property(Attribute::Scale).keys[0].value[1], 50.0);
        QCOMPARE(window.value(Attribute::Scale)[1], 200.0);
        window.press(QKeySequence::Undo);

        window.player().seek(3);
        const NumberProperty before = window.property(Attribute::Scale);
        NumericField* field = window.field("Scale");
        type(field, "77");
        QTest::keyClick(field, Qt::Key_Up);
        QCOMPARE(window.value(Attribute::Scale)[0], 78.0);
        QTest::keyClick(field, Qt::Key_Escape);
        QCOMPARE(window.property(Attribute::Scale), before);
        QVERIFY(!window.editor().canUndo());
    }

    void stepsByKeyAreOneStepHoweverTheyEnd()
    {
        OpenWindow window;
        const std::function<void()> ends[] = {
            [&] { QTest::keyClick(window.field("Rotation"), Qt::Key_Return); },
            [&] { window.viewport().setFocus(); },
            [&] { window.player().step(1); },
            [&] { window.selectLayer(1); },
            [] {}, // undo itself
        };
        for (const auto& end : ends) {
            NumericField* field = window.field("Rotation");
            type(field, "");
            for (int i = 0; i < 3; ++i) {
                QTest::keyClick(field, Qt::Key_Up);
            }
            QCOMPARE(window.value(Attribute::Rotation)[0], 3.0);
            end();
            window.findChild<QAction*>(u"undo"_qs)->trigger();
            QCOMPARE(window.value(Attribute::Rotation)[0], 0.0);
            QVERIFY(!window.editor().canUndo());
            window.select(0);
            QCOMPARE(window.row("Rotation").value(0), 0.0);
        }
    }

    void whatARowChangesTogetherIsOneStepAndTheTitleFollows()
    {
        OpenWindow window;
        window.row("Scale").setLinked(true);
        scrub(window.field("Scale"), 20);
        const Numbers scale = window.value(Attribute::Scale);
        QVERIFY(scale[0] > 100 && scale[1] == scale[0]);
        window.row("Position").reset();
        QCOMPARE(window.value(Attribute::Position), Numbers());
        QGuiApplication::clipboard()->setText(u"#2080ff"_qs);
        window.row("Solid").swatch()->paste();
        QCOMPARE(window.colorAt({1, 1}), QColor(0x20, 0x80, 0xff));
        window.select(-1);
        QVERIFY(window.findChildren<AttributeRow*>().isEmpty() && window.isWindowModified());
        window.press(QKeySequence::Undo, 3);
        QVERIFY(!window.isWindowModified() && !window.editor().canUndo());
        QCOMPARE(window.colorAt({31, 41}), QColor(Qt::red));
        QCOMPARE(window.row("Scale").value(1), 100.0); // its layer is selected
        const auto* redo = window.findChild<QAction*>(u"redo"_qs);
        QCOMPARE(redo->text(), u"&Redo Change Scale"_qs);
        window.openDocument(squares(), u"a[*]b"_qs);
        QCOMPARE(window.windowTitle(), u"a[*][*]b (200 × 100)[*]"_qs);
        QVERIFY(!redo->isEnabled());
    }

    void keysOnAControlAreNotTheTransportsAndTheListSelects()
    {
        OpenWindow window;
        KeyframeButton* button = window.row("Opacity").keyframeButton();
        NumericField* field = window.field("Opacity");
        field->setFocus(Qt::TabFocusReason);
        QTest::keyClick(field, Qt::Key_Right); // moves the caret
        QTest::keyClick(field, Qt::Key_Right, Qt::AltModifier);
        QTest::keyClick(button, Qt::Key_Space);
        QVERIFY(!window.player().isPlaying() && window.player().frame() == 0);
        QCOMPARE(button->state(), Key::KeyAtFrame);

        window.viewport().setFocus();
        ui::test::click(button); // by mouse: the transport's keys stay
        scrub(field, 20);
        ui::test::click(window.row("Solid").swatch());
        auto* dialog = window.row("Solid").swatch()->dialog();
        dialog->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), dialog);
        QTest::keyClick(dialog->windowHandle(), Qt::Key_Space);
        QVERIFY(!window.player().isPlaying());
        QTest::keyClick(dialog->windowHandle(), Qt::Key_Escape);
        QVERIFY(!window.row("Solid").swatch()->dialog());
        window.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &window);
        QTest::keyClick(window.windowHandle(), Qt::Key_Space);
        QVERIFY(window.player().isPlaying());
        window.player().pause();
        auto* list = window.findChild<LayerTree*>();
        QTest::keyClick(list, Qt::Key_Down);
        QCOMPARE(window.row("Position X").value(0), 100.0);
        QTest::keyClick(list, Qt::Key_Up);
        QCOMPARE(window.row("Position").value(0), 30.0);
    }

    void tabGoesThroughTheWindowFromPanelToPanel()
    {
        OpenWindow window;
        window.dopeSheet().selectKeys({{{0, Attribute::Scale}, 0}}); // of another layer
        window.select(1);
        window.viewport().setFocus();
        QWidgetList stops;
        do {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            stops.append(QApplication::focusWidget());
        } while (stops.last() != &window.viewport() && stops.size() < 99);
        QCOMPARE(stops.last(), &window.viewport()); // nothing keeps it
        const auto place = [&stops](QWidget* stop) { return stops.indexOf(stop); };
        QCOMPARE(place(window.field("Position Y")), place(window.field("Position X")) + 1);
        QVERIFY(place(&window.dopeSheet().view()) > place(window.field("Anchor", 1)));
        QVERIFY(stops.contains(&window.dopeSheet().ruler()));
        QVERIFY(window.row("Position X").isVisible()); // the layer is still the same
    }

    void longListsOfColorsAreCut()
    {
        OpenWindow window;
        const QByteArrayList fills(45, R"({"ty":"fl","c":{"k":[0,0,1]}})");
        window.openDocument(
            std::make_shared<Document>(
                studio::test::documentOf(studio::test::shapeLayer(fills.join(',')))),
            u"many"_qs);
        window.selectLayer(0);
        QCOMPARE(window.findChildren<ColorSwatch*>().size(), 40);
        const auto labels = window.findChildren<QLabel*>();
        QVERIFY(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
            return label->text() == u"and 5 more"_qs;
        }));
    }

    void aWindowMayDieInTheMiddleOfAGesture()
    {
        auto window = std::make_unique<OpenWindow>();
        Scrub drag(window->field("Position"), 25);
        std::shared_ptr<const Document> document = window->editor().document();
        window.reset();
        drag.pointer.release();
        QVERIFY2(document->main.layers[0].transform.position.value[0] > 30, "what was done stays");

        window = std::make_unique<OpenWindow>();
        type(window->field("Position"), "12");
        document = window->editor().document();
        window.reset();
        QCOMPARE(document->main.layers[0].transform.position.value[0], 12.0);
    }
};

const ui::test::Registration<AttributePanelTest> kRegistration;

#include "tst_attributepanel.moc"
