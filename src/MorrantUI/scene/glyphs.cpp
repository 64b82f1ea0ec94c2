// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/scene/glyphs.h"

#include <QHash>
#include <QPaintEngine>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace ui {

namespace {

constexpr int kPhases = 4;           ///< places within a device pixel, on either axis
constexpr int kMostLooks = 256;      ///< a colour animation makes a new one for each of its steps
constexpr double kFarthest = 1e9;    ///< device pixels, beyond whatever is painted on
constexpr double kHaloWidth = 2.0;   ///< pixels
constexpr double kHaloGrowth = 1.45; ///< the halo's size, times the glyph's

/// What a glyph looks like, at one device ratio.
struct LookKey
{
    GlyphShape shape = GlyphShape::KeyDiamond;
    QRgb fill = 0;
    QRgb outline = 0;
    QRgb halo = 0;
    int penWidth = 0; ///< thousandths of a pixel
    int ratio = 0;    ///< thousandths

    friend bool operator==(const LookKey&, const LookKey&) = default;
};

size_t qHash(const LookKey& key, size_t seed = 0)
{
    return qHashMulti(
        seed,
        static_cast<int>(key.shape),
        key.fill,
        key.outline,
        key.halo,
        key.penWidth,
        key.ratio);
}

QPainterPath polygon(const QPolygonF& points)
{
    QPainterPath path;
    path.addPolygon(points);
    path.closeSubpath();
    return path;
}

QPainterPath circle(double radius)
{
    QPainterPath path;
    path.addEllipse(QPointF(), radius, radius);
    return path;
}

void paintGlyph(QPainter& painter, const Glyph& glyph)
{
    const QPainterPath& outline = glyphOutline(glyph.shape);
    if (glyph.halo.isValid()) {
        const QPointF centre = outline.boundingRect().center();
        const QTransform grown = QTransform::fromTranslate(centre.x(), centre.y())
                                     .scale(kHaloGrowth, kHaloGrowth)
                                     .translate(-centre.x(), -centre.y());
        painter.setPen(QPen(glyph.halo, kHaloWidth));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(grown.map(outline));
    }
    painter.setPen(glyph.outline.isValid() ? QPen(glyph.outline, glyph.penWidth) : QPen(Qt::NoPen));
    painter.setBrush(glyph.fill);
    painter.drawPath(outline);
}

/// What is drawn of a glyph, in whole pixels around its point.
QRect glyphBounds(const Glyph& glyph)
{
    const QRectF outline = glyphOutline(glyph.shape).boundingRect();
    const double growth = glyph.halo.isValid() ? (kHaloGrowth - 1.0) * outline.width() / 2.0 : 0.0;
    const double reach = growth + std::max(glyph.penWidth, kHaloWidth) / 2.0 + 1.0;
    return outline.adjusted(-reach, -reach, reach, reach).toAlignedRect();
}

} // namespace

/// A glyph's pictures, one for each place within a device pixel, made as they are needed.
struct GlyphPictures
{
    QPixmap at(int phaseX, int phaseY);

    Glyph glyph;
    double ratio = 1.0;
    QRect bounds;
    std::array<QPixmap, kPhases * kPhases> pictures;
};

QPixmap GlyphPictures::at(int phaseX, int phaseY)
{
    QPixmap& picture = pictures.at(static_cast<std::size_t>(phaseY * kPhases + phaseX));
    if (picture.isNull()) {
        const auto side = [this](int length) {
            return static_cast<int>(std::ceil(length * ratio)) + 1;
        };
        picture = QPixmap(side(bounds.width()), side(bounds.height()));
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(
            static_cast<double>(phaseX) / kPhases, static_cast<double>(phaseY) / kPhases);
        painter.scale(ratio, ratio);
        painter.translate(-bounds.topLeft());
        paintGlyph(painter, glyph);
        painter.end();
        picture.setDevicePixelRatio(ratio);
    }
    return picture;
}

