// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"

using namespace ui::test;

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

/// A red swatch.
struct Panel : Bench<CountingSwatch>
{
    Panel()
        : Bench({60, 24}, QColor(Qt::red))
    {}

    QColorDialog* dialog() const { return control->dialog(); }
    /// Opens the dialog and chooses a colour in it.
    void choose(const QColor& color)
    {
        control->click();
        dialog()->setCurrentColor(color);
    }
    void carry(int from, int to)
    {
        press({from, 10});
        pointer.dragTo({to, 10});
    }
};

} // namespace

class ColorSwatchTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void choosingIsLiveAcceptCommitsAndCancelRestores()
    {
        Panel panel;
        panel.choose(Qt::green);
        QVERIFY(!panel.dialog()->isModal());
        for (const auto* part : panel.dialog()->findChildren<QWidget*>()) {
            QVERIFY(!part->property("text").toString().contains(u"color", Qt::CaseInsensitive));
        }
        QPointer<QColorDialog> dialog = panel.dialog();
        panel.control->click(); // brings it to the front
        QCOMPARE(panel.dialog(), dialog.data());
        panel.follow({{"", "s", "#00ff00"}});
        dialog->accept();
        panel.follow({{"", "C", "#00ff00"}});
        QCOMPARE(panel.dialog(), nullptr);
        QTRY_VERIFY(dialog.isNull());

        panel.choose(Qt::blue);
        panel.dialog()->setCurrentColor(Qt::green);
        panel.dialog()->accept(); // what it was
        panel.follow({{"", "s", "#00ff00"}});
        panel.choose(QColor(1, 2, 3, 4));
        panel.follow({{"", "s", "#04010203"}});
        panel.dialog()->reject();
        panel.follow({{"", "s", "#00ff00"}});
        panel.control->click();
        panel.dialog()->close();
        panel.follow({{"", "", "#00ff00"}});
    }

    void hidingAndDisablingCloseTheDialog()
    {
        for (const bool hides : {true, false}) {
            Panel panel;
            panel.choose(Qt::green);
            hides ? panel.window->hide() : panel.window->setEnabled(false);
            QCOMPARE(panel.dialog(), nullptr);
            panel.follow({{"", "sC", "#00ff00"}});
            panel.control->openDialog(); // not from there
            QCOMPARE(panel.dialog(), nullptr);
        }
    }

    void theHostSetsAColorWhileOneIsChosen()
    {
        Panel panel;
        panel.record.onSignal = [&] { panel.control->setValue(panel.control->value()); }; // an echo
        panel.choose(Qt::green);
        panel.dialog()->reject();
        panel.follow({{"", "s", "#ff0000"}});
        panel.choose(Qt::green);
        panel.said();
        panel.control->setValue(Qt::blue);
        panel.follow({{"", "", "#0000ff"}});
        QCOMPARE(panel.dialog()->currentColor(), QColor(Qt::blue));
        panel.dialog()->setCurrentColor(Qt::green);
        panel.dialog()->reject();
        panel.control->setValue(QColor());
        panel.follow({{"", "s", "#0000ff"}});
    }

    void keysOpenCopyAndPaste()
    {
        Panel panel;
        for (const char* const key : {"in Space", "Return"}) {
            panel.play(key);
            QVERIFY(panel.dialog());
            panel.dialog()->reject();
        }
        panel.control->setValue(QColor(17, 34, 51, 68));
        panel.play("in Ctrl+C");
        QCOMPARE(QApplication::clipboard()->text(), u"#11223344"_qs);
        panel.control->setValue(Qt::red);
        panel.follow({{"Ctrl+V", "C", "#44112233"}, {"Ctrl+V", "", "#44112233"}}); // the same again
        QApplication::clipboard()->setText(u"a red car"_qs);
        panel.follow({{"Ctrl+V", "", "#44112233"}});
        QKeyEvent copy(QEvent::ShortcutOverride, Qt::Key_C, Qt::ControlModifier);
        copy.ignore();
        QCoreApplication::sendEvent(panel.control, &copy);
        QVERIFY(copy.isAccepted()); // the window's own copy waits
    }

    void aDragCarriesTheColorAway()
    {
        Panel panel;
        panel.carry(10, 12);
        QCOMPARE(panel.control->drags, 0); // still a click
        panel.play(">50,10 ~30,10 up");
        QCOMPARE(panel.control->drags, 1);
        QCOMPARE(panel.dialog(), nullptr);
        panel.carry(10, 12);
        panel.play("up");
        QVERIFY(panel.dialog());
        for (const bool goes : {false, true}) {
            Panel source;
            const auto carried = ui::colorMimeData(Qt::blue);
            source.control->whileCarried = [&] {
                QVERIFY(!dropOn(*source.control, *carried)); // it does not take back its own
                ColorSwatch other;
                QVERIFY(dropOn(other, *carried));
                if (goes) {
                    delete source.control.data();
                }
            };
            source.carry(10, 50);
            QCOMPARE(source.control.isNull(), goes);
            QVERIFY(goes || dropOn(*source.control, *carried));
        }
    }

    void theDragOutlivesTheSwatch()
    {
        if (QGuiApplication::platformName() == QLatin1String("windows")) {
            return; // whose drags last until a real button comes up
        }
        Panel panel;
        bool isOver = false;
        QTimer::singleShot(0, panel.window.get(), [&] {
            delete panel.control.data();
            if (!isOver) { // in the drag, which does not come back by itself
                QDrag::cancel();
            }
        });
        panel.control->carryForReal();
        isOver = true;
        QVERIFY(panel.control.isNull() || !panel.control->findChild<QDrag*>());
        QTRY_VERIFY(panel.control.isNull());
    }

    void aDropIsTakenOnlyWithAColor()
    {
        Panel panel;
        const auto data = ui::colorMimeData(QColor(0, 0, 255, 100));
        for (int i = 0; i < 2; ++i) {
            QVERIFY(dropOn(*panel.control, *data));
        }
        panel.follow({{"", "C", "#640000ff"}});
        QMimeData words;
        words.setText(u"nothing of the kind"_qs);
        QVERIFY(!dropOn(*panel.control, words));
        QEvent pointerGone(QEvent::Leave); // a drop leaves the pointer over the swatch
        QCoreApplication::sendEvent(panel.control, &pointerGone);
        const QImage rest = renderWidget(*panel.control);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(panel.control, &enter);
        QVERIFY(renderWidget(*panel.control) != rest); // shows that it would take it
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(panel.control, &leave);
        QCOMPARE(renderWidget(*panel.control), rest);
    }

    void withoutAlphaEverythingIsOpaque()
    {
        Panel panel;
        panel.control->setValue(QColor(10, 20, 30, 40));
        panel.control->setAlphaEnabled(false);
        QCOMPARE(panel.control->value(), QColor(10, 20, 30));
        dropOn(*panel.control, *ui::colorMimeData(QColor(1, 2, 3, 4)));
        QCOMPARE(panel.control->value(), QColor(1, 2, 3));
        panel.control->click();
        QVERIFY(!panel.dialog()->testOption(QColorDialog::ShowAlphaChannel));
        panel.dialog()->reject();
        panel.control->setAlphaEnabled(true);
        panel.control->setValue(QColor(5, 6, 7, 8));
        panel.choose(QColor(50, 60, 70, 80));
        panel.control->setAlphaEnabled(false); // while one is being chosen
        QCOMPARE(panel.dialog()->currentColor(), QColor(50, 60, 70));
        panel.dialog()->reject();
        QCOMPARE(panel.control->value(), QColor(5, 6, 7));
    }

    void translucencyShowsTheChequer()
    {
        ColorSwatch swatch;
        swatch.resize(44, 22);
        for (const double ratio : {1.0, 1.5, 2.0}) {
            const auto colorsOf = [&](const QColor& value) { // in the inner half
                swatch.setValue(value);
                const QImage image = renderWidget(swatch, ratio);
                QSet<QRgb> found;
                for (int x = 11; x < 33; ++x) {
                    found << pixelAt(image, QPointF(x, 11)).rgba();
                }
                return found;
            };
            QCOMPARE(colorsOf(QColor(0, 128, 255)), QSet<QRgb>{qRgb(0, 128, 255)});
            const QSet<QRgb> both = colorsOf(QColor(0, 0, 0, 0));
            QVERIFY(both.contains(qRgb(255, 255, 255)));
            QVERIFY(both.contains(theme().getColor(u"Base"_qs).rgba()));
        }
    }
};

const Registration<ColorSwatchTest> kRegistration;

#include "tst_colorswatch.moc"
