// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/DopeSheetPane.h"

#include "MorrantUI/scene/viewfit.h"
#include "MorrantUI/timeline/clocklinks.h"
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/events.h>
#include <MorrantUI/timeeditor/DopeSheetView.h>
#include <MorrantUI/timeeditor/TimeEditorLayoutContainer.h>
#include <MorrantUI/timeeditor/TimeEditorRowHeader.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/framefollowing.h>
#include <MorrantUI/timeline/TimelineScene.h>
#include <MorrantUI/timeline/TimelineView.h>

#include <QEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr QSize kUsualSize{900, 260}; ///< logical pixels
constexpr int kHeaderWidth = 220;
constexpr double kMarginShare = 20; ///< part of the frames that the scene reaches beyond them

QVBoxLayout* bareColumn(QWidget* of)
{
    auto* const column = new QVBoxLayout(of);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    return column;
}

} // namespace

DopeSheetPane::DopeSheetPane(QWidget* parent)
    : Widget(parent)
    , m_view(new DopeSheetView)
    , m_ruler(new TimelineView)
    , m_header(new TimeEditorRowHeader(m_view))
{
    setFocusProxy(m_view); // first: of a view inside it, Qt would take others out of Tab's order
    m_view->setup(new TimeEditorScene(m_view, QRect(0, 0, 1, 1)));
    m_ruler->setEditor(m_view);

    auto* const left = new QWidget;
    m_labels = bareColumn(left);
    m_labels->addWidget(m_header, 1);
    auto* const right = new QWidget;
    QVBoxLayout* const frames = bareColumn(right);
    frames->addWidget(m_ruler);
    frames->addWidget(m_view, 1);

    auto* const splitter = new QSplitter;
    splitter->addWidget(left);
    splitter->addWidget(right);
    splitter->setSizes({kHeaderWidth, kUsualSize.width() - kHeaderWidth});
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    bareColumn(this)->addWidget(splitter);
    setTabOrder(m_view, m_ruler); // Tab comes to the proxy first, and would pass over these
    setTabOrder(m_view, m_header);
    setCorner(nullptr);
    connectViews();
    watchSizes();
    const TimelineScene& time = *m_ruler->getTimelineScene();
    m_view->setBackgroundRegion(time.getPlaybackStartFrame(), time.getPlaybackEndFrame());
}

DopeSheetPane::~DopeSheetPane()
{
    m_view->disconnect(this); // it outlives what is a pane of this object
    m_ruler->disconnect(this);
    m_ruler->getTimelineScene()->disconnect(this);
}

void DopeSheetPane::connectViews()
{
    connect(m_view, &DopeSheetView::zoomWanted, m_ruler, &TimelineView::zoomAt);
    const auto noteZoom = [this] { setZoomed(true); };
    connect(m_view, &TimeEditorView::scaleChanged, this, noteZoom);
    connect(m_view, &TimeEditorView::rescale, this, noteZoom);
    connect(m_ruler, &TimelineView::frameRangeFitted, this, [this] { setZoomed(false); });
    connect(m_ruler, &TimelineView::frameChanged, this, &DopeSheetPane::setCurrentFrame);
    connect(
        m_ruler->getTimelineScene(),
        &TimelineScene::playbackRangeChanged,
        m_view,
        &TimeEditorView::setBackgroundRegion);
}

void DopeSheetPane::watchSizes()
{
    ui::installEventFilter(
        m_view->viewport(),
        [this](QObject*, QEvent* event) {
            if (event->type() == QEvent::Resize) {
                showWantedFrames();
            } else if (event->type() == QEvent::Paint) {
                m_awaited.reset(); // it has the size that it is shown with
            }
            return false;
        },
        this);
    ui::installEventFilter(
        m_ruler,
        [this](QObject*, QEvent* event) {
            if (event->type() == QEvent::Resize) {
                fitCorner();
            }
            return false;
        },
        this);
}

TimeEditorScene& DopeSheetPane::scene() const
{
    return *m_view->getEditorScene();
}

void DopeSheetPane::setCorner(QWidget* corner)
{
    if (corner && corner == m_corner) {
        return;
    }
    if (m_corner) {
        m_labels->removeWidget(m_corner);
        m_corner->hide();
        m_corner->deleteLater(); // a button inside may be what has called
    }
    m_corner = corner ? corner : new QWidget;
    fitCorner();
    m_labels->insertWidget(0, m_corner);
}

