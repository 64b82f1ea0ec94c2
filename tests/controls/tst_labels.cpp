#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/controls/LineEdit.h>
#include <MorrantUI/controls/RenamableLabel.h>
#include <MorrantUI/controls/RolloverLabel.h>

#include <QtWidgets>

#include <functional>

using ui::test::FakePointer;

namespace {

/// A shown label beside a line edit, with what it has told.
struct Named
{
    Named()
        : layout(&window)
    {
        layout.addWidget(&label);
        layout.addWidget(&other);
        QObject::connect(&label, &RenamableLabel::renamed, &window, [this](const QString& name) {
            told << name;
        });
        window.show();
        QApplication::setActiveWindow(&window);
        label.setFocus();
    }

    LineEdit* editor() const { return label.findChild<LineEdit*>(); }
    bool isOpen() const { return label.isEditing() && editor()->isVisible(); }
    void type(const QString& name) const
    {
        editor()->selectAll();
        QTest::keyClicks(editor(), name);
    }

    QWidget window;
    RenamableLabel label{QStringLiteral("Title")};
    QLineEdit other;
    QHBoxLayout layout;
    QStringList told;
};

using Door = std::function<void(Named&)>;

/// What a widget answers to the request for a tool tip; empty if it shows none.
QString toolTipOf(QWidget& widget)
{
    QToolTip::hideText();
    if (!QTest::qWaitFor([] { return !QToolTip::isVisible(); })) { // it fades after a moment
        return QStringLiteral("(a tool tip does not go away)");
    }
    QHelpEvent request(QEvent::ToolTip, {5, 5}, widget.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&widget, &request);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

} // namespace

class LabelsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aNameOpensWithAllOfItSelected();
    void everyDoorTakesTheNameAndEscapeRestores_data();
    void everyDoorTakesTheNameAndEscapeRestores();
    void onlyAnotherNameIsTold();
    void theKeyboardStaysAtTheLabelAfterReturn();
    void theEditorsOwnMenuDoesNotEndTheEditing();
    void escapeRestoresWhatTheHostHasSetMeanwhile();
    void aLabelThatCannotBeRenamedStaysShut();
    void aLabelMayDieInItsSlot();
    void aNameIsWholeInTheWidthItAsksFor();
    void aNameThatDoesNotFitIsShownWholeInItsToolTip();
    void assistiveToolsRename();
    void aLinkIsOnlyWhereItsTextIs();
    void aLinkLightsUpAndIsClickedByKeys();

private:
    ui::test::StyledApplication m_application;
};

void LabelsTest::aNameOpensWithAllOfItSelected()
{
    const auto key = [](Qt::Key which) {
        return Door([which](Named& named) { QTest::keyClick(&named.label, which); });
    };
    for (const Door& open :
         {key(Qt::Key_F2), key(Qt::Key_Return), key(Qt::Key_Enter), Door([](Named& named) {
              QTest::mouseDClick(&named.label, Qt::LeftButton);
          })})
    {
        Named named;
        QTest::mouseClick(&named.label, Qt::LeftButton);
        QTest::mouseDClick(&named.label, Qt::RightButton);
        QVERIFY(!named.label.isEditing());
        open(named);
        QVERIFY(named.isOpen() && named.editor()->hasFocus());
        QCOMPARE(named.editor()->selectedText(), QStringLiteral("Title"));
        QCOMPARE(named.editor()->geometry(), named.label.rect());
    }
}

