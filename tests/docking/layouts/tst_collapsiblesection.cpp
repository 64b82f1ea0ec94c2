#include "controls/StyledApplication.h"
#include "support/FakeClock.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/docking/layouts/CollapsibleSection.h>

#include <QtWidgets>

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
    explicit Panel(int contentHeight = 60)
        : content(new Content(contentHeight))
    {
        section->setContent(content);
        section->setAnimationDuration(kDuration);
        auto* column = new QVBoxLayout(&window);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(0);
        column->addWidget(section);
        column->addStretch(1);
        window.resize(200, 400);
        window.show();
        window.activateWindow();
        exposed = QTest::qWaitForWindowActive(&window);
        header = section->findChild<QAbstractButton*>();
    }

    /// Each layout tells the one around it by an event of its own.
    static void layOut()
    {
        for (int level = 0; level < 6; ++level) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        }
    }
    int height()
    {
        layOut();
        return section->height() - header->height();
    }
    void finish() { FakeClock(&window).advanceAnimations(kDuration); }

    QWidget window;
    CollapsibleSection* section = new CollapsibleSection(QStringLiteral("Transform"));
    QPointer<Content> content;
    QAbstractButton* header = nullptr;
    bool exposed = false;
};

} // namespace

class CollapsibleSectionTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void foldingUncoversAPartAtATime();
    void aMovementTurnsRoundInTheMiddle();
    void keysFoldAndUnfold();
    void foldedContentIsOutOfReach();
    void theContentComesBackAsHighAsItWas();
    void nestedSectionsMoveTheOnesAround();
    void nothingMovesWhileItIsHidden();
    void contentsAreReplacedAndTaken();
    void contentMayAskForAnotherInItsSlot();
    void contentThatWentElsewhereIsForgotten();
    void theHostsSizePolicyComesBack();
    void contentHiddenByItsHostStaysHidden();
    void theHeaderTellsItsState();
    void aTitleIsShownWholeAndAsItIs();

private:
    ui::test::StyledApplication m_application;
};

void CollapsibleSectionTest::foldingUncoversAPartAtATime()
{
    Panel panel;
    QVERIFY(panel.exposed);
    QCOMPARE(panel.height(), 60);
    QSignalSpy changes(panel.section, &CollapsibleSection::expandedChanged);
    QTest::mouseClick(panel.header, Qt::LeftButton);
    QVERIFY(!panel.section->isExpanded());
    QCOMPARE(changes.takeFirst().first().toBool(), false);
    FakeClock(&panel.window).advanceAnimations(kDuration / 2);
    QCOMPARE(panel.section->openness(), 0.5);
    QCOMPARE(panel.height(), 30);
    QCOMPARE(panel.content->height(), 60); // uncovered, not squeezed
    panel.finish();
    QCOMPARE(panel.height(), 0);
    QVERIFY(!panel.content->isVisible());
    panel.section->setExpanded(true);
    panel.section->setExpanded(true);
    QCOMPARE(changes.size(), 1);
    QVERIFY(panel.content->isVisible());
    QCOMPARE(panel.height(), 0);
    panel.section->finishAnimation();
    QCOMPARE(panel.height(), 60);
}

void CollapsibleSectionTest::aMovementTurnsRoundInTheMiddle()
{
    Panel panel;
    panel.section->toggle();
    FakeClock(&panel.window).advanceAnimations(kDuration / 2);
    panel.section->toggle();
    QCOMPARE(panel.height(), 30); // from where it was
    panel.finish();
    QCOMPARE(panel.height(), 60);

    connect(panel.section, &CollapsibleSection::expandedChanged, panel.section, [&](bool expanded) {
        if (!expanded) {
            panel.section->setExpanded(true); // refused by a slot
        }
    });
    panel.section->toggle();
    panel.finish();
    QVERIFY(panel.section->isExpanded() && panel.content->isVisible());
    QCOMPARE(panel.height(), 60);
}

