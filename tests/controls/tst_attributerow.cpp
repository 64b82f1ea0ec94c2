#include "support/FakeClock.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/paths.h"
#include "support/pixels.h"
#include "support/themes.h"
#include <MorrantUI/controls/AttributeRow.h>
#include <MorrantUI/controls/ColorSwatch.h>
#include <MorrantUI/controls/ConnectionInstance.h>
#include <MorrantUI/controls/KeyframeButton.h>
#include <MorrantUI/controls/NumericField.h>
#include <MorrantUI/controls/PickWhip.h>
#include <MorrantUI/theme/VisualDesignDark.h>
#include <MorrantUI/theme/colors.h>

#include <QAccessible>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <functional>
#include <limits>
#include <utility>

using ui::test::closeTo;
using ui::test::FakePointer;
using ui::test::pixelAt;
using ui::test::renderWidget;

namespace {

/// A row and everything it has said since the last look, such as "0 step, 1 commit, dragged".
struct Heard
{
    explicit Heard(AttributeRow& row)
    {
        const auto note = [this](const QByteArray& line) { lines << line; };
        QObject::connect(&row, &AttributeRow::valueChanged, [note](int index, bool committed) {
            note(QByteArray::number(index) + (committed ? " commit" : " step"));
        });
        QObject::connect(&row, &AttributeRow::colorChanged, [note](bool committed) {
            note(committed ? "colour commit" : "colour step");
        });
        QObject::connect(&row, &AttributeRow::dragStateChanged, [note](int index, bool dragging) {
            note(QByteArray::number(index) + (dragging ? " grabbed" : " released"));
        });
        QObject::connect(&row, &AttributeRow::resetRequested, [note] { note("reset"); });
        QObject::connect(&row, &AttributeRow::keyframeToggled, [note] { note("keyframe"); });
        QObject::connect(&row, &AttributeRow::linkedChanged, [note] { note("chain"); });
    }

    QByteArray taken() { return std::exchange(lines, {}).join(", "); }

    QByteArrayList lines;
};

/// A row of three fields in a window of its own.
struct Stage
{
    Stage()
    {
        for (const double value : {10.0, 20.0, 0.0}) {
            row->addField(value)->setUsePointerLock(false);
        }
        row->setDefaultValue(0, 0.0);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(row);
        column->addStretch();
        window.setGeometry(20, 20, 360, 120);
        window.show();
        window.activateWindow();
        shown = QTest::qWaitForWindowActive(&window);
    }

    QList<double> values() const { return {row->value(0), row->value(1), row->value(2)}; }

    void drag(int index, int distance) const
    {
        FakePointer pointer(row->field(index));
        pointer.moveTo(row->field(index)->rect().center());
        pointer.press();
        pointer.dragTo(pointer.position() + QPoint(distance, 0));
        pointer.release();
    }

    void type(int index, const char* text) const
    {
        QTest::mouseClick(row->field(index), Qt::LeftButton);
        row->field(index)->selectAll();
        QTest::keyClicks(row->field(index), QLatin1String(text));
    }

    QAbstractButton* button(const char* name) const
    {
        for (auto* const button : row->findChildren<QAbstractButton*>()) {
            if (button->accessibleName() == u"Size: "_qs + QLatin1String(name)) {
                return button;
            }
        }
        return nullptr;
    }

    QWidget window;
    AttributeRow* row = new AttributeRow(QStringLiteral("Size"), &window);
    Heard heard{*row};
    bool shown = false;
};

} // namespace

class AttributeRowTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aDragTakesStepsAndCommitsOnce();
    void lockedFieldsFollowByTheSameFactor();
    void whatIsTypedOutlastsWhatTheHostSets();
    void resetReturnsToTheDefaultsAsTheyAreShown();
    void connectionsComeFromOtherRowsOnly();
    void aRowMayDieInAnyOfItsSignals_data();
    void aRowMayDieInAnyOfItsSignals();

    void tabGoesThroughTheRowsAsTheEyeDoes();
    void rowsKeepTheirColumns();
    void badArgumentsChangeNothing();
    void assistiveToolsHearWhichAttributeItIs();
    void theDiamondTellsTheState();

private:
    VisualDesignDark& m_theme = ui::test::makeTheme<VisualDesignDark>(ui::test::assetsPath());
};

