// SPDX-License-Identifier: Apache-2.0
#include "gallery/GalleryPage.h"

#include "gallery/BezierPicture.h"
#include "gallery/ControlSheet.h"
#include "gallery/IconSheet.h"
#include "gallery/StateSheet.h"
#include "gallery/SwatchSheet.h"
#include "gallery/samples.h"
#include "gallery/sections.h"
#include "gallery/specimens.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

namespace studio {

namespace {

constexpr int kMargin = 20;  ///< around the page, logical pixels
constexpr int kSpacing = 14; ///< between sections

QVBoxLayout* addColumn(QHBoxLayout* columns, int stretch)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(kSpacing);
    columns->addLayout(column, stretch);
    return column;
}

} // namespace

GalleryPage::GalleryPage(QWidget* parent)
    : QWidget(parent)
    , m_content(new QWidget)
{
    auto* rows = new QVBoxLayout(m_content);
    rows->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    rows->setSpacing(kSpacing);

    rows->addWidget(gallery::section(tr("Value controls and their states"), new StateSheet));
    rows->addWidget(gallery::section(tr("Standard controls and their states"), new ControlSheet));
    auto* columns = new QHBoxLayout;
    columns->setSpacing(kSpacing);
    rows->addLayout(columns);
    auto* left = addColumn(columns, 1);
    left->addWidget(gallery::section(tr("Attributes"), gallery::attributes()));
    left->addWidget(gallery::section(tr("Fields and buttons"), gallery::fields()));
    left->addWidget(gallery::section(tr("Ranges"), gallery::ranges()));
    left->addWidget(gallery::section(tr("Menus and tool tips"), gallery::menus()));
    left->addStretch();
    auto* right = addColumn(columns, 1);
    right->addWidget(gallery::section(tr("Views"), gallery::views()));
    right->addWidget(gallery::section(tr("Foundation"), gallery::foundation()));
    right->addWidget(gallery::section(tr("Drawn with Skia"), new BezierPicture));
    right->addStretch();
    rows->addWidget(gallery::section(tr("Named colours"), new SwatchSheet));
    rows->addWidget(gallery::section(tr("Icons and cursors"), new IconSheet));
    rows->addStretch();

    auto* scroller = new QScrollArea;
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setWidgetResizable(true);
    scroller->setWidget(m_content);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(scroller);
}

GalleryPage::~GalleryPage() = default;

QSize GalleryPage::fullSize() const
{
    const QSize wanted = m_content->sizeHint();
    const int height = m_content->hasHeightForWidth() ? m_content->heightForWidth(wanted.width())
                                                      : wanted.height();
    return {wanted.width(), height};
}

} // namespace studio
