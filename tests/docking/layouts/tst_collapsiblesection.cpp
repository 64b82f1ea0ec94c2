// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include <MorrantUI/docking/layouts/CollapsibleSection.h>

using ui::test::FakeClock;

namespace {

constexpr int kDuration = 100; ///< milliseconds

/// A content of a fixed wish with a field in it.
class Content : public QWidget
{
public:
    explicit Content(int height)
        : m_height(height)
    {
        field->setGeometry(2, 2, 40, 20);
    }

    QSize sizeHint() const override { return {80, m_height}; }
    void want(int height)
    {
        m_height = height;
        updateGeometry();
    }

    QLineEdit* field = new QLineEdit(this);

private:
    int m_height;
};

/// A section above an empty rest, in a shown window.
struct Panel
{
    Panel()
        : content(new Content(60))
    {
        section->setContent(content);
        section->setAnimationDuration(kDuration);
        auto* column = new QVBoxLayout(&window);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(0);
        column->addWidget(section);
        column->addStretch(1);
        window.resize(200, 400);
        ui::test::showActive(window);
        header = section->findChild<QAbstractButton*>();
    }

    /// Of what is uncovered; each layout tells the one around it by an event of its own.
    int height()
    {
        for (int level = 0; level < 6; ++level) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        }
        return section->height() - header->height();
    }
    void advance(int time = kDuration) { FakeClock(&window).advanceAnimations(time); }
    /// @return the height at the end
    int toggle()
    {
        section->toggle();
        advance();
        return height();
    }

    QWidget window;
    CollapsibleSection* section = new CollapsibleSection(u"Transform"_qs);
    QPointer<Content> content;
    QAbstractButton* header = nullptr;
};

} // namespace

class CollapsibleSectionTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void foldingUncoversAPartAtATimeAndTurnsRound()
    {
        Panel panel;
        QSignalSpy changes(panel.section, &CollapsibleSection::expandedChanged);
        QTest::mouseClick(panel.header, Qt::LeftButton);
        QCOMPARE(changes.takeFirst().first().toBool(), false);
        panel.advance(kDuration / 2);
        QCOMPARE(panel.section->openness(), 0.5);
        QCOMPARE(panel.height(), 30);
        QCOMPARE(panel.content->height(), 60); // uncovered, not squeezed
        QCOMPARE(panel.toggle(), 60);          // from where it was
        panel.section->toggle();
        panel.advance();
        QVERIFY(panel.height() == 0 && !panel.content->isVisible());
        changes.clear();
        panel.section->setExpanded(true);
        panel.section->setExpanded(true);
        QCOMPARE(changes.size(), 1);
        QVERIFY(panel.content->isVisible() && panel.height() == 0);
        panel.section->finishAnimation();
        QCOMPARE(panel.height(), 60);
        connect(panel.section, &CollapsibleSection::expandedChanged, panel.section, [&] {
            panel.section->setExpanded(true); // refused by a slot
        });
        QCOMPARE(panel.toggle(), 60);
        QVERIFY(panel.section->isExpanded() && panel.content->isVisible());
    }

    void keysFoldAndUnfold()
    {
        Panel panel;
        panel.header->setFocus();
        const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            QTest::keyClick(panel.header, key, modifiers);
            panel.advance();
            return panel.section->isExpanded();
        };
        QVERIFY(!press(Qt::Key_Left) && !press(Qt::Key_Left));
        QVERIFY(!press(Qt::Key_Right, Qt::AltModifier) && press(Qt::Key_Right));
        QVERIFY(!press(Qt::Key_Space) && press(Qt::Key_Return));
        panel.window.setLayoutDirection(Qt::RightToLeft);
        QVERIFY(!press(Qt::Key_Right) && press(Qt::Key_Left));
    }

    void foldedContentIsOutOfReach()
    {
        Panel panel;
        auto* after = new QLineEdit;
        panel.window.layout()->addWidget(after);
        after->show();
        panel.content->field->setFocus();
        panel.section->setExpanded(false);
        QVERIFY(panel.header->hasFocus());
        panel.advance();
        QTest::keyClick(panel.header, Qt::Key_Tab);
        QVERIFY(after->hasFocus());
        panel.toggle();
        QTest::keyClick(after, Qt::Key_Backtab);
        QVERIFY(panel.content->field->hasFocus());
        auto* late = new QLineEdit; // comes to the same place
        panel.section->setContent(late);
        after->setFocus();
        QTest::keyClick(after, Qt::Key_Backtab);
        QVERIFY(late->hasFocus());
    }

    void theContentComesBackAsHighAsItWas()
    {
        Panel panel;
        auto* column = static_cast<QBoxLayout*>(panel.window.layout());
        column->setStretchFactor(panel.section, 1);
        column->setStretch(1, 1);
        QTRY_VERIFY(panel.height() > 60); // the window gives it more than it wants
        const int given = panel.height();
        panel.toggle();
        panel.section->toggle();
        panel.advance(kDuration - 1);
        QVERIFY(panel.height() >= given - 1);
        QCOMPARE(panel.content->height(), given); // no jump at the end
        panel.advance();
        QCOMPARE(panel.height(), given);

        Panel second;
        second.toggle();
        second.content->want(90); // while it is folded
        QCOMPARE(second.toggle(), 90);
        second.content->want(40); // and unfolded
        QTRY_COMPARE(second.height(), 40);
        second.content->hide(); // by its host
        second.toggle();
        QVERIFY(second.toggle() == 0 && second.content->isHidden());
        second.content->show();
        QTRY_COMPARE(second.height(), 40);
    }

    void nestedSectionsMoveTheOnesAround()
    {
        Panel panel;
        auto* outer = new QWidget;
        auto* column = new QVBoxLayout(outer);
        column->setContentsMargins(0, 0, 0, 0);
        auto* inner = new CollapsibleSection(u"Advanced"_qs);
        inner->setAnimationDuration(kDuration);
        inner->setContent(new Content(50));
        column->addWidget(inner);
        panel.section->setContent(outer);
        const int header = inner->findChild<QAbstractButton*>()->sizeHint().height();
        QTRY_COMPARE(panel.height(), header + 50);
        inner->toggle();
        panel.advance(kDuration / 2);
        QTRY_COMPARE(panel.height(), header + 25);
        panel.advance();
        QTRY_COMPARE(panel.height(), header);
        panel.toggle();
        inner->toggle(); // inside of what is folded
        QCOMPARE(inner->openness(), 1.0);
        panel.toggle();
        QTRY_COMPARE(panel.height(), header + 50);
    }

    void nothingMovesWhileItIsHidden()
    {
        CollapsibleSection section;
        section.setContent(new Content(60));
        const int unfolded = section.sizeHint().height();
        section.setExpanded(false);
        QCOMPARE(section.openness(), 0.0);
        QCOMPARE(section.sizeHint().height(), unfolded - 60);
        section.setExpanded(true);
        QCOMPARE(section.sizeHint().height(), unfolded);
        Panel panel;
        panel.section->toggle();
        panel.window.hide(); // in the middle
        QCOMPARE(panel.section->openness(), 0.0);
        panel.section->setAnimationDuration(0);
        panel.window.show();
        panel.section->toggle();
        QCOMPARE(panel.section->openness(), 1.0);
    }

    void contentsAreReplacedAndTaken()
    {
        Panel panel;
        CollapsibleSection& section = *panel.section;
        const QPointer<Content> first = panel.content;
        connect(first->field, &QLineEdit::textEdited, &section, [&] { // even in its own slot
            section.setContent(new Content(30));
        });
        QTest::keyClicks(first->field, u"a"_qs);
        QVERIFY(!first->parentWidget() && !first->isVisible());
        QTRY_VERIFY(first.isNull());
        QTRY_COMPARE(panel.height(), 30);
        QWidget* const second = section.content();
        section.setContent(&panel.window); // around itself
        section.setContent(&section);
        QCOMPARE(section.content(), second);
        CollapsibleSection other; // where it goes to is not forgotten, where it was is
        other.setContent(second);
        QVERIFY(!section.content() && !section.takeContent());
        section.setContent(other.takeContent());
        QCOMPARE(section.content(), second);
        QTRY_COMPARE(panel.height(), 30);
        other.setContent(second);
        section.setContent(nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const std::unique_ptr<QWidget> taken(other.takeContent());
        QVERIFY(taken.get() == second && !taken->parentWidget() && !taken->isVisible());
        QTRY_COMPARE(panel.height(), 0);
        section.setContent(new Content(20));
        delete section.content(); // from outside
        panel.toggle();
        QCOMPARE(section.content(), nullptr);
    }

    void theHeaderTellsItsTitleAndState()
    {
        constexpr int kEdge = 6; // behind the title
        Panel panel;
        QAccessibleInterface& accessible = *QAccessible::queryAccessibleInterface(panel.header);
        QVERIFY(accessible.state().expanded && !accessible.state().collapsed);
        for (const double ratio : {1.0, 2.0}) {
            panel.section->setExpanded(true);
            panel.advance();
            const QImage unfolded = ui::test::renderWidget(*panel.header, ratio);
            panel.toggle();
            QVERIFY(accessible.state().collapsed && !accessible.state().expanded);
            QVERIFY(ui::test::renderWidget(*panel.header, ratio) != unfolded); // the chevron
        }
        for (const QString& title : {u"Position"_qs, u"Layer 1"_qs, u"Fill & Stroke"_qs}) {
            panel.section->setTitle(title);
            QCOMPARE(panel.section->title(), title);
            QCOMPARE(accessible.text(QAccessible::Name), title);
            QVERIFY(panel.header->shortcut().isEmpty());
            const QSize hint = panel.header->sizeHint(); // shows it whole
            const QRect shared(0, 0, hint.width() - kEdge, hint.height());
            panel.header->resize(hint);
            const QImage asked = ui::test::renderWidget(*panel.header, 1.0).copy(shared);
            panel.header->resize(hint + QSize(60, 0));
            QVERIFY(ui::test::renderWidget(*panel.header, 1.0).copy(shared) == asked);
        }
    }
};

const ui::test::Registration<CollapsibleSectionTest> kRegistration;
#include "tst_collapsiblesection.moc"
