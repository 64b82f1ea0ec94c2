#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/pixels.h"
#include <MorrantUI/controls/values/LineEdit.h>
#include <MorrantUI/controls/values/RenamableLabel.h>
#include <MorrantUI/controls/values/RolloverLabel.h>

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
    RenamableLabel label{u"Title"_qs};
    QLineEdit other;
    QHBoxLayout layout;
    QStringList told;
};

using Door = std::function<void(Named&)>;

Door labelKey(Qt::Key key)
{
    return [key](Named& named) { QTest::keyClick(&named.label, key); };
}

Door editorKey(Qt::Key key)
{
    return [key](Named& named) { QTest::keyClick(named.editor(), key); };
}

/// What a widget answers to the request for a tool tip; empty if it shows none.
QString toolTipOf(QWidget& widget)
{
    QToolTip::hideText();
    if (!QTest::qWaitFor([] { return !QToolTip::isVisible(); })) { // it fades after a moment
        return u"(a tool tip does not go away)"_qs;
    }
    QHelpEvent request(QEvent::ToolTip, {5, 5}, widget.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&widget, &request);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

} // namespace

class LabelsTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aNameOpensWithAllOfItSelected();
    void everyDoorTakesTheNameAndEscapeRestores_data();
    void everyDoorTakesTheNameAndEscapeRestores();
    void onlyAnotherNameIsTold();
    void theKeyboardStaysAtTheLabelAfterReturn();
    void neitherTheEditorsOwnMenuNorTheHostEndsTheEditing();
    void aLabelThatCannotBeRenamedStaysShut();
    void aLabelMayDieInItsSlot();
    void aNameIsWholeInTheWidthItAsksFor();
    void aNameThatDoesNotFitIsShownWholeInItsToolTip();
    void assistiveToolsRename();
    void aLinkIsOnlyWhereItsTextIs();
    void aLinkLightsUpAndIsClickedByKeys();
};

void LabelsTest::aNameOpensWithAllOfItSelected()
{
    const Door doubleClick = [](Named& named) { QTest::mouseDClick(&named.label, Qt::LeftButton); };
    for (const Door& open :
         {labelKey(Qt::Key_F2), labelKey(Qt::Key_Return), labelKey(Qt::Key_Enter), doubleClick})
    {
        Named named;
        QTest::mouseClick(&named.label, Qt::LeftButton);
        QTest::mouseDClick(&named.label, Qt::RightButton);
        QVERIFY(!named.label.isEditing());
        open(named);
        QVERIFY(named.isOpen() && named.editor()->hasFocus());
        QCOMPARE(named.editor()->selectedText(), u"Title"_qs);
        QCOMPARE(named.editor()->geometry(), named.label.rect());
    }
}

