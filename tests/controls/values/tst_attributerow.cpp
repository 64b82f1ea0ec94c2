// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"

using namespace ui::test;

namespace {

/// A row of three fields, 10, 20 and 0.
struct Stage : Bench<AttributeRow>
{
    Stage()
        : Bench({440, 30}, u"Size"_qs)
    {
        for (const double value : {10.0, 20.0, 0.0}) {
            row.addField(value)->setUsePointerLock(false);
        }
        row.setDefaultValue(0, 0.0);
        QObject::connect(&row, &AttributeRow::edited, &row, [this](bool committed) {
            changes += committed ? 1 : 0;
        });
        QCoreApplication::processEvents();
    }

    AttributeRow& row = *control;
    int changes = 0; ///< complete ones of the whole row
};

} // namespace

class AttributeRowTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aDragTakesStepsAndCommitsOnce()
    {
        Stage stage;
        stage.follow({{"#1 @20,10 >80,10 up", "1(1s1C1)"}});
        QVERIFY(stage.row.value(1) > 30 && stage.record.signalsSent > 4);
        NumericField* const field = stage.row.field(1);
        Q_EMIT field->dragStateChanged(true);
        Q_EMIT field->valueChanged(false); // there and back
        Q_EMIT field->dragStateChanged(false);
        Q_EMIT field->dragStateChanged(false); // a context menu
        stage.follow({{"", "1(1s1)"}});
        QCOMPARE(stage.changes, 1);
    }

    void tabGoesFromValueToValueAndArrowsToTheButtons()
    {
        Stage stage;
        const AttributeRow& row = stage.row;
        const QShortcut steals(Qt::Key_Right, stage.window.get());
        const std::tuple<Qt::Key, Qt::KeyboardModifiers, QWidget*> steps[] = {
            {Qt::Key_Tab, {}, row.field(1)},
            {Qt::Key_Tab, {}, row.field(2)},
            {Qt::Key_Tab, {}, stage.other},
            {Qt::Key_Backtab, {}, row.field(2)},
            {Qt::Key_Right, Qt::AltModifier, row.findChildren<IconButton*>().last()}, // reset
            {Qt::Key_Right, {}, row.keyframeButton()},
            {Qt::Key_Space, {}, row.keyframeButton()},
            {Qt::Key_Right, {}, row.pickWhip()},
            {Qt::Key_Right, {}, row.pickWhip()}, // the last one
            {Qt::Key_Left, Qt::AltModifier, row.keyframeButton()}};
        stage.play("#0 in");
        for (const auto& [key, held, part] : steps) {
            QTest::keyClick(stage.window->windowHandle(), key, held);
            QCOMPARE(QApplication::focusWidget(), part);
        }
        QCOMPARE(stage.said(), QByteArray("key"));
    }

    void lockedFieldsFollowByTheSameFactor()
    {
        Stage stage;
        stage.row.setLinkable(true);
        QCoreApplication::processEvents();
        stage.follow(
            {{"!lock", "link"},
             {"#0 in =15 Return", "0C1C", "15.0|30.0|0.0"},
             {"#2 in =5 Return", "2C", "15.0|30.0|5.0"}}); // from 0 there is no factor
        QVERIFY(stage.row.isLinked());

        NumericField* const field = stage.row.field(1); // all steps of a drag start from its start
        Q_EMIT field->dragStateChanged(true);
        for (const double value : {0.0, 10.0, 60.0}) {
            field->setValue(value);
            Q_EMIT field->valueChanged(false);
            stage.row.setValue(0, stage.row.value(0)); // the host's echo
        }
        stage.said();
        Q_EMIT field->dragStateChanged(false);
        stage.follow({{"", "0C1C2C1)", "30.0|60.0|10.0"}});
        QCOMPARE(stage.changes, 3);
        stage.row.setLinked(false);
        stage.row.setValue(0, 90);
        stage.follow({{"", "", "90.0|60.0|10.0"}});

        QList<double> model{90, 60, 10}; // of a host that shows all of it at each report
        connect(&stage.row, &AttributeRow::valueChanged, &stage.row, [&](int index) {
            model[index] = stage.row.value(index);
            for (int i = 0; i < model.size(); ++i) {
                stage.row.setValue(i, model[i]);
            }
        });
        stage.row.setLinked(true);
        stage.play("#0 in =45 Return");
        QCOMPARE(model, QList<double>({45, 30, 5}));
        stage.row.reset();
        QCOMPARE(model, QList<double>({0, 20, 0}));
    }

    void aKeyframeGetsTheValueThatIsSeen()
    {
        Stage stage;
        stage.follow({{"#0 in =33 !keyframe", "0Ckey", "33.0|20.0|0.0"}});
        stage.play("#0 in"); // nothing typed yet
        for (int echoes = 0; echoes < 2; ++echoes) {
            stage.row.setValue(0, 78);
            QCOMPARE(stage.row.value(0), 78.0);
            QCOMPARE(stage.row.field(0)->hasSelectedText(), echoes > 0);
            stage.row.field(0)->selectAll();
        }
    }

    void resetReturnsToTheDefaultsAsTheyAreShown()
    {
        Stage stage;
        AttributeRow& row = stage.row;
        QAbstractButton& reset = *row.findChild<IconButton*>(QString(), Qt::FindDirectChildrenOnly);
        ColorSwatch* const swatch = row.addSwatch(Qt::red);
        QVERIFY(!row.addSwatch(Qt::blue) && reset.isEnabled());
        row.setColor(Qt::blue);
        stage.follow({{"!reset", "0CCreset", "0.0|20.0|0.0"}});
        QCOMPARE(stage.changes, 1);
        QVERIFY(swatch->value() == QColor(Qt::red) && !reset.isEnabled());
        row.setDefaultValue(1, 20.00001); // looks the same
        QVERIFY(row.isAtDefault());
        row.field(1)->setMax(50);
        row.setDefaultValue(1, 80);
        QVERIFY(!row.isAtDefault());
        row.reset();
        row.reset();
        stage.follow({{"", "1C", "0.0|50.0|0.0"}});
        QVERIFY(row.isAtDefault() && !reset.isEnabled());
        row.setValue(0, 9);
        reset.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&reset, Qt::Key_Space);
        QVERIFY(row.field(0)->hasFocus()); // not the button's neighbour; the button is disabled
        QCOMPARE(row.value(0), 0.0);
    }

    void connectionsComeFromOtherRowsOnly()
    {
        Stage stage;
        AttributeRow other(u"Other"_qs, stage.window.get());
        other.show();
        QCoreApplication::processEvents();
        bool wanted = true;
        connect(&stage.row, &AttributeRow::connectionEntered, this, [&](ConnectionInstance* one) {
            one->setAccepted(wanted);
        });
        QList<QObject*> dropped;
        connect(&stage.row, &AttributeRow::connectionDropped, this, [&](ConnectionInstance* one) {
            dropped << one->source();
        });
        const auto drops = [&](AttributeRow* from) {
            auto* const connection = ConnectionInstance::start(from->pickWhip(), {}, nullptr);
            connection->moveTo(stage.row.mapToGlobal(stage.row.rect().center()));
            connection->drop();
            return connection->state() == ConnectionInstance::State::Dropped;
        };
        QVERIFY(!drops(&other));
        stage.row.setConnectionsAccepted(true);
        QVERIFY(drops(&other) && !drops(&stage.row));
        wanted = false;
        QVERIFY(!drops(&other));
        stage.row.setConnectionsAccepted(false);
        QVERIFY(!stage.row.areConnectionsAccepted());
        QCOMPARE(dropped, QList<QObject*>({other.pickWhip()}));
        FakeClock(qApp).advanceAnimations(10000); // no line over the next test's window
    }

    void tabGoesThroughTheRowsAsTheEyeDoes()
    {
        QWidget window;
        QStringList expected;
        for (const QString& name : {u"A"_qs, u"B"_qs}) {
            auto* row = new AttributeRow(name, &window);
            row->setRenamable(true);
            row->setLinkable(true);
            row->addSwatch(Qt::red);
            row->addField(1);
            row->addField(2);
            expected << u"%1|%1, 1 of 2|%1, 2 of 2|%1"_qs.arg(name).split(u'|');
        }
        QStringList visited;
        for (QWidget* part = window.nextInFocusChain(); part != &window;
             part = part->nextInFocusChain()) {
            if ((part->focusPolicy() & Qt::TabFocus) != 0 && part->isVisibleTo(&window)) {
                visited << nameOf(part);
            }
        }
        QCOMPARE(visited, expected);
        AttributeRow single(u"50 %2"_qs); // no place marker, whatever it looks like
        QCOMPARE(nameOf(single.addField(1)), u"50 %2"_qs);
        single.addField(2);
        QCOMPARE(nameOf(single.field(1)), u"50 %2, 2 of 2"_qs);
    }

    void rowsKeepTheirColumns()
    {
        Stage stage;
        AttributeRow bare(u"A name that is too long for its column"_qs);
        bare.addField(1);
        bare.setPickWhipShown(false);
        bare.setKeyframesShown(false);
        stage.row.setLinkable(true);
        bare.resize(stage.row.size());
        bare.show();
        for (const int width : {90, 200, 0}) { // 0 is the usual one again
            bare.setNameWidth(width);
            QCoreApplication::processEvents();
            QVERIFY(bare.field(0)->x() >= width && (width == 0 || bare.field(0)->x() < width + 10));
        }
        QCOMPARE(bare.field(0)->x(), stage.row.field(0)->x());
        QCOMPARE(bare.field(0)->geometry().right(), stage.row.field(2)->geometry().right());
        stage.row.resize(stage.row.minimumSizeHint());
        QCoreApplication::processEvents();
        QVERIFY(stage.row.field(0)->x() < bare.nameWidth());
        QVERIFY(stage.row.field(2)->geometry().right() < stage.row.pickWhip()->x());
        bare.setLayoutDirection(Qt::RightToLeft);
        QCoreApplication::processEvents();
        QVERIFY(bare.pickWhip()->x() < bare.field(0)->x());
    }

    void badArgumentsChangeNothing()
    {
        Stage stage;
        AttributeRow& row = stage.row;
        QVERIFY(row.addField(kNaN) && !row.addField(5));
        for (const int index : {-1, 4}) {
            QVERIFY(!row.field(index));
            row.setValue(index, 3);
            row.setDefaultValue(index, 3);
            QCOMPARE(row.value(index), 0.0);
        }
        row.setValue(0, kNaN);
        row.setDefaultValue(1, kNaN);
        row.setDefaultColor({});
        row.reset();
        stage.follow({{"", "0C", "0.0|20.0|0.0|0.0"}});
        delete row.field(1); // a host that knows no better
        row.setValue(1, 4);
        row.setLinkable(true);
        row.setLinked(true);
        stage.play("#0 @20,10 >50,10 up");
        row.reset();
        QCOMPARE(row.value(0), 0.0);
    }

    void theDiamondTellsTheState()
    {
        using KeyState = KeyframeButton::State;
        KeyframeButton button;
        button.resize(button.sizeHint());
        const QColor accent = ui::colorQt(u"Accent1"_qs);
        const auto seen = [&](KeyState state, double ratio) { // in the middle, and on the way out
            button.setState(state);
            const QImage image = renderWidget(button, ratio);
            const QPointF center = QRectF(button.rect()).center();
            bool onOutline = false;
            for (double x = 1.5; x < center.x(); x += 0.5) {
                const QColor color = pixelAt(image, center + QPointF(x, 0));
                onOutline |= color.alpha() > 150 && color.blue() > color.red() + 40;
            }
            return std::pair(closeTo(pixelAt(image, center), accent), onOutline);
        };
        for (const double ratio : {1.0, 1.5, 2.0}) {
            QCOMPARE(seen(KeyState::None, ratio), std::pair(false, false));
            QCOMPARE(seen(KeyState::Animated, ratio), std::pair(false, true));
            QCOMPARE(seen(KeyState::KeyAtFrame, ratio), std::pair(true, true));
        }
    }
};

const Registration<AttributeRowTest> kRegistration;

#include "tst_attributerow.moc"
