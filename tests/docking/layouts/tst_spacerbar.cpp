// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include <MorrantUI/docking/layouts/SpacerBar.h>

class SpacerBarTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theLineCrossesItsRowColumnOrToolBar()
    {
        QMainWindow window;
        auto* middle = new QWidget;
        auto* row = new QBoxLayout(QBoxLayout::LeftToRight, middle);
        auto* line = new SpacerBar;
        row->addWidget(new QPushButton(u"One"_qs));
        row->addWidget(line);
        row->addWidget(new QPushButton(u"Two"_qs));
        window.setCentralWidget(middle);
        auto* bar = new QToolBar;
        auto* inBar = new SpacerBar;
        bar->addWidget(inBar);
        window.addToolBar(Qt::TopToolBarArea, bar);
        window.resize(300, 200);
        window.show();
        QTRY_COMPARE(line->width(), 1 + 2 * line->margin());
        QVERIFY(line->height() > 20 && line->orientation() == Qt::Vertical);
        QTRY_VERIFY(inBar->height() > inBar->width() && inBar->orientation() == Qt::Vertical);
        row->setDirection(QBoxLayout::TopToBottom);
        window.addToolBar(Qt::LeftToolBarArea, bar);
        QTRY_COMPARE(line->height(), 1 + 2 * line->margin());
        QTRY_VERIFY(line->width() > 100 && line->orientation() == Qt::Horizontal);
        QTRY_VERIFY(inBar->width() > inBar->height() && inBar->orientation() == Qt::Horizontal);
        line->setOrientation(Qt::Vertical); // whatever it is in
        QCOMPARE(line->orientation(), Qt::Vertical);
        line->followLayout();
        QCOMPARE(line->orientation(), Qt::Horizontal);
        QCOMPARE(line->focusPolicy(), Qt::NoFocus);
        QCOMPARE(QAccessible::queryAccessibleInterface(line)->role(), QAccessible::Separator);
    }

    void aStretchingBarPushesGroupsApart()
    {
        QWidget window;
        auto* row = new QHBoxLayout(&window);
        row->setContentsMargins(0, 0, 0, 0);
        auto* first = new QPushButton(u"One"_qs);
        auto* bar = new SpacerBar;
        auto* last = new QPushButton(u"Two"_qs);
        for (QWidget* widget : QWidgetList{first, bar, last}) {
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

    void theLineHasItsNamedColorAtAnyRatio()
    {
        SpacerBar bar;
        bar.setOrientation(Qt::Vertical);
        bar.resize(9, 30);
        for (const QString& name : {u"Accent1"_qs, QString()}) {
            bar.setColorName(name);
            for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
                const QImage image = ui::test::renderWidget(bar, ratio);
                int sharp = 0;
                int touched = 0;
                for (int x = 0; x < image.width(); ++x) {
                    const QColor color = image.pixelColor(x, image.height() / 2);
                    sharp += ui::test::closeTo(color, theme().getColor(u"Accent1"_qs)) ? 1 : 0;
                    touched += color.alpha() > 0 ? 1 : 0;
                }
                // Whole device pixels, and no other.
                QCOMPARE(sharp, name.isEmpty() ? 0 : qMax(1, static_cast<int>(ratio)));
                QCOMPARE(touched, sharp);
            }
        }
    }
};

const ui::test::Registration<SpacerBarTest> kRegistration;
#include "tst_spacerbar.moc"
