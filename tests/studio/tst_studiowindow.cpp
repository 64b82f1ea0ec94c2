#include "FrameSlider.h"
#include "MissingPanel.h"
#include "NoticeBar.h"
#include "Player.h"
#include "StudioWindow.h"
#include "Viewport.h"
#include "lottie/Document.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/paths.h"
#include "support/pixels.h"
#include "support/themes.h"
#include <MorrantUI/theme/VisualDesignDark.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/eventfilters.h>

#include <QMimeData>
#include <QTemporaryDir>
#include <QWheelEvent>

using namespace studio;
using ui::test::closeTo;
using ui::test::pixelAt;

class StudioWindowTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everySampleOpensAndIsDrawnWhole();
    void aBadFileLeavesTheOpenDocument_data();
    void aBadFileLeavesTheOpenDocument();
    void theNextGoodFileTakesTheNoticeAway();
    void onlyOneLocalJsonFileIsDropped_data();
    void onlyOneLocalJsonFileIsDropped();
    void aDropOpensOrSaysWhyNot();
    void missingFeaturesAreListedByLayer();
    void keysPlayStepAndZoom();
    void aPressOnTheSliderSeeksAndPauses();
    void onlyANewFrameRepaintsTheViewport();
    void theCompositionCoversItsRectangleOnly();
    void zoomingKeepsThePointBelowThePointer_data();
    void zoomingKeepsThePointBelowThePointer();
    void aFittedCompositionStaysFittedUntilItIsMoved();
    void theGalleryPausesAndComesBack();
};

namespace {

const QColor kRed(200, 30, 40);

/// A red square of 100 pixels that covers the left half of a composition of 200 by 100.
std::shared_ptr<Document> halfRed()
{
    auto document = std::make_shared<Document>();
    document->frameRate = 10;
    document->outPoint = 20;
    document->width = 200;
    document->height = 100;
    Layer solid;
    solid.kind = LayerKind::Solid;
    solid.outPoint = 20;
    solid.width = 100;
    solid.height = 100;
    solid.color = kRed.rgba();
    solid.transform.scale.value = {100, 100, 100, 0};
    solid.transform.opacity.value = {100, 0, 0, 0};
    document->main.layers.push_back(solid);
    return document;
}

QString written(const QTemporaryDir& folder, const QByteArray& text)
{
    const QString path = folder.filePath(u"file.json"_qs);
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() ? path : QString();
}

void show(QWidget& widget)
{
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    widget.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&widget));
}

void drop(StudioWindow& window, const QMimeData& data)
{
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &event);
}

} // namespace

void StudioWindowTest::initTestCase()
{
    auto& theme = ui::test::makeTheme<VisualDesignDark>(ui::test::assetsPath());
    theme.applyAppStyle();
}

void StudioWindowTest::everySampleOpensAndIsDrawnWhole()
{
    StudioWindow window;
    QVERIFY(!samplePaths().isEmpty());
    for (const QString& path : samplePaths()) {
        QVERIFY2(window.openFile(path), qUtf8Printable(window.notice().sentence()));
        QVERIFY2(window.document()->missing.empty(), qUtf8Printable(path));
        QVERIFY(window.player().range().count() > 1);
    }
}

void StudioWindowTest::aBadFileLeavesTheOpenDocument_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("truncated") << QByteArray(R"({"w":10,"h":10,"layers":[)");
    QTest::newRow("another kind of file") << QByteArray(R"(["no animation"])");
    QTest::newRow("no rate") << QByteArray(R"({"w":9,"h":9,"fr":0,"ip":0,"op":9,"layers":[]})");
}

void StudioWindowTest::aBadFileLeavesTheOpenDocument()
{
    QFETCH(QByteArray, text);
    const QTemporaryDir folder;
    StudioWindow window;
    window.setDocument(halfRed(), u"open"_qs);
    window.player().seek(7);
    const Document* open = window.document();
    QSignalSpy failed(&window, &StudioWindow::failed);

    QVERIFY(!window.openFile(written(folder, text)));
    QCOMPARE(window.document(), open);
    QCOMPARE(window.player().frame(), 7);
    QCOMPARE(failed.size(), 1);
    const QString sentence = failed.first().first().toString();
    QCOMPARE(window.notice().sentence(), sentence);
    QVERIFY(!window.notice().isHidden());
    QVERIFY2(sentence.contains(u"file.json"_qs), qUtf8Printable(sentence));
    QVERIFY(sentence.endsWith(u'.') && !sentence.contains(u'\n'));
}

void StudioWindowTest::theNextGoodFileTakesTheNoticeAway()
{
    const QTemporaryDir folder;
    StudioWindow window;
    QVERIFY(!window.openFile(folder.filePath(u"no-such-file.json"_qs)));
    QVERIFY(!window.document());
    QVERIFY(window.notice().sentence().contains(u"no-such-file.json"_qs));
    QVERIFY(window.openFile(samplePaths().first()));
    QVERIFY(window.notice().isHidden());
}