void AttributeRowTest::aDragTakesStepsAndCommitsOnce()
{
    const Stage stage;
    QVERIFY(stage.shown);
    Heard heard(*stage.row);
    stage.drag(1, 60);
    QVERIFY(stage.row->value(1) > 30);
    const int steps = static_cast<int>(heard.lines.count("1 step"));
    QVERIFY(steps > 1);
    heard.lines.removeAll("1 step");
    QCOMPARE(heard.taken(), QByteArray("1 grabbed, 1 commit, 1 released"));

    NumericField* const field = stage.row->field(1);
    Q_EMIT field->dragStateChanged(true);
    Q_EMIT field->valueChanged(false); // there and back
    Q_EMIT field->dragStateChanged(false);
    Q_EMIT field->dragStateChanged(false); // a context menu
    QCOMPARE(heard.taken(), QByteArray("1 grabbed, 1 step, 1 released"));

    stage.type(1, "7");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(heard.taken(), QByteArray("1 commit"));
    QCOMPARE(stage.row->value(1), 7.0);
}

void AttributeRowTest::lockedFieldsFollowByTheSameFactor()
{
    Stage stage;
    QVERIFY(stage.shown);
    stage.row->setLinkable(true);
    QCoreApplication::processEvents();
    QTest::mouseClick(stage.button("lock values together"), Qt::LeftButton);
    QVERIFY(stage.row->isLinked());
    QCOMPARE(stage.heard.taken(), QByteArray("chain"));

    stage.type(0, "15");
    QTest::keyClick(stage.row->field(0), Qt::Key_Return);
    QCOMPARE(stage.values(), QList<double>({15, 30, 0}));
    QCOMPARE(stage.heard.taken(), QByteArray("0 commit, 1 commit"));

    stage.type(2, "5"); // from 0 there is no factor
    QTest::keyClick(stage.row->field(2), Qt::Key_Return);
    QCOMPARE(stage.values(), QList<double>({15, 30, 5}));
    QCOMPARE(stage.heard.taken(), QByteArray("2 commit"));

    NumericField* const field = stage.row->field(1); // of a drag all steps start from its beginning
    Q_EMIT field->dragStateChanged(true);
    for (const double value : {0.0, 10.0, 60.0}) {
        field->setValue(value);
        Q_EMIT field->valueChanged(false);
        stage.row->setValue(0, stage.row->value(0)); // the host's echo
    }
    QCOMPARE(stage.values(), QList<double>({30, 60, 10}));
    stage.heard.taken();
    Q_EMIT field->dragStateChanged(false);
    QCOMPARE(stage.heard.taken(), QByteArray("0 commit, 1 commit, 2 commit, 1 released"));

    stage.row->setLinked(false);
    stage.row->setValue(0, 90);
    QCOMPARE(stage.values(), QList<double>({90, 60, 10}));
    QCOMPARE(stage.heard.taken(), QByteArray());
}

void AttributeRowTest::whatIsTypedOutlastsWhatTheHostSets()
{
    Stage stage;
    QVERIFY(stage.shown);
    stage.type(0, "12");
    stage.row->setValue(0, 77);
    QCOMPARE(stage.row->field(0)->text(), QStringLiteral("12"));
    stage.row->field(0)->clearFocus();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(stage.row->value(0), 12.0); // the user was last
    QCOMPARE(stage.heard.taken(), QByteArray("0 commit"));

    stage.type(0, "13");
    stage.row->setValue(0, 77);
    QTest::keyClick(stage.row->field(0), Qt::Key_Escape);
    stage.row->field(0)->clearFocus();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(stage.row->value(0), 77.0);
    QCOMPARE(stage.heard.taken(), QByteArray());

    stage.type(0, "33"); // the key gets the value that is seen
    QTest::mouseClick(stage.row->keyframeButton(), Qt::LeftButton);
    QCOMPARE(stage.heard.taken(), QByteArray("0 commit, keyframe"));

    QTest::mouseClick(stage.row->field(0), Qt::LeftButton); // nothing typed yet
    stage.row->setValue(0, 78);
    QCOMPARE(stage.row->value(0), 78.0);
    stage.row->field(0)->selectAll();
    stage.row->setValue(0, 78);
    QVERIFY(stage.row->field(0)->hasSelectedText());
}