void DopeSheetPane::fitCorner()
{
    if (m_corner) {
        m_corner->setFixedHeight(std::clamp(
            m_ruler->sizeHint().height(), m_ruler->minimumHeight(), m_ruler->maximumHeight()));
    }
}

// Frames

void DopeSheetPane::setClock(PlaybackClock* clock)
{
    m_clockLink.reset();
    const QPointer<DopeSheetPane> alive(this);
    m_ruler->setClock(clock);
    if (alive && clock && m_ruler->clock() == clock) {
        m_clockLink = ui::linkClock(*clock, *this);
        ui::showClock(*clock, *this);
    }
}

PlaybackClock* DopeSheetPane::clock() const
{
    return m_ruler->clock();
}

void DopeSheetPane::setFrameRange(int first, int last)
{
    m_ruler->setFrameRange(first, last);
    rowsChanged();
    showWantedFrames();
}

void DopeSheetPane::rowsChanged()
{
    const TimelineScene& time = *m_ruler->getTimelineScene();
    const int first = time.getStartFrame();
    const int last = time.getEndFrame();
    const double frames = std::max(static_cast<double>(last) - first, 1.0);
    const double margin = std::max(frames / kMarginShare, 1.0);
    m_view->setFrameRange(first, last);
    m_view->setPlaybackRange(first, last); // of a short one one could not zoom in
    scene().setSceneRect(
        first - margin, 0, frames + 2 * margin, scene().layoutContainer()->rowsBottom());
}

void DopeSheetPane::setPlaybackRange(int first, int last)
{
    m_ruler->setPlaybackRange(first, last);
}

void DopeSheetPane::setRate(double framesPerSecond)
{
    m_ruler->getTimelineScene()->setFramesPerSecond(framesPerSecond);
    scene().setFps(static_cast<float>(framesPerSecond));
}

int DopeSheetPane::currentFrame() const
{
    return m_ruler->currentFrame();
}

void DopeSheetPane::setCurrentFrame(int frame)
{
    m_ruler->setCurrentFrame(frame);
    m_view->setCurrentFrame(frame);
    if (m_followsFrame && !m_ruler->isScrubbing()) {
        ui::followFrame(m_view, frame);
    }
}

void DopeSheetPane::setFollowsFrame(bool follows)
{
    m_followsFrame = follows;
    setCurrentFrame(currentFrame());
}

// What is in sight

std::optional<std::pair<double, double>> DopeSheetPane::zoomedFrames() const
{
    if (m_awaited) {
        return m_awaited;
    }
    const QRectF seen = m_view->getVisibleRect();
    return m_isZoomed ? std::optional(std::pair(seen.left(), seen.right())) : std::nullopt;
}

void DopeSheetPane::setZoomedFrames(const std::optional<std::pair<double, double>>& frames)
{
    const double width = frames ? frames->second - frames->first : 1.0;
    if (!std::isfinite(width) || !(width > 0.0)) {
        return;
    }
    setZoomed(frames.has_value());
    m_awaited = frames;
    showWantedFrames();
    if (m_view->isVisible()) {
        m_awaited.reset();
    }
}

void DopeSheetPane::setZoomed(bool zoomed)
{
    m_isZoomed = zoomed;
    m_awaited.reset();
}

void DopeSheetPane::showFrames(std::pair<double, double> frames)
{
    const QSize room = m_view->viewport()->size();
    const double width = frames.second - frames.first;
    const double fitted = width * std::max(0.0, 1.0 - ui::kFitMargin / std::max(room.width(), 1));
    QScrollBar& rows = *m_view->verticalScrollBar();
    const int rowsAbove = rows.value();
    m_view->fitRect({frames.first + (width - fitted) / 2.0, 0.0, fitted, 1.0});
    m_view->scrollAcross(m_view->mapFromScene(frames.first, 0.0).x()); // a fit drops fractions
    rows.setValue(rowsAbove);
}

void DopeSheetPane::showWantedFrames()
{
    if (m_awaited) {
        showFrames(*m_awaited);
    } else if (!m_isZoomed) {
        m_ruler->fitFrameRange();
    }
}

QSize DopeSheetPane::sizeHint() const
{
    return kUsualSize;
}

void DopeSheetPane::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), ui::colorQt(QStringLiteral("Window")));
}