void LabelsTest::everyDoorTakesTheNameAndEscapeRestores_data()
{
    QTest::addColumn<Door>("leave");
    QTest::addColumn<QString>("expected");
    const QString entered = QStringLiteral("Caption");
    const auto key = [](Qt::Key which) {
        return Door([which](Named& named) { QTest::keyClick(named.editor(), which); });
    };
    QTest::newRow("Return") << key(Qt::Key_Return) << entered;
    QTest::newRow("Tab") << key(Qt::Key_Tab) << entered;
    QTest::newRow("Escape") << key(Qt::Key_Escape) << QStringLiteral("Title");
    QTest::newRow("focus") << Door([](Named& named) { named.other.setFocus(); }) << entered;
    QTest::newRow("hidden") << Door([](Named& named) { named.label.hide(); }) << entered;
    QTest::newRow("window closed") << Door([](Named& named) { named.window.close(); }) << entered;
    QTest::newRow("disabled") << Door([](Named& named) { named.label.setEnabled(false); })
                              << entered;
    QTest::newRow("parent disabled")
        << Door([](Named& named) { named.window.setEnabled(false); }) << entered;
    QTest::newRow("not renamable any more")
        << Door([](Named& named) { named.label.setRenamable(false); }) << entered;
    QTest::newRow("window deactivated") << Door([](Named& named) {
        QFocusEvent lost(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QCoreApplication::sendEvent(named.editor(), &lost);
    }) << entered;
}

void LabelsTest::everyDoorTakesTheNameAndEscapeRestores()
{
    QFETCH(Door, leave);
    QFETCH(QString, expected);
    Named named;
    named.label.startEditing();
    named.type(QStringLiteral("Caption"));
    QCOMPARE(named.label.text(), QStringLiteral("Title"));
    leave(named);
    QVERIFY(!named.label.isEditing());
    QVERIFY(!named.editor()->isVisible());
    QCOMPARE(named.label.text(), expected);
    QCOMPARE(
        named.told, expected == QStringLiteral("Title") ? QStringList() : QStringList(expected));

    named.window.setEnabled(true);
    named.label.setEnabled(true);
    named.label.setRenamable(true);
    named.window.show();
    named.label.show();
    named.label.startEditing();
    QCOMPARE(named.editor()->text(), expected);
}

void LabelsTest::onlyAnotherNameIsTold()
{
    for (const auto& [entered, expected] : std::initializer_list<std::pair<QString, QString>>{
             {QStringLiteral("Title"), QStringLiteral("Title")},
             {QString(), QStringLiteral("Title")},
             {QStringLiteral("  "), QStringLiteral("Title")},
             {QStringLiteral(" Title "), QStringLiteral("Title")},
             {QStringLiteral(" B 2 "), QStringLiteral("B 2")}})
    {
        Named named;
        named.label.startEditing();
        named.editor()->setText(entered);
        QTest::keyClick(named.editor(), Qt::Key_Return);
        QCOMPARE(named.label.text(), expected);
        QCOMPARE(named.told.count(), expected == QStringLiteral("Title") ? 0 : 1);
    }
}

void LabelsTest::theKeyboardStaysAtTheLabelAfterReturn()
{
    Named named;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        QTest::keyClick(&named.label, Qt::Key_F2);
        QTest::keyClick(named.editor(), key);
        QVERIFY(named.label.hasFocus());
    }
    QTest::keyClick(&named.label, Qt::Key_F2);
    named.other.setFocus();
    QVERIFY2(named.other.hasFocus(), "the label does not take it back");
    named.label.startEditing();
    QTest::keyClick(named.editor(), Qt::Key_Tab);
    QVERIFY(named.other.hasFocus()); // next to the label, although the editor was made last
}

