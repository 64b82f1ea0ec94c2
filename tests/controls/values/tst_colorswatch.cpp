#include "controls/SignalRecord.h"
#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/pixels.h"
#include <MorrantUI/controls/values/ColorSwatch.h>
#include <MorrantUI/controls/values/colortext.h>

#include <QtWidgets>

#include <functional>

using ui::test::renderWidget;

namespace {

/// A swatch that counts the drags begun from it instead of holding up the test.
class CountingSwatch : public ColorSwatch
{
public:
    using ColorSwatch::ColorSwatch;
    int drags = 0;
    std::function<void()> whileCarried = [] {};

    void carryForReal() { ColorSwatch::startDrag(); }

protected:
    void startDrag() override
    {
        ++drags;
        const auto act = whileCarried; // may delete this
        act();
    }
};

/// A swatch in an active window.
struct Panel
{
    Panel()
    {
        swatch->setGeometry(10, 10, 60, 24);
        window.resize(120, 60);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    /// Opens the dialog and chooses a colour in it.
    void choose(const QColor& color)
    {
        swatch->click();
        swatch->dialog()->setCurrentColor(color);
    }
    void drag(int from, int to)
    {
        pointer.moveTo({from, 10});
        pointer.press();
        pointer.dragTo({to, 10});
    }

    QWidget window;
    QPointer<CountingSwatch> swatch = new CountingSwatch(Qt::red, &window);
    ui::test::SignalRecord record{swatch.data()};
    ui::test::FakePointer pointer{swatch};
};

/// Sends what a drag of `data` over the middle of a swatch and its drop send.
/// @return whether the drop was taken
bool drop(ColorSwatch& swatch, const QMimeData& data)
{
    const QPoint middle = swatch.rect().center();
    QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(&swatch, &enter);
    if (!enter.isAccepted()) {
        return false;
    }
    QDropEvent event(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(&swatch, &event);
    return event.isAccepted();
}

} // namespace

class ColorSwatchTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void choosingIsLiveAcceptCommitsAndCancelRestores();
    void everyDoorClosesTheDialog();
    void theHostSetsAColorWhileOneIsChosen();
    void keysOpenCopyAndPaste();
    void aDragCarriesTheColorAway();
    void aSwatchMayGoWhileItsColorIsCarried();
    void theDragOutlivesTheSwatch();
    void aDropIsTakenOnlyWithAColor();
    void withoutAlphaEverythingIsOpaque();
    void translucencyShowsTheChequer();
    void assistiveToolsReadAndSetTheColor();
};

void ColorSwatchTest::choosingIsLiveAcceptCommitsAndCancelRestores()
{
    Panel panel;
    panel.choose(Qt::green);
    QCOMPARE(panel.swatch->value(), QColor(Qt::green));
    QVERIFY(!panel.swatch->dialog()->isModal());
    QCOMPARE(panel.record.take(), QByteArray("s"));
    QPointer<QColorDialog> dialog = panel.swatch->dialog();
    panel.swatch->click(); // brings it to the front
    QCOMPARE(panel.swatch->dialog(), dialog.data());
    dialog->accept();
    QCOMPARE(panel.record.take(), QByteArray("C"));
    QCOMPARE(panel.swatch->dialog(), nullptr);
    QTRY_VERIFY(dialog.isNull());

    panel.choose(Qt::blue);
    panel.swatch->dialog()->setCurrentColor(Qt::green);
    panel.swatch->dialog()->accept(); // what it was
    QCOMPARE(panel.record.take(), QByteArray("s"));
    panel.choose(QColor(1, 2, 3, 4));
    QCOMPARE(panel.swatch->value(), QColor(1, 2, 3, 4));
    panel.swatch->dialog()->reject();
    QCOMPARE(panel.swatch->value(), QColor(Qt::green));
    QCOMPARE(panel.record.take(), QByteArray("s"));
    panel.swatch->click();
    panel.swatch->dialog()->close();
    QCOMPARE(panel.record.take(), QByteArray());
}

void ColorSwatchTest::everyDoorClosesTheDialog()
{
    for (const bool hides : {true, false}) {
        Panel panel;
        panel.choose(Qt::green);
        hides ? panel.window.hide() : panel.window.setEnabled(false);
        QCOMPARE(panel.swatch->dialog(), nullptr);
        QCOMPARE(panel.swatch->value(), QColor(Qt::green));
        QCOMPARE(panel.record.take(), QByteArray("sC"));
        panel.swatch->openDialog(); // not from there
        QCOMPARE(panel.swatch->dialog(), nullptr);
    }
    for (const bool inASlot : {false, true}) {
        Panel panel;
        panel.choose(Qt::green);
        const QPointer<QColorDialog> dialog = panel.swatch->dialog();
        if (inASlot) {
            connect(panel.swatch, &ColorSwatch::valueChanged, this, [&] { delete panel.swatch; });
            dialog->accept();
        } else {
            delete panel.swatch;
        }
        QVERIFY(!panel.swatch);
        QTRY_VERIFY(!dialog);
    }
}

void ColorSwatchTest::theHostSetsAColorWhileOneIsChosen()
{
    Panel panel;
    connect(panel.swatch, &ColorSwatch::valueChanged, &panel.window, [&] {
        panel.swatch->setValue(panel.swatch->value()); // hands back what it was told
    });
    panel.choose(Qt::green);
    panel.swatch->dialog()->reject();
    QCOMPARE(panel.swatch->value(), QColor(Qt::red));
    panel.choose(Qt::green);
    panel.record.take();
    panel.swatch->setValue(Qt::blue);
    QCOMPARE(panel.swatch->dialog()->currentColor(), QColor(Qt::blue));
    QCOMPARE(panel.record.take(), QByteArray());
    panel.swatch->dialog()->setCurrentColor(Qt::green);
    panel.swatch->dialog()->reject();
    QCOMPARE(panel.swatch->value(), QColor(Qt::blue));
    panel.swatch->setValue(QColor());
    QCOMPARE(panel.swatch->value(), QColor(Qt::blue));
}

void ColorSwatchTest::keysOpenCopyAndPaste()
{
    Panel panel;
    panel.swatch->setFocus();
    const auto control = [&](Qt::Key key) {
        QTest::keyClick(panel.swatch, key, Qt::ControlModifier);
    };
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        QTest::keyClick(panel.swatch, key);
        QVERIFY(panel.swatch->dialog());
        panel.swatch->dialog()->reject();
    }
    panel.swatch->setValue(QColor(17, 34, 51, 68));
    control(Qt::Key_C);
    QCOMPARE(QApplication::clipboard()->text(), u"#11223344"_qs);
    panel.swatch->setValue(Qt::red);
    control(Qt::Key_V);
    QCOMPARE(panel.swatch->value().rgba(), 0x44112233u);
    control(Qt::Key_V); // the same again
    QCOMPARE(panel.record.take(), QByteArray("C"));
    QApplication::clipboard()->setText(u"a red car"_qs);
    control(Qt::Key_V);
    QCOMPARE(panel.record.take(), QByteArray());

