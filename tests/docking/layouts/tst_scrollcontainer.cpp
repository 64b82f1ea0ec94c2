// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include <MorrantUI/docking/layouts/ScrollContainer.h>

class ScrollContainerTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aBarThatIsTooShortScrollsAndGrowsByItsScrollBar()
    {
        QWidget window;
        auto* column = new QVBoxLayout(&window);
        column->setContentsMargins({});
        auto* content = new QWidget;
        auto* row = new QHBoxLayout(content);
        row->setContentsMargins({});
        for (int i = 0; i < 5; ++i) {
            row->addWidget(new QPushButton(u"Button"_qs));
        }
        content->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        auto* bar = new ScrollContainer(content, Qt::Horizontal);
        column->addWidget(bar);
        column->addStretch(1);
        const int height = content->minimumSizeHint().height();

        window.resize(900, 100);
        window.show();
        QTRY_VERIFY(bar->size() == QSize(900, height) && content->size() == bar->size());
        window.resize(200, 100);
        QTRY_VERIFY(bar->horizontalScrollBar()->isVisible());
        QTRY_COMPARE(content->height(), height); // all of it is seen above the scroll bar
        QTRY_COMPARE(bar->viewport()->height(), height);
        QCOMPARE(content->width(), content->minimumSizeHint().width());
        window.resize(900, 100);
        QTRY_COMPARE(bar->height(), height);

        ScrollContainer empty(nullptr);
        empty.show();
        QVERIFY(!empty.minimumSizeHint().isValid());
    }
};

const ui::test::Registration<ScrollContainerTest> kRegistration;

#include "tst_scrollcontainer.moc"
