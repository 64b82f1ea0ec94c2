// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/TimelineView.h"

#include "MorrantUI/scene/framemath.h"
#include "MorrantUI/scene/viewfit.h"
#include "MorrantUI/timeline/AccessibleTimeline.h"
#include "MorrantUI/timeline/MarkerNameEdit.h"
#include "MorrantUI/timeline/clocklinks.h"
#include "MorrantUI/timeline/playbackrange.h"
#include "MorrantUI/timeline/rulergesture.h"
#include "MorrantUI/timeline/rulerpaint.h"
#include <MorrantUI/theme/drawing.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>
#include <MorrantUI/timeline/PlaybackBookend.h>
#include <MorrantUI/timeline/PlaybackClock.h>
#include <MorrantUI/timeline/TimeThumb.h>
#include <MorrantUI/timeline/TimelineScene.h>

#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace {

constexpr int kLastFrame = 100;  ///< of the range before the host sets one
constexpr int kUsualWidth = 480; ///< logical pixels
constexpr int kLeastWidth = 64;
constexpr std::chrono::milliseconds kEdgeInterval{30};
constexpr double kHalfPixel = 0.5;
constexpr double kLeastShown = 40.0; ///< logical pixels that all frames take, zoomed out
constexpr double kFewFrames = 100.0; ///< a shorter range is zoomed out as one of these
constexpr int kNameWidth = 140;      ///< logical pixels, of a name that is edited

} // namespace

TimelineView::TimelineView(QWidget* parent)
    : GraphicsView(parent)
    , m_scene(new TimelineScene(this))
    , m_thumb(new TimeThumb(true))
    , m_left(new PlaybackBookend(m_scene, true, true))
    , m_right(new PlaybackBookend(m_scene, false, true))
{
    ui::installAccessible<TimelineView, ui::AccessibleTimeline>();
    m_left->setParent(this);
    m_right->setParent(this);
    m_scene->addItem(m_thumb);
    m_scene->m_thumb = m_thumb;
    connect(m_scene, &TimelineScene::frameRangeChanged, this, &TimelineView::followRange);
    m_scene->setFrameRange(0, kLastFrame);
    m_scene->setPlaybackRange(0, kLastFrame);
    m_scene->setFont(ui::rulerFont(font()));
    setScene(m_scene);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setTransformationAnchor(NoAnchor);
    setResizeAnchor(NoAnchor);
    setViewportUpdateMode(FullViewportUpdate); // labels, line and thumb move together
    connect(m_thumb, &TimeThumb::timeChangedSignal, this, &TimelineView::frameChanged);
    connect(m_thumb, &QGraphicsObject::xChanged, this, &TimelineView::noteFrame);
    connect(m_scene, &TimelineScene::markersChanged, this, &TimelineView::arrangeNameEdit);
    m_edgeTimer.setParent(this);
    m_edgeTimer.setInterval(kEdgeInterval);
    connect(&m_edgeTimer, &QTimer::timeout, this, &TimelineView::scrollAtEdge);
}

TimelineView::~TimelineView()
{
    delete m_nameEdit;
    setScene(nullptr);
    delete m_scene;
}

// What it is in step with

void TimelineView::setEditor(TimeEditorView* editor)
{
    if (m_editor) {
        m_editor->disconnect(this);
        m_editor->viewport()->removeEventFilter(this);
    }
    m_editor = editor;
    if (editor) {
        m_fitsRange = false;
        for (const auto change : {&TimeEditorView::viewRectChanged, &TimeEditorView::scaleChanged})
        {
            connect(editor, change, this, &TimelineView::followEditor);
        }
        connect(editor, &TimeEditorView::rescale, this, &TimelineView::followEditor);
        editor->viewport()->installEventFilter(this);
        followEditor();
    }
}

TimeEditorView* TimelineView::editor() const
{
    return m_editor;
}

void TimelineView::setClock(PlaybackClock* wanted)
{
    ui::followClock(wanted, *this, m_clock, m_clockLink);
}

PlaybackClock* TimelineView::clock() const
{
    return m_clock;
}

/// What its signals do not tell: a fit that needs no scrolling, and another size.
bool TimelineView::eventFilter(QObject* watched, QEvent* event)
{
    const bool mayHaveChanged = event->type() == QEvent::Paint || event->type() == QEvent::Resize;
    if (mayHaveChanged && m_editor && watched == m_editor->viewport()) {
        const QPointer<TimelineView> alive(this);
        const QPointer<QObject> receiver(watched);
        followEditor();
        if (!alive || !receiver) {
            return !receiver; // nobody is left to go on to
        }
    }
    return GraphicsView::eventFilter(watched, event);
}

void TimelineView::followEditor()
{
    if (m_editor) {
        showAt(m_editor->transform().m11(), -m_editor->viewportTransform().dx());
    }
}