void StudioWindowTest::onlyOneLocalJsonFileIsDropped_data()
{
    QTest::addColumn<QStringList>("urls");
    QTest::addColumn<QString>("path");
    const QString file = QUrl::fromLocalFile(u"/a/b c.JSON"_qs).toString();
    QTest::newRow("one") << QStringList{file} << u"/a/b c.JSON"_qs;
    QTest::newRow("two") << QStringList{file, file} << QString();
    QTest::newRow("another kind") << QStringList{u"file:///a/b.png"_qs} << QString();
    QTest::newRow("not local") << QStringList{u"https://example.org/b.json"_qs} << QString();
    QTest::newRow("none") << QStringList{} << QString();
}

void StudioWindowTest::onlyOneLocalJsonFileIsDropped()
{
    QFETCH(QStringList, urls);
    QMimeData data;
    data.setUrls(QUrl::fromStringList(urls));
    QTEST(droppedFile(data), "path");
}

void StudioWindowTest::aDropOpensOrSaysWhyNot()
{
    const QTemporaryDir folder;
    StudioWindow window;
    window.setDocument(halfRed(), u"open"_qs);
    QMimeData picture;
    picture.setUrls({QUrl::fromLocalFile(folder.filePath(u"a.png"_qs))});
    drop(window, picture);
    QVERIFY(window.notice().sentence().contains(u".json"_qs));
    QCOMPARE(window.document()->width, 200);

    QFile sample(samplePaths().first());
    QVERIFY(sample.open(QIODevice::ReadOnly));
    QMimeData animation;
    animation.setUrls({QUrl::fromLocalFile(written(folder, sample.readAll()))});
    drop(window, animation);
    QVERIFY(window.notice().isHidden());
    QVERIFY(window.document()->width != 200);
}

void StudioWindowTest::missingFeaturesAreListedByLayer()
{
    const std::vector<MissingFeature> missing = {
        {u"Title"_qs, u"text"_qs}, {u"Glow"_qs, u"effect"_qs}, {u"Title"_qs, u"mask"_qs}};
    const std::vector<MissingOfLayer> expected = {
        {u"Title"_qs, {u"text"_qs, u"mask"_qs}}, {u"Glow"_qs, {u"effect"_qs}}};
    QCOMPARE(byLayer(missing), expected);

    StudioWindow window;
    auto* panel = window.findChild<MissingPanel*>();
    auto document = halfRed();
    document->missing = missing;
    window.setDocument(document, u"open"_qs);
    QVERIFY(!panel->isHidden());
    window.setDocument(halfRed(), u"open"_qs);
    QVERIFY(panel->isHidden());
}

void StudioWindowTest::keysPlayStepAndZoom()
{
    StudioWindow window;
    window.setDocument(halfRed(), u"open"_qs);
    show(window);
    Player& player = window.player();

    QTest::keyClick(&window, Qt::Key_Right);
    QTest::keyClick(&window, Qt::Key_Right);
    QCOMPARE(player.frame(), 2);
    QTest::keyClick(&window, Qt::Key_Left);
    QCOMPARE(player.frame(), 1);
    QTest::keyClick(&window, Qt::Key_End);
    QCOMPARE(player.frame(), 19);
    QTest::keyClick(&window, Qt::Key_Home);
    QCOMPARE(player.frame(), 0);
    QTest::keyClick(&window, Qt::Key_Space);
    QVERIFY(player.isPlaying());
    QTest::keyClick(&window, Qt::Key_Space);
    QVERIFY(!player.isPlaying());

    const double fittedScale = window.viewport().mapping().scale;
    QTest::keyClick(&window, Qt::Key_1);
    QCOMPARE(window.viewport().mapping().scale, 1.0);
    QTest::keyClick(&window, Qt::Key_Plus);
    QCOMPARE(window.viewport().mapping().scale, 1.25);
    QTest::keyClick(&window, Qt::Key_Minus);
    QCOMPARE(window.viewport().mapping().scale, 1.0);
    QTest::keyClick(&window, Qt::Key_F);
    QCOMPARE(window.viewport().mapping().scale, fittedScale);

    window.openFile(u"no-such-file.json"_qs);
    QTest::keyClick(&window, Qt::Key_Escape);
    QVERIFY(window.notice().isHidden());
}

void StudioWindowTest::aPressOnTheSliderSeeksAndPauses()
{
    StudioWindow window;
    window.setDocument(halfRed(), u"open"_qs);
    show(window);
    auto* slider = window.findChild<FrameSlider*>();
    window.player().play();
    ui::test::FakePointer pointer(slider);
    pointer.moveTo({slider->width() / 2, slider->height() / 2});
    pointer.press();
    QVERIFY(!window.player().isPlaying());
    QVERIFY(qAbs(window.player().frame() - 10) <= 1);
    pointer.dragTo({slider->width() + 50, slider->height() / 2}, 100);
    QCOMPARE(window.player().frame(), 19);
    pointer.release();
    pointer.moveTo({slider->width() / 2, slider->height() / 2});
    QCOMPARE(window.player().frame(), 19);
}