void LabelsTest::theEditorsOwnMenuDoesNotEndTheEditing()
{
    Named named;
    named.label.startEditing();
    QFocusEvent toMenu(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(named.editor(), &toMenu);
    QVERIFY(named.isOpen());
}

void LabelsTest::escapeRestoresWhatTheHostHasSetMeanwhile()
{
    Named named;
    named.label.startEditing();
    named.type(QStringLiteral("Caption"));
    named.label.setText(QStringLiteral("Undone"));
    QCOMPARE(named.editor()->text(), QStringLiteral("Caption"));
    QTest::keyClick(named.editor(), Qt::Key_Escape);
    QCOMPARE(named.label.text(), QStringLiteral("Undone"));
    QVERIFY(named.told.isEmpty());
}

void LabelsTest::aLabelThatCannotBeRenamedStaysShut()
{
    Named named;
    named.label.setRenamable(false);
    QVERIFY(named.other.hasFocus()); // it is no place for the keyboard any more
    QCOMPARE(named.label.focusPolicy(), Qt::NoFocus);
    QTest::keyClick(&named.label, Qt::Key_F2);
    QTest::mouseDClick(&named.label, Qt::LeftButton);
    named.label.rename(QStringLiteral("Caption"));
    named.label.setRenamable(true);
    QCOMPARE(named.label.focusPolicy(), Qt::StrongFocus);
    named.label.setEnabled(false);
    named.label.startEditing();
    named.label.setEnabled(true);
    named.label.hide();
    named.label.startEditing();
    QVERIFY(!named.label.isEditing());
    QCOMPARE(named.label.text(), QStringLiteral("Title"));
}

void LabelsTest::aLabelMayDieInItsSlot()
{
    for (const bool byKey : {true, false}) {
        QWidget window;
        QLineEdit other(&window);
        QPointer<RenamableLabel> label(new RenamableLabel(QStringLiteral("Title"), &window));
        connect(label, &RenamableLabel::renamed, &window, [&] { delete label; });
        window.show();
        QApplication::setActiveWindow(&window);
        label->startEditing();
        auto* const editor = label->findChild<LineEdit*>();
        editor->setText(QStringLiteral("Caption"));
        if (byKey) {
            QTest::keyPress(editor, Qt::Key_Return);
        } else {
            other.setFocus();
        }
        QVERIFY(!label);
    }
}

void LabelsTest::aNameIsWholeInTheWidthItAsksFor()
{
    for (const char* const name :
         {"Position",
          "Rotation",
          "Layer 1",
          "Text",
          "Opacity",
          "Anchor point",
          "Scale",
          "Colour",
          "Fill & Stroke",
          "Trim path",
          "Blend mode",
          "W"})
    {
        RenamableLabel label(QString::fromLatin1(name));
        label.resize(label.sizeHint());
        label.show();
        QVERIFY2(toolTipOf(label).isEmpty(), name); // as it has for a name that is cut
    }
}

void LabelsTest::aNameThatDoesNotFitIsShownWholeInItsToolTip()
{
    const QString name = QStringLiteral("<b>A rather long name</b>");
    QWidget window; // which may be as wide as it likes
    RenamableLabel label(name, &window);
    RolloverLabel link(name, &window);
    window.resize(400, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (QWidget* widget : {static_cast<QWidget*>(&label), static_cast<QWidget*>(&link)}) {
        widget->resize(widget->sizeHint());
        QCOMPARE(toolTipOf(*widget), QString());
        widget->resize(60, widget->height());
        QVERIFY(widget->minimumSizeHint().width() < 60);
        const QString shown = toolTipOf(*widget);
        QCOMPARE(QTextDocumentFragment::fromHtml(shown).toPlainText(), name);
        widget->setToolTip(QStringLiteral("Its own"));
        QCOMPARE(toolTipOf(*widget), QStringLiteral("Its own"));
    }
}

void LabelsTest::assistiveToolsRename()
{
    Named named;
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&named.label);
    QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Title"));
    named.label.setAccessibleName(QStringLiteral("Layer name"));
    QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Layer name"));
    QCOMPARE(seen->text(QAccessible::Value), QStringLiteral("Title"));
    QVERIFY(seen->state().editable && seen->state().focusable);
    seen->setText(QAccessible::Value, QStringLiteral("Caption"));
    QCOMPARE(named.told, QStringList(QStringLiteral("Caption")));
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(named.isOpen());
}

void LabelsTest::aLinkIsOnlyWhereItsTextIs()
{
    RolloverLabel link(QStringLiteral("Reset"));
    link.resize(300, 30);
    link.show();
    QVERIFY(QTest::qWaitForWindowExposed(&link));
    QSignalSpy clicked(&link, &QAbstractButton::clicked);
    FakePointer pointer(&link);
    const auto clickAt = [&](int x) {
        pointer.moveTo({x, 15});
        pointer.press();
        pointer.release();
        return std::exchange(static_cast<QList<QVariantList>&>(clicked), {}).count();
    };
    QCOMPARE(clickAt(200), 0);
    QCOMPARE(link.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(clickAt(15), 1);
    QCOMPARE(link.cursor().shape(), Qt::PointingHandCursor);
    pointer.moveTo({200, 15});
    QCOMPARE(link.cursor().shape(), Qt::ArrowCursor);

    link.setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    QCOMPARE(clickAt(15), 0);
    QCOMPARE(clickAt(285), 1);
    link.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(clickAt(15), 1);
}

void LabelsTest::aLinkLightsUpAndIsClickedByKeys()
{
    QWidget window;
    RolloverLabel link(QStringLiteral("Reset"), &window);
    link.setGeometry({{30, 30}, link.sizeHint()}); // off the place where some systems start
    window.resize(200, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    FakePointer pointer(&window);
    pointer.moveTo({90, 90});
    const QImage atRest = ui::test::renderWidget(link);
    pointer.moveTo({45, 41});
    QVERIFY(ui::test::renderWidget(link) != atRest);
    pointer.moveTo({90, 90});
    QCOMPARE(ui::test::renderWidget(link), atRest);

    QSignalSpy clicked(&link, &QAbstractButton::clicked);
    QTest::keyClick(&link, Qt::Key_Return);
    QTest::keyClick(&link, Qt::Key_Space);
    QCOMPARE(clicked.count(), 2);
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&link);
    QCOMPARE(seen->role(), QAccessible::Link);
    QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Reset"));
}

const ui::test::Registration<LabelsTest> kRegistration;

#include "tst_labels.moc"
