// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPointF>
#include <QTransform>
#include <QtGlobal>

#include <memory>

class QPainter;

/// Small shapes that keep their size on screen at any zoom. They are built in pixels around the
/// point that they mark, and drawn from one cache of pictures: an antialiased outline costs ten
/// times what its picture does.
namespace ui {

enum class GlyphShape
{
    KeyDiamond,   ///< a key of the time editor, hanging below its row's upper edge
    KeySquare,    ///< the same for a key whose value holds
    GraphDiamond, ///< a point of a graph, around its place
    GraphKnob,    ///< a tangent handle's, around its place
};

struct Glyph
{
    GlyphShape shape = GlyphShape::KeyDiamond;
    QColor fill;
    QColor outline;        ///< none when invalid
    QColor halo;           ///< a second outline around the first; none when invalid
    double penWidth = 1.0; ///< pixels, of the outline

    friend bool operator==(const Glyph&, const Glyph&) = default;
};

/// The shape's outline, in pixels around the marked point.
const QPainterPath& glyphOutline(GlyphShape shape);

/// How far a glyph reaches from its point with everything that is drawn of it, in pixels.
inline constexpr double kGlyphReach = 14.0;

/// Draws a glyph at a point in the painter's coordinates, whatever its scale. Restores the
/// painter's transform; leaves its pen and brush as they were.
void drawGlyph(QPainter& painter, QPointF point, const Glyph& glyph);

struct GlyphPictures;

/// The same for many glyphs: the painter's transform is put aside once. Draw through nothing but
/// this object while it lives.
class GlyphPass
{
public:
    explicit GlyphPass(QPainter& painter);
    ~GlyphPass();
    Q_DISABLE_COPY_MOVE(GlyphPass)

    /// @param point in the coordinates that the painter had when the pass began
    void draw(QPointF point, const Glyph& glyph);

private:
    QPainter& m_painter;
    QTransform m_world;
    QTransform m_device;
    double m_ratio = 1.0;
    Glyph m_last;
    std::shared_ptr<GlyphPictures> m_pictures; ///< of m_last
    bool m_direct = false; ///< the painter turns, shears or records: outlines are drawn as they are
};

} // namespace ui