void AttributeRowTest::resetReturnsToTheDefaultsAsTheyAreShown()
{
    Stage stage;
    QVERIFY(stage.shown);
    AttributeRow& row = *stage.row;
    ColorSwatch* const swatch = row.addSwatch(Qt::red);
    QVERIFY(!row.addSwatch(Qt::blue));
    QVERIFY(stage.button("reset")->isEnabled());
    row.setColor(Qt::blue);
    QTest::mouseClick(stage.button("reset"), Qt::LeftButton);
    QCOMPARE(stage.heard.taken(), QByteArray("0 commit, colour commit, reset"));
    QCOMPARE(stage.values(), QList<double>({0, 20, 0}));
    QCOMPARE(swatch->value(), QColor(Qt::red));
    QVERIFY(!stage.button("reset")->isEnabled());

    row.setDefaultValue(1, 20.00001); // looks the same
    QVERIFY(row.isAtDefault());
    row.field(1)->setMax(50);
    row.setDefaultValue(1, 80);
    QVERIFY(!row.isAtDefault());
    row.reset();
    QCOMPARE(row.value(1), 50.0);
    QVERIFY(row.isAtDefault());
    QVERIFY(!stage.button("reset")->isEnabled());
    row.reset();
    QCOMPARE(stage.heard.taken(), QByteArray("1 commit"));

    row.setValue(0, 9);
    stage.button("reset")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(stage.button("reset"), Qt::Key_Space);
    QVERIFY(row.field(0)->hasFocus()); // not the neighbour of the button, which is disabled by now
    QCOMPARE(row.value(0), 0.0);
}

void AttributeRowTest::connectionsComeFromOtherRowsOnly()
{
    Stage stage;
    QVERIFY(stage.shown);
    auto* other = new AttributeRow(QStringLiteral("Other"));
    stage.window.layout()->addWidget(other);
    QCoreApplication::processEvents();
    bool wanted = true;
    connect(stage.row, &AttributeRow::connectionEntered, this, [&](ConnectionInstance* connection) {
        connection->setAccepted(wanted);
    });
    QList<QObject*> dropped;
    connect(stage.row, &AttributeRow::connectionDropped, this, [&](ConnectionInstance* connection) {
        dropped << connection->source();
    });
    const auto connectFrom = [&](AttributeRow* from) {
        ConnectionInstance* const connection =
            ConnectionInstance::start(from->pickWhip(), {}, nullptr);
        connection->moveTo(stage.row->mapToGlobal(stage.row->rect().center()));
        connection->drop();
        return connection->state();
    };
    using State = ConnectionInstance::State;
    QCOMPARE(connectFrom(other), State::Missed);
    stage.row->setConnectionsAccepted(true);
    QCOMPARE(connectFrom(other), State::Dropped);
    QCOMPARE(connectFrom(stage.row), State::Missed);
    wanted = false;
    QCOMPARE(connectFrom(other), State::Missed);
    stage.row->setConnectionsAccepted(false);
    QVERIFY(!stage.row->areConnectionsAccepted());
    QCOMPARE(dropped, QList<QObject*>({other->pickWhip()}));
    ui::test::FakeClock(qApp).advanceAnimations(
        10000); // no line is left over the next test's window
}

void AttributeRowTest::aRowMayDieInAnyOfItsSignals_data()
{
    using Act = std::function<void(Stage&)>;
    QTest::addColumn<Act>("act");
    QTest::newRow("reset") << Act(
        [](Stage& stage) { QTest::mouseClick(stage.button("reset"), Qt::LeftButton); });
    QTest::newRow("keyframe after typing") << Act([](Stage& stage) {
        stage.type(0, "33");
        QTest::mouseClick(stage.row->keyframeButton(), Qt::LeftButton);
    });
    QTest::newRow("drag") << Act([](Stage& stage) { stage.drag(0, 40); });
    QTest::newRow("Return in a locked row") << Act([](Stage& stage) {
        stage.row->setLinkable(true);
        stage.row->setLinked(true);
        stage.type(0, "33");
        QTest::keyClick(stage.row->field(0), Qt::Key_Return);
    });
}

void AttributeRowTest::aRowMayDieInAnyOfItsSignals()
{
    QFETCH(std::function<void(Stage&)>, act);
    Stage stage;
    QVERIFY(stage.shown);
    QPointer<AttributeRow> row = stage.row;
    connect(row, &AttributeRow::valueChanged, this, [&row] { delete row; });
    act(stage);
    QVERIFY(!row);
}

