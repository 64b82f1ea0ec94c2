// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"

using namespace ui::test;

namespace {

struct Named : Bench<RenamableLabel>
{
    Named()
        : Bench({120, 24}, u"Title"_qs)
    {}

    LineEdit* editor() const { return control->findChild<LineEdit*>(); }
};

using Door = std::function<void(Named&)>;

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

class LabelsTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aNameOpensWithAllOfItSelectedAndClosesUnchanged()
    {
        for (const char* const open : {"F2", "Return", "Enter", "double"}) {
            Named named;
            named.play("click");
            QTest::mouseDClick(named.control, Qt::RightButton);
            QVERIFY(!named.control->isEditing());
            named.play(open);
            QVERIFY(named.control->isEditing() && named.editor()->hasFocus());
            QCOMPARE(named.editor()->selectedText(), u"Title"_qs);
            QCOMPARE(named.editor()->geometry(), named.control->rect());
            for (const char* const entered : {"Title", "", "  ", " Title "}) {
                named.control->startEditing();
                named.editor()->setText(QLatin1String(entered));
                named.play("Return");
                QCOMPARE(named.control->text(), u"Title"_qs);
                QVERIFY(named.control->hasFocus()); // for the keys that come next
            }
            named.follow({{"", ""}, {"F2 =+Cap Return", "C", "+Cap"}});
        }
    }

    /// Beside Return, Tab and Escape, which CommitTest has.
    void everyDoorTakesTheName()
    {
        const Door doors[] = {
            [](Named& named) { named.control->hide(); },
            [](Named& named) { named.window->setEnabled(false); },
            [](Named& named) { named.control->setRenamable(false); },
            [](Named& named) {
                QFocusEvent lost(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
                QCoreApplication::sendEvent(named.editor(), &lost);
            }};
        for (const Door& leave : doors) {
            Named named;
            named.follow({{"F2 =Caption", "", "Title"}});
            leave(named);
            QVERIFY(!named.control->isEditing() && !named.editor()->isVisible());
            named.follow({{"", "C", "Caption"}});
        }
    }

    void neitherTheEditorsOwnMenuNorTheHostEndsTheEditing()
    {
        Named named;
        named.play("F2 =Caption");
        QFocusEvent toMenu(QEvent::FocusOut, Qt::PopupFocusReason);
        QCoreApplication::sendEvent(named.editor(), &toMenu);
        named.control->setText(u"Undone"_qs);
        QVERIFY(named.control->isEditing() && named.editor()->isVisible());
        QCOMPARE(named.editor()->text(), u"Caption"_qs);
        named.follow({{"Escape", "", "Undone"}});
        QVERIFY(named.control->hasFocus());
        named.follow({{"F2 Tab", "", "Undone"}});
        QVERIFY(named.other->hasFocus()); // next to the label, although the editor was made last
    }

    void aLabelThatCannotBeRenamedStaysShut()
    {
        Named named;
        named.play("in");
        named.control->setRenamable(false);
        QVERIFY(named.other->hasFocus()); // it is no place for the keyboard any more
        QCOMPARE(named.control->focusPolicy(), Qt::NoFocus);
        named.play("F2 double");
        named.control->rename(u"Caption"_qs);
        named.control->setRenamable(true);
        QCOMPARE(named.control->focusPolicy(), Qt::StrongFocus);
        named.control->setEnabled(false);
        named.control->startEditing();
        named.control->setEnabled(true);
        named.control->hide();
        named.control->startEditing();
        QVERIFY(!named.control->isEditing());
        QCOMPARE(named.control->text(), u"Title"_qs);
    }

    void aNameThatDoesNotFitIsShownWholeInItsToolTip()
    {
        for (const QString& name : u"Position|Layer 1|Fill & Stroke|Trim path|W"_qs.split(u'|')) {
            RenamableLabel whole(name); // in the width that it asks for
            whole.resize(whole.sizeHint());
            whole.show();
            QVERIFY2(toolTipOf(whole).isEmpty(), qPrintable(name));
        }
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

    void aLinkIsOnlyWhereItsTextIs()
    {
        Bench<RolloverLabel> bench({300, 30}, u"Reset"_qs);
        RolloverLabel& link = *bench.control;
        const auto clickAt = [&](int x) {
            bench.click({x, 15});
            return bench.said().size();
        };
        bench.play("~200,15");
        const QImage rest = renderWidget(link);
        QCOMPARE(clickAt(200), 0);
        QCOMPARE(link.cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(clickAt(15), 1);
        QCOMPARE(link.cursor().shape(), Qt::PointingHandCursor);
        QVERIFY(renderWidget(link) != rest); // it lights up
        bench.play("~200,15");
        QCOMPARE(link.cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(renderWidget(link), rest);
        link.setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
        QCOMPARE(clickAt(15), 0);
        QCOMPARE(clickAt(285), 1);
        link.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(clickAt(15), 1);
    }
};

const Registration<LabelsTest> kRegistration;

#include "tst_labels.moc"
