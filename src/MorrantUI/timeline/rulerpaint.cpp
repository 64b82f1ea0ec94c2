// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/rulerpaint.h"

#include "MorrantUI/platform/vectorregisters.h"
#include "MorrantUI/theme/style/pixelgrid.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include "MorrantUI/timeline/playbackrange.h"
#include <MorrantUI/text/timecode.h>
#include <MorrantUI/theme/colors.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ui {

namespace {

using style::PainterState;
using style::PixelGrid;
using style::translucent;

constexpr double kFontShare = 0.85; ///< of the widget's font
constexpr double kLabelTick = 8.0;  ///< pixels high
constexpr double kPillGap = 3.0;    ///< pixels, from the playhead's number to a label beside it
constexpr double kMediumTick = 6.0;
constexpr double kMinorTick = 4.0;
constexpr double kBookendWidth = 6.0; ///< inside the range
constexpr double kBookendRadius = 2.0;
constexpr double kRangeInset = 2.0;     ///< of the range between its bookends, above and below
constexpr double kRangeStrength = 0.35; ///< of the accent, between the bookends
constexpr double kLitStrength = 0.5;
constexpr double kOutsideStrength = 0.5; ///< of labels outside the frame range
constexpr double kLit = 125.0;           ///< percent of brightness under the pointer
constexpr double kPillPadding = 4.0;
constexpr double kDarkText = 0.45; ///< brightness from which on a ground wants dark text
constexpr double kFlagTop = 2.0;   ///< below the marker band's upper edge
constexpr double kFlagHalf = 4.5;
constexpr double kFlagHeight = 11.0;
constexpr double kFlagPoint = 4.0;   ///< of the height
constexpr int kMostNameChars = 1000; ///< more than a ruler is wide

QColor named(const char* name)
{
    return colorQt(QString::fromLatin1(name));
}

/// Dark or light text, whichever can be read on a ground of any colour.
QColor textOn(const QColor& ground)
{
    const double brightness =
        0.299 * ground.redF() + 0.587 * ground.greenF() + 0.114 * ground.blueF();
    return named(brightness > kDarkText ? "AppBackground" : "Text");
}

/// Upright lines of a device pixel or more, all in one colour.
class LineBrush
{
public:
    LineBrush(QPainter& painter, const PixelGrid& grid)
        : m_painter(painter)
        , m_grid(grid)
    {}
    void draw(double x, double top, double bottom, const QColor& color)
    {
        const double width = m_grid.line();
        m_painter.fillRect(m_grid.snap(QRectF(x - width / 2.0, top, width, bottom - top)), color);
    }

private:
    QPainter& m_painter;
    const PixelGrid& m_grid;
};

bool isFrame(std::int64_t frame)
{
    return frame >= std::numeric_limits<int>::min() && frame <= std::numeric_limits<int>::max();
}

void paintGround(QPainter& painter, const RulerPicture& picture)
{
    const RulerGeometry& geometry = picture.geometry;
    const RulerBands& bands = geometry.bands;
    fillSharp(painter, QRectF(0.0, 0.0, geometry.width, bands.bottom), named("TabBackground"));
    fillSharp(
        painter,
        QRectF(0.0, bands.range, geometry.width, bands.bottom - bands.range),
        named("WindowBase"));
    fillSharp(
        painter, QRectF(0.0, bands.bottom - 1.0, geometry.width, 1.0), named("ElementHeader"));
    const QRectF played = bandBetween(geometry, 0.0, bands.range, geometry.playback);
    if (!played.isEmpty()) {
        fillSharp(painter, played, named("ElementHeader"));
    }
}

double baselineOf(const QFont& font, double top, double height)
{
    const QFontMetricsF metrics(font);
    return std::round(top + (height + metrics.capHeight()) / 2.0);
}

/// @param distance pixels from label to label
void paintLabel(QPainter& painter, const RulerPicture& picture, int frame, double distance)
{
    const QRectF taken = picture.playheadLabel.adjusted(-kPillGap, 0.0, kPillGap, 0.0);
    const RulerGeometry& geometry = picture.geometry;
    const QString text = rulerLabel(frame, picture.scale);
    const double width = nameWidth(picture.font, text);
    const auto start = labelStart(geometry.x(frame), width, distance, geometry.width);
    if (start
        && (*start > taken.right() || *start + width < taken.left()
            || picture.playheadLabel.isEmpty()))
    {
        const double baseline = baselineOf(picture.font, 0.0, geometry.bands.ticks);
        painter.drawText(QPointF(std::round(*start), baseline), text);
    }
}

void paintTicks(QPainter& painter, const RulerPicture& picture)
{
    const RulerGeometry& geometry = picture.geometry;
    const int first = std::min(picture.frames.first, nearestFrame(geometry.frame(0.0)));
    const int last = std::max(picture.frames.second, nearestFrame(geometry.frame(geometry.width)));
    const LabelMetrics metrics = labelMetrics(picture.font);
    const double widest = std::max(
        labelRoom(metrics, rulerLabel(first, picture.scale)),
        labelRoom(metrics, rulerLabel(last, picture.scale)));
    const RulerSteps steps = rulerSteps(picture.scale, widest);
    const std::vector<RulerTick> ticks =
        rulerTicks(steps, geometry.frame(-1.0), geometry.frame(geometry.width + 1.0));

    const QColor strong = named("HelperHints");
    const QColor weak = named("Grey");
    const QColor outside = translucent(strong, kOutsideStrength);
    const double bottom = geometry.bands.range;
    const PixelGrid grid(painter);
    LineBrush lines(painter, grid);
    for (const RulerTick& tick : ticks) {
        const double x = geometry.x(static_cast<double>(tick.frame));
        const double height = tick.kind == TickKind::Label    ? kLabelTick
                              : tick.kind == TickKind::Medium ? kMediumTick
                                                              : kMinorTick;
        lines.draw(x, bottom - height, bottom, tick.kind == TickKind::Label ? strong : weak);
        if (tick.kind == TickKind::Label && isFrame(tick.frame)) {
            const int frame = static_cast<int>(tick.frame);
            painter.setPen(frame == frameWithin(frame, picture.frames) ? strong : outside);
            paintLabel(painter, picture, frame, static_cast<double>(steps.label) * geometry.scale);
        }
    }
}

void paintBookend(
    QPainter& painter, const QRectF& band, double x, bool isStart, const BookendLook& look)
{
    if (!look.isThere || x < -kBookendWidth || x > band.width() + kBookendWidth) {
        return;
    }
    const QColor accent = named("Accent1");
    const QColor color = look.isLit ? changeValue(accent, kLit) : accent;
    if (!look.canBeDragged) {
        fillSharp(painter, QRectF(x - 0.5, band.top(), 1.0, band.height()), color);
        return;
    }
    const double left = isStart ? x : x - kBookendWidth;
    fillRounded(
        painter, QRectF(left, band.top(), kBookendWidth, band.height()), kBookendRadius, color);
}

void paintRange(QPainter& painter, const RulerPicture& picture)
{
    const RulerGeometry& geometry = picture.geometry;
    const RulerBands& bands = geometry.bands;
    const QRectF band(0.0, bands.range, geometry.width, bands.markers - bands.range);
    const QRectF body = bandBetween(
        geometry, band.top() + kRangeInset, band.bottom() - kRangeInset, geometry.playback);
    if (!body.isEmpty()) {
        const double strength = picture.isRangeLit ? kLitStrength : kRangeStrength;
        fillSharp(painter, body, translucent(named("Accent1"), strength));
    }
    const double start = geometry.x(geometry.playback.first);
    const double end = geometry.x(geometry.playback.second);
    paintBookend(painter, band, start, true, picture.start);
    paintBookend(painter, band, end, false, picture.end);
}

QPainterPath flag(double x, double top)
{
    const double shoulder = top + kFlagHeight - kFlagPoint;
    QPainterPath path(QPointF(x, top + kFlagHeight));
    path.lineTo(x - kFlagHalf, shoulder);
    path.lineTo(x - kFlagHalf, top);
    path.lineTo(x + kFlagHalf, top);
    path.lineTo(x + kFlagHalf, shoulder);
    path.closeSubpath();
    return path;
}

void paintMarker(
    QPainter& painter,
    const RulerPicture& picture,
    const TimelineMarker& marker,
    const QColor& color)
{
    const RulerGeometry& geometry = picture.geometry;
    const RulerBands& bands = geometry.bands;
    const double x = geometry.x(marker.frame);
    if (x < -kMarkerReach || x > geometry.width + kMarkerReach) {
        return;
    }
    const PixelGrid grid(painter);
    const double crisp = grid.snap(QRectF(x - 0.5, 0.0, 1.0, 1.0)).center().x();
    const PainterState state(painter);
    LineBrush(painter, grid).draw(x, bands.range - kLabelTick, bands.range, color);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath path = flag(crisp, bands.markers + kFlagTop);
    painter.fillPath(path, color);
    if (&marker == picture.selected) {
        painter.strokePath(path, QPen(named("Text"), 1.5));
    }
}

void paintMarkers(QPainter& painter, const RulerPicture& picture)
{
    const auto colorOf = [&picture, usual = named("Accent3")](const TimelineMarker& marker) {
        const QColor color = marker.color.isValid() ? marker.color : usual;
        return marker.id == picture.hoveredMarker ? changeValue(color, kLit) : color;
    };
    for (const MarkerBar& bar : picture.bars) {
        fillSharp(painter, bar.rect, colorOf(*bar.marker));
    }
    for (const MarkerSpot& spot : picture.spots) {
        paintMarker(painter, picture, *spot.marker, colorOf(*spot.marker));
    }
    if (picture.selected) {
        paintMarker(painter, picture, *picture.selected, colorOf(*picture.selected));
    }
    painter.setPen(named("WindowText"));
    const QFontMetricsF metrics(painter.font());
    for (const MarkerSpot& spot : picture.spots) {
        if (!spot.name.isEmpty()) {
            const QString text =
                metrics.elidedText(shownName(spot.marker->name), Qt::ElideRight, spot.name.width());
            const double baseline =
                baselineOf(picture.font, spot.name.top(), spot.name.height() - kBarHeight);
            painter.drawText(QPointF(std::round(spot.name.left()), baseline), text);
        }
    }
}

} // namespace