void AttributeRowTest::tabGoesThroughTheRowsAsTheEyeDoes()
{
    QWidget window;
    const QList<AttributeRow*> rows{
        new AttributeRow(QStringLiteral("A"), &window),
        new AttributeRow(QStringLiteral("B"), &window)};
    QStringList expected;
    for (AttributeRow* const row : rows) {
        row->setRenamable(true);
        row->setLinkable(true);
        row->addSwatch(Qt::red);
        row->addField(1);
        row->addField(2);
        for (const char* const part :
             {"%1",
              "%1: lock values together",
              "%1, 1 of 2",
              "%1, 2 of 2",
              "%1",
              "%1: reset",
              "%1: keyframe",
              "%1: connect"})
        {
            expected << QString::fromLatin1(part).arg(row->name());
        }
    }
    QStringList visited;
    for (QWidget* part = window.nextInFocusChain(); part != &window;
         part = part->nextInFocusChain()) {
        if ((part->focusPolicy() & Qt::TabFocus) != 0 && part->isVisibleTo(&window)) {
            visited << QAccessible::queryAccessibleInterface(part)->text(QAccessible::Name);
        }
    }
    QCOMPARE(visited, expected);
}

void AttributeRowTest::rowsKeepTheirColumns()
{
    Stage stage;
    AttributeRow bare(QStringLiteral("A name that is too long for its column"));
    bare.addField(1);
    bare.setPickWhipShown(false);
    bare.setKeyframesShown(false);
    stage.row->setLinkable(true);
    bare.resize(stage.row->size());
    bare.show();
    QCoreApplication::processEvents();
    const auto columns = [](AttributeRow& row) {
        NumericField* const last = row.field(row.fieldCount() - 1);
        return QPoint(row.field(0)->x(), last->geometry().right());
    };
    QCOMPARE(columns(bare), columns(*stage.row));
    for (const int width : {90, 200}) {
        bare.setNameWidth(width);
        QCoreApplication::processEvents();
        QVERIFY(bare.field(0)->x() >= width && bare.field(0)->x() < width + 10);
    }
    bare.setNameWidth(0);
    QCOMPARE(bare.nameWidth(), stage.row->nameWidth());
    bare.setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::processEvents();
    QVERIFY(bare.pickWhip()->x() < bare.field(0)->x());
}

void AttributeRowTest::badArgumentsChangeNothing()
{
    Stage stage;
    AttributeRow& row = *stage.row;
    QVERIFY(row.addField(std::numeric_limits<double>::quiet_NaN()));
    QVERIFY(!row.addField(5));
    QCOMPARE(row.fieldCount(), ui::kMaxAttributeFields);
    for (const int index : {-1, 4}) {
        QVERIFY(!row.field(index));
        row.setValue(index, 3);
        row.setDefaultValue(index, 3);
        QCOMPARE(row.value(index), 0.0);
    }
    row.setValue(0, std::numeric_limits<double>::quiet_NaN());
    row.setDefaultValue(1, std::numeric_limits<double>::infinity());
    row.setDefaultColor({});
    row.reset();
    QCOMPARE(stage.values(), QList<double>({0, 20, 0}));
    delete row.field(1); // a host that knows no better
    row.setValue(1, 4);
    row.setLinkable(true);
    row.setLinked(true);
    stage.drag(0, 30);
    row.reset();
    QCOMPARE(row.value(0), 0.0);
}

void AttributeRowTest::assistiveToolsHearWhichAttributeItIs()
{
    Stage stage;
    const auto nameOf = [](QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    stage.row->setName(QStringLiteral("50 %2")); // no place marker, whatever it looks like
    QCOMPARE(nameOf(stage.row->field(2)), QStringLiteral("50 %2, 3 of 3"));
    QCOMPARE(nameOf(stage.row->keyframeButton()), QStringLiteral("50 %2: keyframe"));
    QCOMPARE(nameOf(stage.row->pickWhip()), QStringLiteral("50 %2: connect"));
    const auto* const group = QAccessible::queryAccessibleInterface(stage.row);
    QCOMPARE(group->role(), QAccessible::Grouping);
    QCOMPARE(group->text(QAccessible::Name), QStringLiteral("50 %2"));
    AttributeRow single(QStringLiteral("Opacity"));
    QCOMPARE(nameOf(single.addField(1)), QStringLiteral("Opacity"));
}

void AttributeRowTest::theDiamondTellsTheState()
{
    using KeyState = KeyframeButton::State;
    KeyframeButton button;
    button.resize(button.sizeHint());
    const QColor accent = ui::colorQt(QStringLiteral("Accent1"));
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
    const QString described = button.toolTip();
    button.setState(KeyState::None);
    QVERIFY(button.toolTip() != described);
    button.setToolTip(QStringLiteral("Key of the host's"));
    button.setState(KeyState::Animated);
    QCOMPARE(button.toolTip(), QStringLiteral("Key of the host's"));
    QCOMPARE(button.accessibleDescription(), QStringLiteral("Animated"));
}

namespace {
const ui::test::Registration<AttributeRowTest> kRegistration;
} // namespace

#include "tst_attributerow.moc"