void CollapsibleSectionTest::keysFoldAndUnfold()
{
    Panel panel;
    panel.header->setFocus();
    const auto expandedAfter = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(panel.header, key, modifiers);
        panel.finish();
        return panel.section->isExpanded();
    };
    QVERIFY(!expandedAfter(Qt::Key_Left));
    QVERIFY(!expandedAfter(Qt::Key_Left));
    QVERIFY(!expandedAfter(Qt::Key_Right, Qt::AltModifier));
    QVERIFY(expandedAfter(Qt::Key_Right));
    QVERIFY(!expandedAfter(Qt::Key_Space));
    QVERIFY(expandedAfter(Qt::Key_Return));
    panel.window.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(!expandedAfter(Qt::Key_Right));
    QVERIFY(expandedAfter(Qt::Key_Left));
}

void CollapsibleSectionTest::foldedContentIsOutOfReach()
{
    Panel panel;
    auto* after = new QLineEdit;
    panel.window.layout()->addWidget(after);
    after->show();
    panel.content->field->setFocus();
    panel.section->setExpanded(false);
    QVERIFY(panel.header->hasFocus());
    panel.finish();
    QTest::keyClick(panel.header, Qt::Key_Tab);
    QVERIFY(after->hasFocus());
    panel.section->setExpanded(true);
    panel.finish();
    QTest::keyClick(after, Qt::Key_Backtab);
    QVERIFY(panel.content->field->hasFocus());
}

void CollapsibleSectionTest::theContentComesBackAsHighAsItWas()
{
    Panel panel;
    auto* column = static_cast<QBoxLayout*>(panel.window.layout());
    column->setStretchFactor(panel.section, 1);
    column->setStretch(1, 1);
    QTRY_VERIFY(panel.height() > 60); // the window gives it more than it wants
    const int given = panel.height();
    panel.section->toggle();
    panel.finish();
    panel.section->toggle();
    FakeClock(&panel.window).advanceAnimations(kDuration - 1);
    QVERIFY(panel.height() >= given - 1);
    QCOMPARE(panel.content->height(), given); // no jump at the end
    panel.finish();
    QCOMPARE(panel.height(), given);

    Panel second;
    second.section->toggle();
    second.finish();
    second.content->want(90); // while it is folded
    second.section->toggle();
    second.finish();
    QCOMPARE(second.height(), 90);
    second.content->want(40); // and unfolded
    QTRY_COMPARE(second.height(), 40);
}

void CollapsibleSectionTest::nestedSectionsMoveTheOnesAround()
{
    Panel panel;
    auto* outer = new QWidget;
    auto* column = new QVBoxLayout(outer);
    column->setContentsMargins(0, 0, 0, 0);
    auto* inner = new CollapsibleSection(QStringLiteral("Advanced"));
    inner->setAnimationDuration(kDuration);
    inner->setContent(new Content(50));
    column->addWidget(inner);
    panel.section->setContent(outer);
    const int header = inner->findChild<QAbstractButton*>()->sizeHint().height();
    QTRY_COMPARE(panel.height(), header + 50);
    inner->toggle();
    FakeClock(&panel.window).advanceAnimations(kDuration / 2);
    QTRY_COMPARE(panel.height(), header + 25);
    panel.finish();
    QTRY_COMPARE(panel.height(), header);
    panel.section->toggle();
    panel.finish();
    inner->toggle(); // inside of what is folded
    QCOMPARE(inner->openness(), 1.0);
    panel.section->toggle();
    panel.finish();
    QTRY_COMPARE(panel.height(), header + 50);
}

void CollapsibleSectionTest::nothingMovesWhileItIsHidden()
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

void CollapsibleSectionTest::contentsAreReplacedAndTaken()
{
    Panel panel;
    const QPointer<Content> first = panel.content;
    const QPointer<Content> second = new Content(30);
    panel.section->setContent(second);
    QVERIFY(!first->parentWidget() && !first->isVisible());
    QTRY_VERIFY(first.isNull());
    QTRY_COMPARE(panel.height(), 30);
    panel.section->setContent(&panel.window); // around itself
    panel.section->setContent(panel.section);
    QCOMPARE(panel.section->content(), second.data());
    const std::unique_ptr<QWidget> taken(panel.section->takeContent());
    QCOMPARE(taken.get(), second.data());
    QVERIFY(!taken->parentWidget() && !taken->isVisible());
    QTRY_COMPARE(panel.height(), 0);
    QCOMPARE(panel.section->takeContent(), nullptr);
    panel.section->setContent(new Content(20));
    delete panel.section->content(); // from outside
    panel.section->toggle();
    panel.finish();
    QCOMPARE(panel.section->content(), nullptr);
}

