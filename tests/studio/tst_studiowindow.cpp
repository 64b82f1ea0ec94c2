// SPDX-License-Identifier: Apache-2.0
#include "DocumentPage.h"
#include "DocumentTabs.h"
#include "MissingPanel.h"
#include "controls/PaintCounter.h"
#include "studiotest.h"
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/docking/DockableWindow.h>
#include <MorrantUI/theme/colors.h>

using namespace studio;
using ui::test::pixelAt;

namespace {

/// A red square of 100 pixels that covers the left half of a composition of 200 by 100.
std::shared_ptr<Document> halfRed()
{
    return std::make_shared<Document>(studio::test::documentOf(
        studio::test::layer(R"("ty":1,"sw":100,"sh":100,"sc":"#ff0000")"), R"("w":200,"op":20,)"));
}

struct OpenWindow : StudioWindow
{
    OpenWindow()
    {
        openDocument(halfRed(), u"open"_qs);
        studio::test::showActive(*this);
    }
};

} // namespace

class StudioWindowTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:

    void aBadFileLeavesTheOpenDocument()
    {
        OpenWindow window;
        window.player().seek(7);
        const Document* open = window.document();
        QSignalSpy failed(&window, &StudioWindow::failed);

        for (const QString& name : {u"theme.json"_qs, u"no-such-file.json"_qs}) {
            QVERIFY(!window.openFile(ui::test::assetsPath() + u"/Style/"_qs + name));
            QCOMPARE(window.document(), open);
            QCOMPARE(window.player().frame(), 7);
            QCOMPARE(failed.size(), 1);
            const QString sentence = failed.takeFirst().first().toString();
            QCOMPARE(window.notices().texts().value(0), sentence);
            QVERIFY(!window.notices().isEmpty());
            QVERIFY2(sentence.count(name) == 1, qUtf8Printable(sentence));
            QVERIFY(sentence.endsWith(u'.') && !sentence.contains(u'\n'));
        }
        QVERIFY(window.openFile(samplePaths().first()) && window.notices().isEmpty());
    }

    void everyLocalJsonFileOfADropOpens()
    {
        const QTemporaryDir folder;
        QList<QUrl> files;
        for (const QString& name : {u"a b.JSON"_qs, u"c.json"_qs}) {
            QVERIFY(QFile::copy(samplePaths().first(), folder.filePath(name)));
            files.append(QUrl::fromLocalFile(folder.filePath(name)));
        }
        OpenWindow window;
        const auto drop = [&window](const QList<QUrl>& urls) {
            QMimeData data;
            data.setUrls(urls);
            QVERIFY(ui::test::dropOn(window, data));
            QCoreApplication::processEvents(); // the drop is over
        };
        const QUrl picture(u"file:///a.png"_qs);
        drop({picture});
        QVERIFY(window.notices().texts().value(0).contains(u".json"_qs));
        QCOMPARE(window.document()->width, 200);
        drop(files);
        QVERIFY(window.notices().isEmpty());
        QCOMPARE(window.documents().count(), 3);
        QVERIFY(window.document()->width != 200);
        drop({picture, files.first()}); // which comes to the front
        QCOMPARE(window.documents().activeTab(), 1);
        QCOMPARE(window.notices().texts().size(), 1);
    }

    void missingFeaturesAreListedByLayer()
    {
        const auto layers = byLayer({{u"A"_qs, u"x"_qs}, {u"B"_qs, u"y"_qs}, {u"A"_qs, u"z"_qs}});
        const MissingOfLayer first{u"A"_qs, {u"x"_qs, u"z"_qs}};
        const MissingOfLayer second{u"B"_qs, {u"y"_qs}};
        QCOMPARE(layers, (std::vector{first, second}));
        MissingPanel panel; // says so where there is nothing
        panel.setMissing({});
        QVERIFY(!panel.findChild<QTreeWidget*>()->isVisibleTo(&panel));
        QVERIFY(panel.findChild<QLabel*>()->text().contains(u"drawn"_qs));
    }

    void keysPlayStepZoomAndShowTheGallery()
    {
        OpenWindow window;
        const auto frameAfter = [&window](Qt::Key key) {
            QTest::keyClick(&window, key);
            return window.player().frame();
        };
        QCOMPARE(frameAfter(Qt::Key_End), 19);
        QCOMPARE(frameAfter(Qt::Key_Left), 18);
        QCOMPARE(frameAfter(Qt::Key_Home), 0);
        QCOMPARE(frameAfter(Qt::Key_Right), 1);
        QTest::keyClick(&window, Qt::Key_Space);
        QVERIFY(window.player().isPlaying());
        QTest::keyClick(&window, Qt::Key_G, Qt::ControlModifier);
        QVERIFY(!window.player().isPlaying() && !window.viewport().isVisible());
        const double fittedScale = window.viewport().mapping().scale;
        for (const auto key : {Qt::Key_Space, Qt::Key_Plus}) { // rest in the gallery
            QTest::keyClick(&window, key);
        }
        QCOMPARE(frameAfter(Qt::Key_End), 1);
        QVERIFY(!window.player().isPlaying());
        QCOMPARE(window.viewport().mapping().scale, fittedScale);
        QVERIFY(!window.openFile(u":/samples"_qs)); // a notice is seen here too
        QVERIFY(!window.notices().isEmpty() && !window.viewport().isVisible());
        QTest::keyClick(&window, Qt::Key_G, Qt::ControlModifier);

        const auto scaleAfter = [&window](Qt::Key key) {
            QTest::keyClick(&window, key);
            return window.viewport().mapping().scale;
        };
        QCOMPARE(scaleAfter(Qt::Key_1), 1.0);
        QCOMPARE(scaleAfter(Qt::Key_Plus), 1.25);
        QCOMPARE(scaleAfter(Qt::Key_Minus), 1.0);
        QCOMPARE(scaleAfter(Qt::Key_F), fittedScale);
    }

    void readOutsCanBeTypedInto()
    {
        OpenWindow window;
        const auto enter = [&window](const QString& name, const QString& typed, Qt::Key end) {
            for (auto* field : window.findChildren<NumericField*>()) {
                if (field->accessibleName() == name) {
                    field->setFocus(Qt::TabFocusReason);
                    QTest::keyClicks(field, typed);
                    QTest::keyClick(field, end);
                    return field->text();
                }
            }
            return QString();
        };
        const auto scale = [&window] { return window.viewport().mapping().scale; };
        QCOMPARE(enter(u"Zoom"_qs, u"50*3 %"_qs, Qt::Key_Return), u"150.0"_qs);
        QCOMPARE(scale(), 1.5);
        QCOMPARE(enter(u"Zoom"_qs, u"20"_qs, Qt::Key_Escape), u"150.0"_qs);
        QCOMPARE(enter(u"Zoom"_qs, u"1e9"_qs, Qt::Key_Return), u"6400.0"_qs);
        QCOMPARE(scale(), 64.0);

        window.focusWidget()->clearFocus(); // as Return does in a field that was clicked
        QWidget dialog; // behind which keys for playback are not typed into another one
        studio::test::showActive(dialog);
        dialog.close();
        studio::test::showActive(window);
        QCOMPARE(QApplication::focusWidget(), &window.viewport());
    }

    void shortcutsRestWhileAMenuIsOpenAndWorkInFloatingPanels()
    {
        OpenWindow window;
        QMenu* const file = window.menuBar()->actions().first()->menu();
        file->popup(window.mapToGlobal(QPoint(5, 30)));
        QVERIFY(QTest::qWaitForWindowExposed(file));
        QTest::keyClick(file->windowHandle(), Qt::Key_Right);
        QCOMPARE(window.player().frame(), 0);
        file->close();
        DockableWindow* const panel = window.workspace().windowOf(u"layers"_qs);
        panel->undock(true);
        studio::test::showActive(*panel);
        QTest::keyClick(panel->windowHandle(), Qt::Key_End);
        QCOMPARE(window.player().frame(), 19);
    }

    void theChosenLayerIsOutlinedAndOnlyChangesRepaint()
    {
        Viewport viewport;
        viewport.resize(464, 264);
        viewport.setBackdrop(CanvasBackdrop::Dark);
        viewport.setDocument(halfRed());
        viewport.setLayer(0);
        const QImage image = viewport.grab().toImage();
        const QColor accent = ui::colorQt(u"Accent1"_qs);
        QCOMPARE(pixelAt(image, {32.25, 100.25}), accent); // a line of one device pixel
        QCOMPARE(pixelAt(image, {100.25, 232.25}), accent);
        QCOMPARE(pixelAt(image, {33.25, 100.25}), QColor(Qt::red));
        QCOMPARE(pixelAt(image, {230.5, 230.5}), QColor(Qt::red));
        QCOMPARE(pixelAt(image, {234.5, 100.5}), QColor(Qt::black));
        viewport.setLayer(-1);

        studio::test::showActive(viewport);
        ui::test::PaintCounter paints(&viewport);
        paints.take();
        const std::pair<std::function<void()>, int> changes[] = {
            {[&] { viewport.setFrame(5); }, 1},
            {[&] { viewport.setFrame(5); }, 0},
            {[&] { viewport.setLayer(0); }, 1}};
        for (const auto& [change, repaints] : changes) {
            change();
            QCOMPARE(paints.take(), repaints);
        }
    }

    void aClickOnArtworkChoosesItsLayerAndADragDoesNot()
    {
        OpenWindow window;
        ui::test::FakePointer pointer(&window.viewport());
        const auto at = [&window](double x) {
            return window.viewport().mapping().toView(QPointF(x, 50)).toPoint();
        };
        const auto layerAfterClickAt = [&](double x) {
            pointer.click(at(x));
            return window.documents().current().layer;
        };
        QCOMPARE(layerAfterClickAt(50), 0);
        QCOMPARE(layerAfterClickAt(150), -1);
        window.editor().setLocked({0}, true);
        QCOMPARE(layerAfterClickAt(50), -1);
        window.editor().setLocked({0}, false);

        const QPointF before = window.viewport().mapping().origin;
        pointer.press(at(50));
        pointer.moveTo(pointer.position() + QPoint(2, 2)); // an unsteady hand
        QCOMPARE(window.viewport().mapping().origin, before);
        pointer.drop(pointer.position() + QPoint(28, 0));
        QCOMPARE(window.viewport().mapping().origin, before + QPointF(30, 2));
        QCOMPARE(window.documents().current().layer, -1);

        const QPoint place = window.viewport().mapTo(&window, at(50));
        const auto opensAMenu = [&] {
            QContextMenuEvent asked(QContextMenuEvent::Mouse, at(50), window.mapToGlobal(place));
            QCoreApplication::sendEvent(&window.viewport(), &asked);
            QWidget* const menu = QApplication::activePopupWidget();
            return menu && menu->close();
        };
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, place);
        QVERIFY(!opensAMenu());
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, place);
        QVERIFY(opensAMenu());
    }
};

const ui::test::Registration<StudioWindowTest> kRegistration;

#include "tst_studiowindow.moc"
