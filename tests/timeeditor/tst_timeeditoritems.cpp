// SPDX-License-Identifier: Apache-2.0
#include "Editor.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/timeeditor/TimeEditorSoundItem.h>

using ui::test::closeTo;
using ui::test::Editor;
using ui::test::pixelAt;

class TimeEditorItemsTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keysMoveByWholeFramesAlongTheirRow()
    {
        Editor editor({{10}});
        TimeEditorKeyframeItem* const key = editor.key(0, 0);
        const double y = key->y();
        key->setPos(12.5, 99);
        QCOMPARE(key->pos(), QPointF(13, y));
        key->setPos(std::nan(""), 0);
        key->forceMove({HUGE_VAL, 0});
        QCOMPARE(key->pos(), QPointF(13, y));
        key->forceMove({12.25, 4});
        QCOMPARE(key->pos(), QPointF(12.25, 4));
    }

    void aFlashEndsWhereItBegan()
    {
        TimeEditorBaseItem item;
        ui::test::FakeClock clock(&item);
        item.setColor(Qt::red);
        item.animateFeedbackColor(Qt::blue);
        clock.advanceAnimations(400);
        QCOMPARE(item.getBaseColor(), QColor(Qt::blue));
        item.animateFeedbackColor(Qt::green); // started over at its half
        clock.advanceAnimations(1000);
        QCOMPARE(item.getBaseColor(), QColor(Qt::red));
    }

    void hoveringFollowsThePointer()
    {
        struct Own : TimeEditorKeyframeItem
        {
            using TimeEditorKeyframeItem::TimeEditorKeyframeItem;
            void hoverEnterEvent(QGraphicsSceneHoverEvent*) override { log += u'+'; }
            void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override
            {
                log += boundingRect().contains(event->pos()) ? u'.' : u'!';
            }
            void hoverLeaveEvent(QGraphicsSceneHoverEvent*) override { log += u'-'; }
            QString log;
        };
        Editor editor({{10, 40}});
        TimeEditorClipItem* const clip = editor.addClip({{10, 40}});
        auto* const own = new Own(editor.view, editor.curves[0]);
        own->forceMove({20, editor.curves[0]->keyY()});
        own->setCursor(Qt::CrossCursor);
        auto* const behind = new Own(editor.view, nullptr); // never hovered where a row is
        behind->forceMove({20, editor.curves[0]->keyY()});
        behind->setZValue(-1);
        editor.scene->addItem(behind);
        const auto shape = [&] { return editor.view->viewport()->cursor().shape(); };
        editor.pointer.moveTo({900, 150});
        editor.pointer.moveTo(editor.at(editor.key(0, 0)));
        QVERIFY(editor.key(0, 0)->isHovering());
        editor.pointer.moveTo(editor.at(25, 11)); // the bar
        QVERIFY(!editor.key(0, 0)->isHovering() && editor.curves[0]->isHovering());
        editor.pointer.moveTo(editor.at(own));
        QCOMPARE(shape(), Qt::CrossCursor);
        editor.click(editor.at(own) + QPoint(1, 0));
        editor.pointer.moveTo(editor.at(12, 33)); // the clip: Qt's
        QCOMPARE(own->log, u"+..."_qs + u"."_qs.repeated(own->log.size() - 5) + u"-"_qs);
        QCOMPARE(behind->log, QString());
        QVERIFY(clip->isHovering() && !editor.curves[0]->isHovering());
        QVERIFY(shape() != Qt::CrossCursor);
        editor.pointer.moveTo(editor.at(25, 11));
        QVERIFY(!clip->isHovering() && editor.curves[0]->isHovering());
        editor.pointer.moveTo(editor.at(25, 3)); // the row beside it
        QVERIFY(!editor.curves[0]->isHovering());
        editor.pointer.moveTo(editor.at(25, 11));
        QEvent left(QEvent::Leave);
        QCoreApplication::sendEvent(editor.view->viewport(), &left);
        QVERIFY(!editor.curves[0]->isHovering());
    }

    void aKeyIsDrawnAsADiamondInItsColors()
    {
        Editor editor({{10, 20, 30}});
        editor.key(0, 1)->setSelected(true);
        editor.key(0, 2)->setExtraOutline(true);
        const auto colorAt = [&](std::size_t key, QPoint offset) {
            const QImage image = editor.view->viewport()->grab().toImage();
            return pixelAt(
                image, QPointF(editor.at(editor.key(0, key)) + offset) + QPointF(0.5, 0.5));
        };
        QVERIFY(closeTo(colorAt(0, {0, 0}), ui::colorQt(u"Light"_qs)));
        QVERIFY(closeTo(colorAt(1, {0, 0}), ui::colorQt(u"Accent1"_qs)));
        QVERIFY(
            !closeTo(colorAt(0, {5, -5}), ui::colorQt(u"Light"_qs), 30)); // a corner of its square
        const QColor halo = colorAt(2, {-7, 0});
        QVERIFY(halo.red() > halo.blue() + 60); // "Accent4" is orange
        editor.key(0, 0)->setAnimatingColor(Qt::green);
        QVERIFY(closeTo(colorAt(0, {0, 0}), Qt::green));
    }

    void keysAreDrawnAlikeByViewAndScene()
    {
        Editor editor({{10, 20, 55}, {15, 16, 17}, {}});
        editor.key(1, 1)->setSelected(true);
        editor.view->fitRect(QRectF(0, 0, 87, 10)); // places between pixels
        editor.view->centerOn(40, 0);
        const auto grabbed = [&] {
            return editor.view->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        };
        const QImage own = grabbed();
        for (TimeEditorCurveItem* const row : editor.curves) {
            auto* const other = new QGraphicsRectItem(row); // Qt paints rows with anything but keys
            other->setPen(Qt::NoPen);
        }
        const QImage qts = grabbed();
        int different = 0;
        for (int i = 0; i < own.height() * own.width(); ++i) {
            const QPoint place(i % own.width(), i / own.width());
            different += closeTo(own.pixelColor(place), qts.pixelColor(place), 8) ? 0 : 1;
        }
        QVERIFY2(different < 20, qPrintable(QString::number(different)));
        QImage page(
            editor.view->viewport()->size(),
            QImage::Format_RGB32); // as a host exports or prints it
        QPainter painter(&page);
        painter.setRenderHints(editor.view->renderHints());
        editor.scene->render(
            &painter, page.rect(), editor.view->getVisibleRect(), Qt::IgnoreAspectRatio);
        const QPointF key = editor.at(editor.key(0, 1));
        QVERIFY(closeTo(pixelAt(page, key), ui::colorQt(u"Light"_qs)));
    }

    void aHostsOwnPaintIsCalled()
    {
        struct Square : TimeEditorKeyframeItem
        {
            using TimeEditorKeyframeItem::TimeEditorKeyframeItem;
            void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
            {
                painter->fillRect(rect(), Qt::magenta);
            }
        };
        Editor editor({{10}});
        auto* const own = new Square(editor.view, editor.curves[0]);
        own->forceMove({20, editor.curves[0]->keyY()});
        const QImage image = editor.view->viewport()->grab().toImage();
        QCOMPARE(pixelAt(image, editor.at(own)), QColor(Qt::magenta));
    }

    void holdKeysAndBarsFollowTheColorMode()
    {
        Editor editor({{10, 20, 30}});
        editor.key(0, 0)->setEasing(KeyEasing::Hold);
        const QColor ground = editor.colorAt(50, 14);
        QCOMPARE(editor.colorAt(15, 14), ground); // a fine bar in the middle
        QVERIFY(editor.colorAt(15, 11) != ground);
        editor.curves[0]->setColorMode(TimeEditorCurveItem::ColorMode::Easing);
        QVERIFY(editor.colorAt(15, 14) != ground); // a block up to the next key
        QCOMPARE(editor.colorAt(25, 14), ground);
    }

    void aWaveFormFillsItsPlace()
    {
        Editor editor;
        auto* const sound = new TimeEditorSoundItem(editor.view);
        std::vector<float> samples(4000, 0.9F);
        for (std::size_t i = 0; i < samples.size(); i += 2) {
            samples.at(i) = -0.9F;
        }
        sound->setPeaks(std::make_shared<ui::SoundPeaks>(samples));
        sound->setPlacement({100.0, 20.0, 1.0}); // frames 20 to 60
        editor.scene->addLayoutItem(sound);
        QCoreApplication::processEvents();
        const QColor wave = sound->getColor();
        QCOMPARE(editor.colorAt(40, 5), wave);
        QVERIFY(editor.colorAt(10, 11) != wave && editor.colorAt(70, 11) != wave);
        sound->setPlacement({100.0, 20.0, 0.1});
        QVERIFY(editor.colorAt(40, 5) != wave);
        QCOMPARE(editor.colorAt(40, 11), wave);
        sound->setAudibleRange(30, 35);
        QVERIFY(editor.colorAt(40, 11) != wave);
        for (const double bad : {0.0, -1.0, std::nan(""), 1e-300}) {
            sound->setPlacement({bad, 0.0, 1.0});
            editor.view->viewport()->grab();
        }
    }
};

const ui::test::Registration<TimeEditorItemsTest> kRegistration;

#include "tst_timeeditoritems.moc"