void LabelsTest::everyDoorTakesTheNameAndEscapeRestores_data()
{
    QTest::addColumn<Door>("leave");
    const auto add = [](const char* name, const Door& leave) { QTest::newRow(name) << leave; };
    add("Return", editorKey(Qt::Key_Return));
    add("Tab", editorKey(Qt::Key_Tab));
    add("Escape", editorKey(Qt::Key_Escape));
    add("focus", [](Named& named) { named.other.setFocus(); });
    add("hidden", [](Named& named) { named.label.hide(); });
    add("window closed", [](Named& named) { named.window.close(); });
    add("parent disabled", [](Named& named) { named.window.setEnabled(false); });
    add("not renamable any more", [](Named& named) { named.label.setRenamable(false); });
    add("window deactivated", [](Named& named) {
        QFocusEvent lost(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QCoreApplication::sendEvent(named.editor(), &lost);
    });
}

void LabelsTest::everyDoorTakesTheNameAndEscapeRestores()
{
    QFETCH(const Door, leave);
    const bool restores = QLatin1String(QTest::currentDataTag()) == QLatin1String("Escape");
    const QString expected = QLatin1String(restores ? "Title" : "Caption");
    Named named;
    named.label.startEditing();
    named.type(u"Caption"_qs);
    QCOMPARE(named.label.text(), u"Title"_qs);
    leave(named);
    QVERIFY(!named.label.isEditing());
    QVERIFY(!named.editor()->isVisible());
    QCOMPARE(named.label.text(), expected);
    QCOMPARE(named.told, restores ? QStringList() : QStringList(expected));

    named.window.setEnabled(true);
    named.label.setRenamable(true);
    named.window.show();
    named.label.show();
    named.label.startEditing();
    QCOMPARE(named.editor()->text(), expected);
}

void LabelsTest::onlyAnotherNameIsTold()
{
    for (const char* const entered : {"Title", "", "  ", " Title ", " B 2 "}) {
        Named named;
        named.label.startEditing();
        named.editor()->setText(QLatin1String(entered));
        QTest::keyClick(named.editor(), Qt::Key_Return);
        const bool isNew = qstrcmp(entered, " B 2 ") == 0;
        QCOMPARE(named.label.text(), QLatin1String(isNew ? "B 2" : "Title"));
        QCOMPARE(named.told.count(), isNew ? 1 : 0);
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

void LabelsTest::neitherTheEditorsOwnMenuNorTheHostEndsTheEditing()
{
    Named named;
    named.label.startEditing();
    named.type(u"Caption"_qs);
    QFocusEvent toMenu(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(named.editor(), &toMenu);
    named.label.setText(u"Undone"_qs);
    QVERIFY(named.isOpen());
    QCOMPARE(named.editor()->text(), u"Caption"_qs);
    QTest::keyClick(named.editor(), Qt::Key_Escape);
    QCOMPARE(named.label.text(), u"Undone"_qs);
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
    named.label.rename(u"Caption"_qs);
    named.label.setRenamable(true);
    QCOMPARE(named.label.focusPolicy(), Qt::StrongFocus);
    named.label.setEnabled(false);
    named.label.startEditing();
    named.label.setEnabled(true);
    named.label.hide();
    named.label.startEditing();
    QVERIFY(!named.label.isEditing());
    QCOMPARE(named.label.text(), u"Title"_qs);
}

void LabelsTest::aLabelMayDieInItsSlot()
{
    for (const bool byKey : {true, false}) {
        QWidget window;
        QLineEdit other(&window);
        QPointer<RenamableLabel> label(new RenamableLabel(u"Title"_qs, &window));
        connect(label, &RenamableLabel::renamed, &window, [&] { delete label; });
        window.show();
        QApplication::setActiveWindow(&window);
        label->startEditing();
        auto* const editor = label->findChild<LineEdit*>();
        editor->setText(u"Caption"_qs);
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
    const QString names =
        u"Position|Rotation|Layer 1|Text|Anchor point|Fill & Stroke|Trim path|W"_qs;
    for (const QString& name : names.split(u'|')) {
        RenamableLabel label(name);
        label.resize(label.sizeHint());
        label.show();
        QVERIFY2(toolTipOf(label).isEmpty(), qPrintable(name)); // as it has for a name that is cut
    }
}

void LabelsTest::aNameThatDoesNotFitIsShownWholeInItsToolTip()
{
    const QString name = u"<b>A rather long name</b>"_qs;
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
        widget->setToolTip(u"Its own"_qs);
        QCOMPARE(toolTipOf(*widget), u"Its own"_qs);
    }
}

void LabelsTest::assistiveToolsRename()
{
    Named named;
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&named.label);
    QCOMPARE(seen->text(QAccessible::Name), u"Title"_qs);
    named.label.setAccessibleName(u"Layer name"_qs);
    QCOMPARE(seen->text(QAccessible::Name), u"Layer name"_qs);
    QCOMPARE(seen->text(QAccessible::Value), u"Title"_qs);
    QVERIFY(seen->state().editable && seen->state().focusable);
    seen->setText(QAccessible::Value, u"Caption"_qs);
    QCOMPARE(named.told, QStringList(u"Caption"_qs));
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(named.isOpen());
}

void LabelsTest::aLinkIsOnlyWhereItsTextIs()
{
    RolloverLabel link(u"Reset"_qs);
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
    RolloverLabel link(u"Reset"_qs, &window);
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
    QCOMPARE(seen->text(QAccessible::Name), u"Reset"_qs);
}

const ui::test::Registration<LabelsTest> kRegistration;

#include "tst_labels.moc"