QFont rulerFont(const QFont& widgetFont)
{
    QFont font = widgetFont;
    if (font.pixelSize() > 0) {
        font.setPixelSize(
            std::max(1, static_cast<int>(std::lround(font.pixelSize() * kFontShare))));
    } else {
        font.setPointSizeF(std::max(1.0, font.pointSizeF() * kFontShare));
    }
    return font;
}

double labelHeight(const QFont& font)
{
    return std::ceil(QFontMetricsF(font).height());
}

LabelMetrics labelMetrics(const QFont& font)
{
    const QFontMetricsF metrics(font);
    LabelMetrics widths{0.0, metrics.horizontalAdvance(u':'), metrics.horizontalAdvance(u'-')};
    for (char digit = '0'; digit <= '9'; ++digit) {
        widths.digit = std::max(widths.digit, metrics.horizontalAdvance(QLatin1Char(digit)));
    }
    return widths;
}

QString shownName(const QString& name)
{
    return name.left(kMostNameChars).simplified();
}

double nameWidth(const QFont& font, const QString& name)
{
    return QFontMetricsF(font).horizontalAdvance(shownName(name));
}

QString rulerLabel(int frame, const RulerScale& scale)
{
    const QString code = scale.timeCode ? timeCode(frame, scale.framesPerSecond) : QString();
    return code.isEmpty() ? QString::number(frame) : code;
}