double TimelineView::pixelsPerFrame() const
{
    return transform().m11();
}

void TimelineView::showAt(double scale, double scroll)
{
    if (!std::isfinite(scale) || !(scale > 0.0) || !std::isfinite(scroll)) {
        return;
    }
    if (scale == pixelsPerFrame() && scroll == m_scroll) {
        return;
    }
    m_scroll = scroll;
    if (scale != pixelsPerFrame()) {
        setTransform(QTransform::fromScale(scale, 1.0));
    }
    arrange();
    Q_EMIT viewRectChanged();
}

/// The scene is what is in sight, so that the place is right to the pixel however far the frames
/// reach: scroll bars end with 32 bits. It begins within its first pixel, for the view drops
/// fractions.
void TimelineView::arrange()
{
    const double scale = pixelsPerFrame();
    const double scroll = std::round(m_scroll);
    const double left = scroll + std::copysign(kHalfPixel, scroll);
    const QSize room = viewport()->size();
    m_scene->setSceneRect(
        left / scale, 0.0, std::max(1, room.width() - 1) / scale, std::max(1, room.height()));
    m_thumb->fitTo(scale, 1.0);
    const ui::RulerBands bands = ui::rulerBands(room.height(), ui::labelHeight(m_scene->font()));
    // Its y is its own: it keeps that whoever moves it.
    m_thumb->setTransform(QTransform::fromTranslate(0.0, bands.range - ui::kThumbTip));
    arrangeNameEdit();
}

void TimelineView::arrangeNameEdit()
{
    if (!isRenaming()) {
        return;
    }
    const std::optional<TimelineMarker> marker = m_scene->marker(m_nameEdit->marker());
    if (!marker) {
        m_nameEdit->finish(false); // its marker is gone
        return;
    }
    const double x = marker->frame * pixelsPerFrame() - m_scroll + ui::kMarkerReach;
    const double most = std::max(0, viewport()->width() - kNameWidth);
    const int height = m_nameEdit->sizeHint().height();
    m_nameEdit->setGeometry(
        static_cast<int>(std::clamp(x, 0.0, most)),
        viewport()->height() - height,
        kNameWidth,
        height);
}

void TimelineView::followRange()
{
    if (m_fitsRange && !m_editor) {
        fitFrameRange();
    }
}

void TimelineView::zoomAt(double factor, int x)
{
    if (!std::isfinite(factor) || !(factor > 0.0)) {
        return;
    }
    m_fitsRange = false;
    const double scale = pixelsPerFrame();
    const double frames = std::max(ui::frameSpan(this->frames()) + 1.0, kFewFrames);
    const double least = std::min(scale, std::max(kLeastShown / frames, ui::kLeastZoom));
    const double wanted = std::clamp(scale * factor, least, ui::kMostZoom);
    const double frame = zoomCentre(x);
    if (m_editor) {
        // What the editor shows, also after a fit that its own scale does not know.
        const double span = ui::frameSpan(m_editor->getFrameRange()) + ui::kFramesBeyondEnd;
        const double room = m_editor->viewport()->width() - ui::kFitMargin;
        const QPointer<TimelineView> alive(this);
        m_editor->setScaleAt(room / (wanted * span), x);
        if (alive) {
            followEditor();
        }
        if (alive) {
            scrollBy(ui::nearestFrame(frame * pixelsPerFrame() - m_scroll - x));
        }
    } else {
        showAt(wanted, frame * wanted - x);
    }
}

/// The frame that a step of the zoom leaves where it is. Steps at one place have one, or what each
/// rounds would add up.
double TimelineView::zoomCentre(int x)
{
    const double shown = m_zoomFrame * pixelsPerFrame() - std::round(m_scroll);
    if (x != m_zoomedAt || std::abs(shown - x) > 1.0) {
        m_zoomedAt = x;
        m_zoomFrame = frameAt(x);
    }
    return m_zoomFrame;
}

void TimelineView::scrollBy(int pixels)
{
    m_fitsRange = false;
    if (m_editor) {
        const QPointer<TimelineView> alive(this);
        m_editor->scrollAcross(pixels);
        if (alive) {
            followEditor();
        }
    } else {
        showAt(pixelsPerFrame(), m_scroll + pixels);
    }
}

void TimelineView::fitFrameRange()
{
    m_fitsRange = true;
    const QPointer<TimelineView> alive(this);
    const QRectF rect = ui::framedRange(frames(), 1.0, QRectF(0.0, 0.0, 1.0, 1.0));
    if (m_editor) {
        const QPointer<QScrollBar> rows = m_editor->verticalScrollBar();
        const int rowsAbove = rows->value();
        m_editor->fitRect(rect);
        if (rows) {
            rows->setValue(rowsAbove);
        }
        if (alive) {
            followEditor();
        }
    } else if (const auto scale = ui::horizontalFit(rect, viewport()->size())) {
        showAt(*scale, rect.left() * *scale - ui::kFitMargin / 2.0);
    }
    if (alive) {
        Q_EMIT frameRangeFitted();
    }
}

