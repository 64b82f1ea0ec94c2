#include "support/FakeClock.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/paths.h"
#include "support/pixels.h"
#include "support/themes.h"
#include <MorrantUI/controls/buttons/KeyframeButton.h>
#include <MorrantUI/controls/connections/ConnectionInstance.h>
#include <MorrantUI/controls/connections/PickWhip.h>
#include <MorrantUI/controls/values/AttributeRow.h>
#include <MorrantUI/controls/values/ColorSwatch.h>
#include <MorrantUI/controls/values/NumericField.h>
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

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

QString nameOf(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

/// What a row has said since the last look, such as "0 step, 1 commit, dragged".
struct Heard
{
    explicit Heard(AttributeRow& row)
    {
        const auto note = [this](const QByteArray& line) { lines << line; };
        const auto listen = [&](auto signal, auto tell) { QObject::connect(&row, signal, tell); };
        listen(&AttributeRow::valueChanged, [note](int index, bool committed) {
            note(QByteArray::number(index) + (committed ? " commit" : " step"));
        });
        listen(&AttributeRow::dragStateChanged, [note](int index, bool dragging) {
            note(QByteArray::number(index) + (dragging ? " grabbed" : " released"));
        });
        listen(&AttributeRow::colorChanged, [note](bool committed) {
            note(committed ? "colour commit" : "colour step");
        });
        listen(&AttributeRow::resetRequested, [note] { note("reset"); });
        listen(&AttributeRow::keyframeToggled, [note] { note("keyframe"); });
        listen(&AttributeRow::linkedChanged, [note] { note("chain"); });
    }

    QByteArray taken() { return std::exchange(lines, {}).join(", "); }

    QByteArrayList lines;
};

/// A row of three fields in an active window of its own.
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
        QVERIFY(QTest::qWaitForWindowActive(&window));
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

    /// Ends with a key if there is one.
    void type(int index, const char* text, int end = 0) const
    {
        QTest::mouseClick(row->field(index), Qt::LeftButton);
        row->field(index)->selectAll();
        QTest::keyClicks(row->field(index), QLatin1String(text));
        if (end != 0) {
            QTest::keyClick(row->field(index), Qt::Key(end));
        }
    }

    void click(const char* name) const { QTest::mouseClick(button(name), Qt::LeftButton); }

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
    AttributeRow* row = new AttributeRow(u"Size"_qs, &window);
    Heard heard{*row};
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
    Stage stage;
    stage.drag(1, 60);
    QVERIFY(stage.row->value(1) > 30);
    QVERIFY(stage.heard.lines.removeAll("1 step") > 1);
    QCOMPARE(stage.heard.taken(), QByteArray("1 grabbed, 1 commit, 1 released"));

    NumericField* const field = stage.row->field(1);
    Q_EMIT field->dragStateChanged(true);
    Q_EMIT field->valueChanged(false); // there and back
    Q_EMIT field->dragStateChanged(false);
    Q_EMIT field->dragStateChanged(false); // a context menu
    QCOMPARE(stage.heard.taken(), QByteArray("1 grabbed, 1 step, 1 released"));

    stage.type(1, "7", Qt::Key_Return);
    QCOMPARE(stage.heard.taken(), QByteArray("1 commit"));
    QCOMPARE(stage.row->value(1), 7.0);
}

void AttributeRowTest::lockedFieldsFollowByTheSameFactor()
{
    Stage stage;
    stage.row->setLinkable(true);
    QCoreApplication::processEvents();
    stage.click("lock values together");
    QVERIFY(stage.row->isLinked());
    stage.type(0, "15", Qt::Key_Return);
    QCOMPARE(stage.values(), QList<double>({15, 30, 0}));
    QCOMPARE(stage.heard.taken(), QByteArray("chain, 0 commit, 1 commit"));
    stage.type(2, "5", Qt::Key_Return); // from 0 there is no factor
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
    NumericField& field = *stage.row->field(0);
    stage.type(0, "12");
    stage.row->setValue(0, 77);
    QCOMPARE(field.text(), u"12"_qs);
    field.clearFocus();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(stage.row->value(0), 12.0); // the user was last
    QCOMPARE(stage.heard.taken(), QByteArray("0 commit"));

    stage.type(0, "13");
    stage.row->setValue(0, 77);
    QTest::keyClick(&field, Qt::Key_Escape);
    field.clearFocus();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(stage.row->value(0), 77.0);
    QCOMPARE(stage.heard.taken(), QByteArray());

    stage.type(0, "33"); // the key gets the value that is seen
    stage.click("keyframe");
    QCOMPARE(stage.heard.taken(), QByteArray("0 commit, keyframe"));
    QTest::mouseClick(&field, Qt::LeftButton); // nothing typed yet
    stage.row->setValue(0, 78);
    QCOMPARE(stage.row->value(0), 78.0);
    field.selectAll();
    stage.row->setValue(0, 78);
    QVERIFY(field.hasSelectedText());
}