void paintRuler(QPainter& painter, const RulerPicture& picture)
{
    const PainterState state(painter);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setFont(picture.font);
    paintGround(painter, picture);
    morrant::native::clearVectorRegisters();
    paintTicks(painter, picture);
    paintRange(painter, picture);
    paintMarkers(painter, picture);
}

QRectF playheadLabel(const RulerGeometry& geometry, const QFont& font, const QString& label)
{
    const double x = geometry.x(geometry.current);
    if (!(x >= -kThumbReach && x <= geometry.width + kThumbReach)) {
        return {};
    }
    const double width = std::ceil(nameWidth(font, label)) + 2.0 * kPillPadding;
    const double most = std::max(0.0, geometry.width - width);
    return {std::clamp(x - width / 2.0, 0.0, most), 0.0, width, geometry.bands.ticks};
}

void paintPlayhead(
    QPainter& painter, const RulerGeometry& geometry, const QFont& font, const QString& label)
{
    const QRectF pill = playheadLabel(geometry, font, label);
    if (pill.isEmpty()) {
        return;
    }
    const PainterState state(painter);
    const QColor color = named("Accent5");
    const RulerBands& bands = geometry.bands;
    painter.setRenderHint(QPainter::Antialiasing, false);
    const PixelGrid grid(painter);
    LineBrush(painter, grid).draw(geometry.x(geometry.current), bands.range, bands.bottom, color);
    fillRounded(painter, pill, kSmallCornerRadius, color);
    painter.setFont(font);
    painter.setPen(textOn(color));
    painter.drawText(
        QPointF(std::round(pill.left() + kPillPadding), baselineOf(font, 0.0, bands.ticks)), label);
}

} // namespace ui