double TimelineView::frameAt(double x) const
{
    return (x + std::round(m_scroll)) / pixelsPerFrame();
}

// Time

TimelineView::Range TimelineView::frames() const
{
    return {m_scene->getStartFrame(), m_scene->getEndFrame()};
}

TimelineView::Range TimelineView::playback() const
{
    return {m_scene->getPlaybackStartFrame(), m_scene->getPlaybackEndFrame()};
}

void TimelineView::setFrameRange(int first, int last)
{
    m_scene->setFrameRange(first, last);
}

void TimelineView::setPlaybackRange(int first, int last)
{
    m_scene->setPlaybackRange(first, last);
}

void TimelineView::setCurrentFrame(int frame)
{
    m_thumb->setCurrentFrame(frame);
}

int TimelineView::currentFrame() const
{
    return m_thumb->getCurrentFrame();
}

void TimelineView::seek(int frame)
{
    m_thumb->moveTo(ui::frameWithin(frame, frames()));
}

void TimelineView::noteFrame()
{
    ui::notifyAccessibleValue(this, currentFrame());
}

// Markers

int TimelineView::addMarker(int frame)
{
    for (const TimelineMarker& marker : m_scene->markers()) {
        if (marker.frame == frame) {
            m_scene->setSelectedMarker(marker.id);
            return marker.id;
        }
    }
    const QPointer<TimelineView> alive(this);
    const int id = m_scene->addMarker(frame);
    if (alive) {
        m_scene->setSelectedMarker(id);
    }
    const std::optional<TimelineMarker> added = alive ? m_scene->marker(id) : std::nullopt;
    if (added) {
        Q_EMIT markerEdited({std::nullopt, added});
    }
    return id;
}

bool TimelineView::removeMarker(int id)
{
    const std::optional<TimelineMarker> before = m_scene->marker(id);
    const QPointer<TimelineView> alive(this);
    if (!m_scene->removeMarker(id)) {
        return false;
    }
    if (alive) {
        Q_EMIT markerEdited({before, std::nullopt});
    }
    return true;
}

bool TimelineView::changeMarker(const TimelineMarker& marker)
{
    const std::optional<TimelineMarker> before = m_scene->marker(marker.id);
    if (!before || *before == marker) {
        return false;
    }
    const QPointer<TimelineView> alive(this);
    m_scene->changeMarker(marker);
    if (alive) {
        Q_EMIT markerEdited({before, marker});
    }
    return true;
}

void TimelineView::renameMarker(int id)
{
    const QPointer<TimelineView> alive(this);
    if (m_scene->marker(id)) {
        m_scene->setSelectedMarker(id);
        if (alive) {
            requestRename(id);
        }
    }
}

void TimelineView::requestRename(int id)
{
    const QPointer<TimelineView> alive(this);
    if (m_nameEdit) {
        m_nameEdit->finish(true); // with the name that is typed so far
    }
    const std::optional<TimelineMarker> marker = alive ? m_scene->marker(id) : std::nullopt;
    if (!marker) {
        return;
    }
    m_nameEdit = new MarkerNameEdit(this, id, marker->name);
    arrangeNameEdit();
    m_nameEdit->show();
    m_nameEdit->setFocus(Qt::OtherFocusReason);
}

bool TimelineView::isRenaming() const
{
    return m_nameEdit && !m_nameEdit->isFinished();
}

// Room and picture

QSize TimelineView::sizeHint() const
{
    return {kUsualWidth, minimumSizeHint().height()};
}

QSize TimelineView::minimumSizeHint() const
{
    const double height = ui::rulerHeight(ui::labelHeight(m_scene->font()));
    return {kLeastWidth, static_cast<int>(std::ceil(height))};
}

void TimelineView::changeEvent(QEvent* event)
{
    GraphicsView::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        m_scene->setFont(ui::rulerFont(font()));
        updateGeometry();
        arrange();
    }
}

void TimelineView::resizeEvent(QResizeEvent* event)
{
    GraphicsView::resizeEvent(event);
    {
        const QSignalBlocker quiet(this);
        followRange();
        arrange();
    }
    // Not before whoever lays out the view is through: a slot may delete it.
    QMetaObject::invokeMethod(this, &TimelineView::viewRectChanged, Qt::QueuedConnection);
}

void TimelineView::paintEvent(QPaintEvent* event)
{
    GraphicsView::paintEvent(event);
    if (hasFocus() && m_showsFocus) {
        QPainter painter(viewport());
        ui::drawFocusRing(painter, viewport()->rect());
    }
}