void AttributeRowTest::resetReturnsToTheDefaultsAsTheyAreShown()
{
    Stage stage;
    AttributeRow& row = *stage.row;
    QAbstractButton& reset = *stage.button("reset");
    ColorSwatch* const swatch = row.addSwatch(Qt::red);
    QVERIFY(!row.addSwatch(Qt::blue));
    QVERIFY(reset.isEnabled());
    row.setColor(Qt::blue);
    stage.click("reset");
    QCOMPARE(stage.heard.taken(), QByteArray("0 commit, colour commit, reset"));
    QCOMPARE(stage.values(), QList<double>({0, 20, 0}));
    QCOMPARE(swatch->value(), QColor(Qt::red));
    QVERIFY(!reset.isEnabled());

    row.setDefaultValue(1, 20.00001); // looks the same
    QVERIFY(row.isAtDefault());
    row.field(1)->setMax(50);
    row.setDefaultValue(1, 80);
    QVERIFY(!row.isAtDefault());
    row.reset();
    QCOMPARE(row.value(1), 50.0);
    QVERIFY(row.isAtDefault() && !reset.isEnabled());
    row.reset();
    QCOMPARE(stage.heard.taken(), QByteArray("1 commit"));

    row.setValue(0, 9);
    reset.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&reset, Qt::Key_Space);
    QVERIFY(row.field(0)->hasFocus()); // not the neighbour of the button, which is disabled by now
    QCOMPARE(row.value(0), 0.0);
}

void AttributeRowTest::connectionsComeFromOtherRowsOnly()
{
    Stage stage;
    auto* other = new AttributeRow(u"Other"_qs);
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
    const auto drops = [&](AttributeRow* from) {
        auto* const connection = ConnectionInstance::start(from->pickWhip(), {}, nullptr);
        connection->moveTo(stage.row->mapToGlobal(stage.row->rect().center()));
        connection->drop();
        return connection->state() == ConnectionInstance::State::Dropped;
    };
    QVERIFY(!drops(other));
    stage.row->setConnectionsAccepted(true);
    QVERIFY(drops(other));
    QVERIFY(!drops(stage.row));
    wanted = false;
    QVERIFY(!drops(other));
    stage.row->setConnectionsAccepted(false);
    QVERIFY(!stage.row->areConnectionsAccepted());
    QCOMPARE(dropped, QList<QObject*>({other->pickWhip()}));
    ui::test::FakeClock(qApp).advanceAnimations(10000); // no line over the next test's window
}

void AttributeRowTest::aRowMayDieInAnyOfItsSignals()
{
    const std::function<void(Stage&)> acts[] = {
        [](Stage& stage) { stage.click("reset"); },
        [](Stage& stage) { stage.drag(0, 40); },
        [](Stage& stage) {
            stage.type(0, "33");
            stage.click("keyframe");
        },
        [](Stage& stage) {
            stage.row->setLinkable(true);
            stage.row->setLinked(true);
            stage.type(0, "33", Qt::Key_Return);
        }};
    for (const auto& act : acts) {
        Stage stage;
        QPointer<AttributeRow> row = stage.row;
        connect(row, &AttributeRow::valueChanged, this, [&row] { delete row; });
        act(stage);
        QVERIFY(!row);
    }
}

void AttributeRowTest::tabGoesThroughTheRowsAsTheEyeDoes()
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
        const QString parts = u"%1|%1: lock values together|%1, 1 of 2|%1, 2 of 2|%1|%1: reset"
                              u"|%1: keyframe|%1: connect"_qs;
        expected << parts.arg(name).split(u'|');
    }
    QStringList visited;
    for (QWidget* part = window.nextInFocusChain(); part != &window;
         part = part->nextInFocusChain()) {
        if ((part->focusPolicy() & Qt::TabFocus) != 0 && part->isVisibleTo(&window)) {
            visited << nameOf(part);
        }
    }
    QCOMPARE(visited, expected);
}

void AttributeRowTest::rowsKeepTheirColumns()
{
    Stage stage;
    AttributeRow bare(u"A name that is too long for its column"_qs);
    bare.addField(1);
    bare.setPickWhipShown(false);
    bare.setKeyframesShown(false);
    stage.row->setLinkable(true);
    bare.resize(stage.row->size());
    bare.show();
    for (const int width : {90, 200, 0}) { // 0 is the usual one again
        bare.setNameWidth(width);
        QCoreApplication::processEvents();
        QVERIFY(bare.field(0)->x() >= width && (width == 0 || bare.field(0)->x() < width + 10));
    }
    const NumericField& last = *stage.row->field(2);
    QCOMPARE(bare.field(0)->x(), stage.row->field(0)->x());
    QCOMPARE(bare.field(0)->geometry().right(), last.geometry().right());
    bare.setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::processEvents();
    QVERIFY(bare.pickWhip()->x() < bare.field(0)->x());
}

void AttributeRowTest::badArgumentsChangeNothing()
{
    Stage stage;
    AttributeRow& row = *stage.row;
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
    stage.row->setName(u"50 %2"_qs); // no place marker, whatever it looks like
    QCOMPARE(nameOf(stage.row->field(2)), u"50 %2, 3 of 3"_qs);
    QCOMPARE(nameOf(stage.row->keyframeButton()), u"50 %2: keyframe"_qs);
    QCOMPARE(nameOf(stage.row), u"50 %2"_qs);
    const auto* const group = QAccessible::queryAccessibleInterface(stage.row);
    QCOMPARE(group->role(), QAccessible::Grouping);
    AttributeRow single(u"Opacity"_qs);
    QCOMPARE(nameOf(single.addField(1)), u"Opacity"_qs);
}

void AttributeRowTest::theDiamondTellsTheState()
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
    button.setToolTip(u"Key of the host's"_qs);
    button.setState(KeyState::Animated);
    QCOMPARE(button.toolTip(), u"Key of the host's"_qs);
    QCOMPARE(button.accessibleDescription(), u"Animated"_qs);
}

const ui::test::Registration<AttributeRowTest> kRegistration;

#include "tst_attributerow.moc"