    QKeyEvent copy(QEvent::ShortcutOverride, Qt::Key_C, Qt::ControlModifier);
    copy.ignore();
    QCoreApplication::sendEvent(panel.swatch, &copy);
    QVERIFY(copy.isAccepted()); // the window's own copy waits
}

void ColorSwatchTest::aDragCarriesTheColorAway()
{
    Panel panel;
    panel.drag(10, 12);
    QCOMPARE(panel.swatch->drags, 0); // still a click
    panel.pointer.dragTo({50, 10});
    panel.pointer.moveTo({30, 10});
    panel.pointer.release();
    QCOMPARE(panel.swatch->drags, 1);
    QCOMPARE(panel.swatch->dialog(), nullptr);
    panel.drag(10, 12);
    panel.pointer.release();
    QVERIFY(panel.swatch->dialog());
}

void ColorSwatchTest::aSwatchMayGoWhileItsColorIsCarried()
{
    for (const bool goes : {false, true}) {
        Panel panel;
        const auto carried = ui::colorMimeData(Qt::blue);
        panel.swatch->whileCarried = [&] {
            QVERIFY(!drop(*panel.swatch, *carried)); // it does not take back its own
            ColorSwatch other;
            QVERIFY(drop(other, *carried));
            if (goes) {
                delete panel.swatch;
            }
        };
        panel.drag(10, 50);
        QCOMPARE(panel.swatch.isNull(), goes);
        QVERIFY(goes || drop(*panel.swatch, *carried));
    }
}

void ColorSwatchTest::theDragOutlivesTheSwatch()
{
    if (QGuiApplication::platformName() == QLatin1String("windows")) {
        return; // whose drags last until a real button comes up
    }
    Panel panel;
    bool isOver = false;
    QTimer::singleShot(0, &panel.window, [&] {
        delete panel.swatch;
        if (!isOver) { // in the drag, which does not come back by itself
            QDrag::cancel();
        }
    });
    panel.swatch->carryForReal();
    isOver = true;
    QVERIFY(panel.swatch.isNull() || !panel.swatch->findChild<QDrag*>());
    QTRY_VERIFY(panel.swatch.isNull());
}

