#include "controls/StyledApplication.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/docking/layouts/SpacerBar.h>

#include <QtWidgets>

class SpacerBarTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theLineCrossesItsRowOrColumn();
    void theLineFollowsAToolBar();
    void aStretchingBarPushesGroupsApart();
    void theLineHasItsNamedColorAtAnyRatio();

private:
    ui::test::StyledApplication m_application;
};

void SpacerBarTest::theLineCrossesItsRowOrColumn()
{
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* row = new QHBoxLayout;
    auto* upright = new SpacerBar;
    auto* level = new SpacerBar;
    row->addWidget(new QPushButton(QStringLiteral("One")));
    row->addWidget(upright);
    row->addWidget(new QPushButton(QStringLiteral("Two")));
    column->addLayout(row);
    column->addWidget(level);
    window.resize(300, 200);
    window.show();
    QCOMPARE(upright->orientation(), Qt::Vertical);
    QCOMPARE(level->orientation(), Qt::Horizontal);
    QTRY_COMPARE(upright->width(), 1 + 2 * upright->margin());
    QTRY_COMPARE(level->height(), 1 + 2 * level->margin());
    QVERIFY(level->width() > 200);
    row->setDirection(QBoxLayout::TopToBottom);
    QTRY_COMPARE(upright->orientation(), Qt::Horizontal);
    QTRY_COMPARE(upright->height(), 1 + 2 * upright->margin());
    QTRY_VERIFY(upright->width() > 200);
    upright->setOrientation(Qt::Vertical); // whatever it is in
    QCOMPARE(upright->orientation(), Qt::Vertical);
    upright->followLayout();
    QCOMPARE(upright->orientation(), Qt::Horizontal);
    QCOMPARE(upright->focusPolicy(), Qt::NoFocus);
    QCOMPARE(QAccessible::queryAccessibleInterface(upright)->role(), QAccessible::Separator);
}

void SpacerBarTest::theLineFollowsAToolBar()
{
    QMainWindow window;
    auto* bar = new QToolBar;
    auto* line = new SpacerBar;
    bar->addAction(QStringLiteral("One"));
    bar->addWidget(line);
    bar->addAction(QStringLiteral("Two"));
    window.addToolBar(Qt::TopToolBarArea, bar);
    window.resize(300, 200);
    window.show();
    QTRY_COMPARE(line->orientation(), Qt::Vertical);
    QTRY_VERIFY(line->height() > line->width());
    window.addToolBar(Qt::LeftToolBarArea, bar);
    QTRY_COMPARE(line->orientation(), Qt::Horizontal);
    QTRY_VERIFY(line->width() > line->height());
}

void SpacerBarTest::aStretchingBarPushesGroupsApart()
{
    QWidget window;
    auto* row = new QHBoxLayout(&window);
    row->setContentsMargins(0, 0, 0, 0);
    auto* first = new QPushButton(QStringLiteral("One"));
    auto* bar = new SpacerBar;
    auto* last = new QPushButton(QStringLiteral("Two"));
    for (QWidget* widget :
         {static_cast<QWidget*>(first), static_cast<QWidget*>(bar), static_cast<QWidget*>(last)})
    {
        row->addWidget(widget);
    }
    bar->setStretching(true);
    window.resize(400, 40);
    window.show();
    QTRY_COMPARE(last->geometry().right(), 399);
    QTRY_COMPARE(first->width(), first->sizeHint().width());
    bar->setStretching(false);
    bar->setMargin(0);
    QTRY_COMPARE(bar->width(), 1);
    bar->setMargin(-7);
    QVERIFY(bar->margin() > 0); // back to the font's
}

void SpacerBarTest::theLineHasItsNamedColorAtAnyRatio()
{
    SpacerBar bar;
    bar.setOrientation(Qt::Vertical);
    bar.setColorName(QStringLiteral("Accent1"));
    bar.resize(9, 30);
    const QColor accent = m_application.theme().getColor(QStringLiteral("Accent1"));
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        const QImage image = ui::test::renderWidget(bar, ratio);
        int sharp = 0;
        int touched = 0;
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, image.height() / 2);
            sharp += ui::test::closeTo(color, accent) ? 1 : 0;
            touched += color.alpha() > 0 ? 1 : 0;
        }
        QCOMPARE(sharp, qMax(1, static_cast<int>(ratio))); // whole device pixels, and no other
        QCOMPARE(touched, sharp);
    }
    bar.setColorName(QString());
    QCOMPARE(ui::test::renderWidget(bar).pixelColor(4, 15).alpha(), 0);
}

const ui::test::Registration<SpacerBarTest> kRegistration;

#include "tst_spacerbar.moc"
