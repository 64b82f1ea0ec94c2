#include "MorrantUI/scene/glyphs.h"

#include <QHash>
#include <QPaintEngine>
#include <QPainter>
#include <QPixmap>

#include <array>
#include <cmath>

namespace ui {

namespace {

constexpr int kPhases = 4;           ///< places within a device pixel, on either axis
constexpr int kMostPictures = 2048;  ///< a colour animation makes a new one for each of its steps
constexpr double kPenWidth = 1.0;    ///< pixels
constexpr double kHaloWidth = 2.0;   ///< pixels
constexpr double kHaloGrowth = 1.45; ///< the halo's size, times the glyph's

struct PictureKey
{
    GlyphShape shape = GlyphShape::KeyDiamond;
    QRgb fill = 0;
    QRgb outline = 0;
    QRgb halo = 0;
    int ratio = 0; ///< thousandths
    int phaseX = 0;
    int phaseY = 0;

    friend bool operator==(const PictureKey&, const PictureKey&) = default;
};

size_t qHash(const PictureKey& key, size_t seed = 0)
{
    return qHashMulti(
        seed,
        static_cast<int>(key.shape),
        key.fill,
        key.outline,
        key.halo,
        key.ratio,
        key.phaseX,
        key.phaseY);
}

QPainterPath polygon(const QPolygonF& points)
{
    QPainterPath path;
    path.addPolygon(points);
    path.closeSubpath();
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
    painter.setPen(QPen(glyph.outline, kPenWidth));
    painter.setBrush(glyph.fill);
    painter.drawPath(outline);
}

QPixmap makePicture(const Glyph& glyph, double ratio, QPointF phase)
{
    const int side = static_cast<int>(std::ceil(2.0 * kGlyphReach * ratio)) + 1;
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(phase);
    painter.scale(ratio, ratio);
    painter.translate(kGlyphReach, kGlyphReach);
    paintGlyph(painter, glyph);
    painter.end();
    picture.setDevicePixelRatio(ratio);
    return picture;
}

/// Pictures of the GUI thread; given back when the application ends, as pixmaps have to be.
QHash<PictureKey, QPixmap>& pictures()
{
    static auto* const kept = new QHash<PictureKey, QPixmap>;
    static const bool registered = [] {
        qAddPostRoutine([] { kept->clear(); });
        return true;
    }();
    Q_UNUSED(registered);
    return *kept;
}

const QPixmap& pictureOf(const Glyph& glyph, double ratio, int phaseX, int phaseY)
{
    const PictureKey key{
        glyph.shape,
        glyph.fill.rgba(),
        glyph.outline.rgba(),
        glyph.halo.isValid() ? glyph.halo.rgba() : 0,
        static_cast<int>(std::lround(ratio * 1000.0)),
        phaseX,
        phaseY};
    QHash<PictureKey, QPixmap>& kept = pictures();
    const auto found = kept.constFind(key);
    if (found != kept.constEnd()) {
        return *found;
    }
    if (kept.size() >= kMostPictures) {
        kept.clear();
    }
    const QPointF phase(
        static_cast<double>(phaseX) / kPhases, static_cast<double>(phaseY) / kPhases);
    return *kept.insert(key, makePicture(glyph, ratio, phase));
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
    static const std::array<QPainterPath, 2> outlines = {
        polygon({{0, 1}, {5, 6}, {0, 11}, {-5, 6}}),
        polygon({{-4, 2}, {4, 2}, {4, 10}, {-4, 10}}),
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
    if (!std::isfinite(device.x()) || !std::isfinite(device.y())) {
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
    const double reach = kGlyphReach;
    m_painter.drawPixmap(
        QPointF(
            place.x() + (x.pixel - device.x()) / m_ratio - reach,
            place.y() + (y.pixel - device.y()) / m_ratio - reach),
        pictureOf(glyph, m_ratio, x.phase, y.phase));
}

void drawGlyph(QPainter& painter, QPointF point, const Glyph& glyph)
{
    GlyphPass(painter).draw(point, glyph);
}

} // namespace ui