namespace {

using Pictures = QHash<LookKey, std::shared_ptr<GlyphPictures>>;

/// Pictures of the GUI thread; given back when the application ends, as pixmaps have to be.
Pictures& pictures()
{
    static auto* const kept = new Pictures;
    static const bool registered = [] {
        qAddPostRoutine([] { kept->clear(); });
        return true;
    }();
    Q_UNUSED(registered);
    return *kept;
}

std::shared_ptr<GlyphPictures> picturesOf(const Glyph& glyph, double ratio)
{
    const LookKey key{
        glyph.shape,
        glyph.fill.rgba(),
        glyph.outline.isValid() ? glyph.outline.rgba() : 0,
        glyph.halo.isValid() ? glyph.halo.rgba() : 0,
        static_cast<int>(std::lround(glyph.penWidth * 1000.0)),
        static_cast<int>(std::lround(ratio * 1000.0))};
    Pictures& kept = pictures();
    if (kept.size() >= kMostLooks && !kept.contains(key)) {
        kept.clear();
    }
    std::shared_ptr<GlyphPictures>& found = kept[key];
    if (!found) {
        found = std::make_shared<GlyphPictures>();
        found->glyph = glyph;
        found->ratio = ratio;
        found->bounds = glyphBounds(glyph);
    }
    return found;
}

/// A device coordinate as whole pixels and the step within one.
struct Snapped
{
    explicit Snapped(double position)
    {
        const double steps = std::round(position * kPhases);
        pixel = std::floor(steps / kPhases);
        phase = static_cast<int>(steps - pixel * kPhases);
    }

    double pixel = 0.0;
    int phase = 0;
};

bool drawsFromPictures(const QPainter& painter)
{
    const QPaintEngine* const engine = painter.paintEngine();
    return engine != nullptr && engine->type() == QPaintEngine::Raster
           && painter.worldTransform().type() <= QTransform::TxScale;
}

} // namespace

const QPainterPath& glyphOutline(GlyphShape shape)
{
    static const std::array<QPainterPath, 4> outlines = {
        polygon({{0, 1}, {5, 6}, {0, 11}, {-5, 6}}),
        polygon({{-4, 2}, {4, 2}, {4, 10}, {-4, 10}}),
        polygon({{-6, 0}, {0, 6}, {6, 0}, {0, -6}}),
        circle(5),
    };
    return outlines.at(static_cast<std::size_t>(shape));
}

GlyphPass::GlyphPass(QPainter& painter)
    : m_painter(painter)
    , m_world(painter.worldTransform())
    , m_device(painter.deviceTransform())
    , m_ratio(painter.device()->devicePixelRatio())
    , m_direct(!drawsFromPictures(painter))
{
    if (!m_direct) {
        m_painter.setWorldTransform(QTransform());
    }
}

GlyphPass::~GlyphPass()
{
    m_painter.setWorldTransform(m_world);
}

void GlyphPass::draw(QPointF point, const Glyph& glyph)
{
    const QPointF place = m_world.map(point);
    const QPointF device = m_device.map(point);
    if (!(std::abs(device.x()) < kFarthest && std::abs(device.y()) < kFarthest)) {
        return;
    }
    if (m_direct) {
        m_painter.save();
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_painter.setWorldTransform(QTransform::fromTranslate(place.x(), place.y()));
        paintGlyph(m_painter, glyph);
        m_painter.restore();
        return;
    }
    const Snapped x(device.x());
    const Snapped y(device.y());
    if (!m_pictures || m_last != glyph) { // neighbours mostly look alike
        m_last = glyph;
        m_pictures = picturesOf(glyph, m_ratio);
    }
    const QPoint corner = m_pictures->bounds.topLeft();
    m_painter.drawPixmap(
        QPointF(
            place.x() + (x.pixel - device.x()) / m_ratio + corner.x(),
            place.y() + (y.pixel - device.y()) / m_ratio + corner.y()),
        m_pictures->at(x.phase, y.phase));
}

void drawGlyph(QPainter& painter, QPointF point, const Glyph& glyph)
{
    GlyphPass(painter).draw(point, glyph);
}

} // namespace ui