void CollapsibleSectionTest::contentMayAskForAnotherInItsSlot()
{
    Panel panel;
    const QPointer<Content> first = panel.content;
    connect(first->field, &QLineEdit::textEdited, panel.section, [&panel] {
        panel.section->setContent(new Content(30));
    });
    QTest::keyClicks(first->field, QStringLiteral("a"));
    QTRY_VERIFY(first.isNull());
    QTRY_COMPARE(panel.height(), 30);
}

void CollapsibleSectionTest::contentThatWentElsewhereIsForgotten()
{
    Panel panel;
    CollapsibleSection other;
    other.setContent(panel.content);
    QCOMPARE(panel.section->content(), nullptr);
    QCOMPARE(panel.section->takeContent(), nullptr);
    panel.section->setContent(other.takeContent());
    QCOMPARE(panel.section->content(), panel.content.data());
    QTRY_COMPARE(panel.height(), 60);
    other.setContent(panel.content);
    panel.section->setContent(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(other.content(), panel.content.data());
}

void CollapsibleSectionTest::theHostsSizePolicyComesBack()
{
    Panel panel;
    const auto fold = [&panel] {
        panel.section->toggle();
        panel.finish();
        return panel.section->sizePolicy();
    };
    QSizePolicy policy(QSizePolicy::Maximum, QSizePolicy::Expanding);
    policy.setVerticalStretch(2);
    panel.section->setSizePolicy(policy);
    QCOMPARE(fold().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(fold(), policy);
    fold();
    policy.setVerticalPolicy(QSizePolicy::MinimumExpanding); // while it is folded
    panel.section->setSizePolicy(policy);
    QCOMPARE(fold(), policy);
}

void CollapsibleSectionTest::contentHiddenByItsHostStaysHidden()
{
    Panel panel;
    panel.content->hide();
    panel.section->toggle();
    panel.finish();
    panel.section->toggle();
    panel.finish();
    QVERIFY(panel.content->isHidden());
    QCOMPARE(panel.height(), 0);
    panel.content->show();
    QTRY_COMPARE(panel.height(), 60);
}

void CollapsibleSectionTest::theHeaderTellsItsState()
{
    Panel panel;
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(panel.header);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Transform"));
    QVERIFY(accessible->state().expanded && !accessible->state().collapsed);
    for (const double ratio : {1.0, 2.0}) {
        panel.section->setExpanded(true);
        panel.finish();
        const QImage unfolded = ui::test::renderWidget(*panel.header, ratio);
        panel.section->setExpanded(false);
        panel.finish();
        QVERIFY(accessible->state().collapsed && !accessible->state().expanded);
        QVERIFY(ui::test::renderWidget(*panel.header, ratio) != unfolded); // the chevron
    }
    panel.section->setTitle(QStringLiteral("Effects"));
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Effects"));
}

void CollapsibleSectionTest::aTitleIsShownWholeAndAsItIs()
{
    constexpr int kEdge = 6; // behind the title
    Panel panel;
    for (const char* const name :
         {"Position", "Rotation", "Layer 1", "Text", "Opacity", "Anchor point", "Fill & Stroke"})
    {
        const QString title = QString::fromLatin1(name);
        panel.section->setTitle(title);
        QCOMPARE(panel.section->title(), title);
        QCOMPARE(
            QAccessible::queryAccessibleInterface(panel.header)->text(QAccessible::Name), title);
        QVERIFY(panel.header->shortcut().isEmpty());
        const QSize hint = panel.header->sizeHint();
        const QRect shared(0, 0, hint.width() - kEdge, hint.height());
        panel.header->resize(hint);
        const QImage asked = ui::test::renderWidget(*panel.header, 1.0).copy(shared);
        panel.header->resize(hint + QSize(60, 0));
        const QImage wider = ui::test::renderWidget(*panel.header, 1.0).copy(shared);
        QVERIFY2(asked == wider, name);
    }
}

const ui::test::Registration<CollapsibleSectionTest> kRegistration;

#include "tst_collapsiblesection.moc"