void StudioWindowTest::onlyANewFrameRepaintsTheViewport()
{
    StudioWindow window;
    window.setDocument(halfRed(), u"open"_qs);
    show(window);
    QCoreApplication::processEvents();
    int paints = 0;
    const auto count = [&paints](QObject*, QEvent* event) {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    };
    QObject owner;
    ui::installEventFilter(&window.viewport(), count, &owner);

    window.player().seek(5);
    QTRY_COMPARE(paints, 1);
    window.player().seek(5);
    window.viewport().setFrame(5);
    window.viewport().setBackdrop(Backdrop::Chequer);
    QCoreApplication::processEvents();
    QCOMPARE(paints, 1);
    window.viewport().setBackdrop(Backdrop::Light);
    QTRY_COMPARE(paints, 2);
}

void StudioWindowTest::theCompositionCoversItsRectangleOnly()
{
    Viewport viewport;
    viewport.resize(464, 264);
    viewport.setBackdrop(Backdrop::Dark);
    viewport.setDocument(halfRed());
    QCOMPARE(viewport.mapping().mapped({200, 100}), QRectF(32, 32, 400, 200));

    const QImage image = viewport.grab().toImage();
    const QColor outside = ui::colorQt(u"AppBackground"_qs);
    QVERIFY(closeTo(pixelAt(image, {33.5, 33.5}), kRed));
    QVERIFY(closeTo(pixelAt(image, {230.5, 230.5}), kRed));
    QVERIFY(closeTo(pixelAt(image, {234.5, 100.5}), QColor(Qt::black)));
    QVERIFY(closeTo(pixelAt(image, {430.5, 33.5}), QColor(Qt::black)));
    QVERIFY(closeTo(pixelAt(image, {30.5, 100.5}), outside));
    QVERIFY(closeTo(pixelAt(image, {434.5, 100.5}), outside));
    QVERIFY(closeTo(pixelAt(image, {1.5, 1.5}), outside));
}

void StudioWindowTest::zoomingKeepsThePointBelowThePointer_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("limited");
    QTest::newRow("in") << 3.0 << 3.0;
    QTest::newRow("out") << 0.5 << 0.5;
    QTest::newRow("too far in") << 1e9 << kLargestScale;
    QTest::newRow("too far out") << 0.0 << kSmallestScale;
}

void StudioWindowTest::zoomingKeepsThePointBelowThePointer()
{
    QFETCH(double, scale);
    const ViewMapping before{2.0, {30, -40}};
    const QPointF anchor(123, 45);
    const ViewMapping after = zoomedAt(before, anchor, scale);
    QTEST(after.scale, "limited");
    const QPointF point = (anchor - before.origin) / before.scale;
    QVERIFY(QPointF(point * after.scale + after.origin - anchor).manhattanLength() < 1e-9);
}

void StudioWindowTest::aFittedCompositionStaysFittedUntilItIsMoved()
{
    Viewport viewport;
    viewport.resize(464, 264);
    viewport.setDocument(halfRed());
    show(viewport);
    viewport.resize(664, 464);
    QTRY_COMPARE(viewport.mapping().scale, 3.0);

    ui::test::FakePointer pointer(&viewport);
    const QPointF before = viewport.mapping().origin;
    pointer.moveTo({100, 100});
    pointer.press(Qt::MiddleButton);
    pointer.dragTo({130, 90});
    pointer.release(Qt::MiddleButton);
    pointer.moveTo({300, 300});
    QCOMPARE(viewport.mapping().origin, before + QPointF(30, -10));
    QCOMPARE(viewport.cursor().shape(), Qt::OpenHandCursor);

    viewport.resize(464, 264);
    QTRY_COMPARE(viewport.mapping().origin, before + QPointF(30 - 100, -10 - 100));
    QCOMPARE(viewport.mapping().scale, 3.0);
}

void StudioWindowTest::theGalleryPausesAndComesBack()
{
    StudioWindow window;
    window.setDocument(halfRed(), u"open"_qs);
    show(window);
    window.player().play();
    QTest::keyClick(&window, Qt::Key_G, Qt::ControlModifier);
    QVERIFY(!window.player().isPlaying());
    QVERIFY(!window.viewport().isVisible());
    QTest::keyClick(&window, Qt::Key_G, Qt::ControlModifier);
    QVERIFY(window.viewport().isVisible());
}

namespace {
const ui::test::Registration<StudioWindowTest> kRegistration;
} // namespace

#include "tst_studiowindow.moc"