void ColorSwatchTest::aDropIsTakenOnlyWithAColor()
{
    Panel panel;
    const auto data = ui::colorMimeData(QColor(0, 0, 255, 100));
    for (int i = 0; i < 2; ++i) {
        QVERIFY(drop(*panel.swatch, *data));
        QCOMPARE(panel.swatch->value(), QColor(0, 0, 255, 100));
    }
    QCOMPARE(panel.record.take(), QByteArray("C"));
    QMimeData words;
    words.setText(u"nothing of the kind"_qs);
    QVERIFY(!drop(*panel.swatch, words));

    QEvent pointerGone(QEvent::Leave); // a drop leaves the pointer over the swatch
    QCoreApplication::sendEvent(panel.swatch, &pointerGone);
    const QImage rest = renderWidget(*panel.swatch);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(panel.swatch, &enter);
    QVERIFY(renderWidget(*panel.swatch) != rest); // shows that it would take it
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(panel.swatch, &leave);
    QCOMPARE(renderWidget(*panel.swatch), rest);
}

void ColorSwatchTest::withoutAlphaEverythingIsOpaque()
{
    Panel panel;
    panel.swatch->setValue(QColor(10, 20, 30, 40));
    panel.swatch->setAlphaEnabled(false);
    QCOMPARE(panel.swatch->value(), QColor(10, 20, 30));
    drop(*panel.swatch, *ui::colorMimeData(QColor(1, 2, 3, 4)));
    QCOMPARE(panel.swatch->value(), QColor(1, 2, 3));
    panel.swatch->click();
    QVERIFY(!panel.swatch->dialog()->testOption(QColorDialog::ShowAlphaChannel));
    panel.swatch->dialog()->reject();

    panel.swatch->setAlphaEnabled(true);
    panel.swatch->setValue(QColor(5, 6, 7, 8));
    panel.choose(QColor(50, 60, 70, 80));
    panel.swatch->setAlphaEnabled(false); // while one is being chosen
    QCOMPARE(panel.swatch->dialog()->currentColor(), QColor(50, 60, 70));
    panel.swatch->dialog()->reject();
    QCOMPARE(panel.swatch->value(), QColor(5, 6, 7));
}

void ColorSwatchTest::translucencyShowsTheChequer()
{
    ColorSwatch swatch;
    swatch.resize(44, 22);
    for (const double ratio : {1.0, 1.5, 2.0}) {
        const auto colorsOf = [&](const QColor& value) { // in the inner half
            swatch.setValue(value);
            const QImage image = renderWidget(swatch, ratio);
            QSet<QRgb> found;
            for (int x = 11; x < 33; ++x) {
                found << ui::test::pixelAt(image, QPointF(x, 11)).rgba();
            }
            return found;
        };
        QCOMPARE(colorsOf(QColor(0, 128, 255)), QSet<QRgb>{qRgb(0, 128, 255)});
        const QSet<QRgb> both = colorsOf(QColor(0, 0, 0, 0));
        QVERIFY(both.contains(qRgb(255, 255, 255)));
        QVERIFY(both.contains(theme().getColor(u"Base"_qs).rgba()));
        for (const QRgb rgb : colorsOf(QColor(255, 0, 0, 128))) {
            QVERIFY(qRed(rgb) > qBlue(rgb) + 100);
        }
    }
}

void ColorSwatchTest::assistiveToolsReadAndSetTheColor()
{
    Panel panel;
    panel.swatch->setToolTip(u"Fill"_qs);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(panel.swatch);
    QCOMPARE(accessible->text(QAccessible::Name), u"Fill"_qs);
    QCOMPARE(accessible->text(QAccessible::Value), u"#ff0000"_qs);
    QVERIFY(accessible->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::pressAction()));
    accessible->valueInterface()->setCurrentValue(u"#00ff0080"_qs);
    accessible->valueInterface()->setCurrentValue(12);
    QCOMPARE(panel.swatch->value(), QColor(0, 255, 0, 128));
    QCOMPARE(panel.record.take(), QByteArray("C"));
}

const ui::test::Registration<ColorSwatchTest> kRegistration;

#include "tst_colorswatch.moc"
