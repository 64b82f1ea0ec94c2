// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/popovergeometry.h"

#include <QTransform>

#include <algorithm>
#include <array>
#include <cstdint>

namespace ui::popover {

namespace {

constexpr int kReach = kArrowLength + kAnchorGap; ///< from the anchor to the body
constexpr int kCorner = kRadius + kArrowHalf;     ///< the least from a body's end to the tip

bool isBesides(Side side)
{
    return side == Side::Right || side == Side::Left;
}

Side opposite(Side side)
{
    switch (side) {
    case Side::Below: return Side::Above;
    case Side::Above: return Side::Below;
    case Side::Right: return Side::Left;
    case Side::Left: break;
    }
    return Side::Right;
}

std::array<Side, 4> inOrder(Side preferred)
{
    const Side other = isBesides(preferred) ? Side::Below : Side::Right;
    return {preferred, opposite(preferred), other, opposite(other)};
}

/// The nearest rectangle of that size in `room`; what is too large begins with it.
QRect movedInto(const QRect& room, QRect rect)
{
    rect.moveRight(std::min(rect.right(), room.right()));
    rect.moveBottom(std::min(rect.bottom(), room.bottom()));
    rect.moveLeft(std::max(rect.left(), room.left()));
    rect.moveTop(std::max(rect.top(), room.top()));
    return rect;
}

/// What is to be seen of the anchor: of one beyond the screen, the nearest point.
QRect seenAnchor(const QRect& anchor, const QRect& room)
{
    const QRect solid(anchor.topLeft(), anchor.size().expandedTo({1, 1}));
    const QRect seen = solid & room;
    return seen.isEmpty() ? movedInto(room, {solid.center(), QSize(1, 1)}) : seen;
}

/// The room for a body on a side of the anchor.
QRect roomOn(Side side, const QRect& anchor, QRect room)
{
    switch (side) {
    case Side::Below: room.setTop(anchor.bottom() + 1 + kReach); break;
    case Side::Above: room.setBottom(anchor.top() - 1 - kReach); break;
    case Side::Right: room.setLeft(anchor.right() + 1 + kReach); break;
    case Side::Left: room.setRight(anchor.left() - 1 - kReach); break;
    }
    return room;
}

bool fits(const QSize& size, const QRect& room)
{
    return size.width() <= room.width() && size.height() <= room.height();
}

/// A body of that size beside the anchor, centred on it.
QRect beside(Side side, const QRect& anchor, const QSize& size)
{
    QRect body(QPoint(), size);
    body.moveCenter(anchor.center());
    switch (side) {
    case Side::Below: body.moveTop(anchor.bottom() + 1 + kReach); break;
    case Side::Above: body.moveBottom(anchor.top() - 1 - kReach); break;
    case Side::Right: body.moveLeft(anchor.right() + 1 + kReach); break;
    case Side::Left: body.moveRight(anchor.left() - 1 - kReach); break;
    }
    return body;
}

struct Choice
{
    Side side = Side::Below;
    QSize size;
    bool covers = false;
};

Choice chosen(const Request& request, const QRect& anchor, const QRect& room)
{
    const auto sides = inOrder(request.preferred);
    for (const Side side : sides) {
        if (fits(request.wanted, roomOn(side, anchor, room))) {
            return {side, request.wanted, false};
        }
    }
    const auto area = [&](Side side) {
        const QSize part =
            roomOn(side, anchor, room).size().boundedTo(request.wanted).expandedTo({0, 0});
        return std::int64_t(part.width()) * part.height();
    };
    const Side roomiest = *std::max_element(
        sides.begin(), sides.end(), [&](Side a, Side b) { return area(a) < area(b); });
    const QRect most = roomOn(roomiest, anchor, room);
    if (fits(request.least, most)) {
        return {roomiest, request.wanted.boundedTo(most.size()), false};
    }
    return {roomiest, request.wanted.boundedTo(room.size()), true};
}

/// Where the tip is, on screen.
QPoint tipAt(Side side, const QRect& anchor, const QRect& body)
{
    const auto along = [](int wanted, int first, int last) {
        const int margin = std::min(kCorner, (last - first + 1) / 2);
        return std::clamp(wanted, first + margin, std::max(first + margin, last + 1 - margin));
    };
    const int x = along(anchor.center().x(), body.left(), body.right());
    const int y = along(anchor.center().y(), body.top(), body.bottom());
    switch (side) {
    case Side::Below: return {x, body.top() - kArrowLength};
    case Side::Above: return {x, body.bottom() + 1 + kArrowLength};
    case Side::Right: return {body.left() - kArrowLength, y};
    case Side::Left: break;
    }
    return {body.right() + 1 + kArrowLength, y};
}

} // namespace

Placement place(const Request& asked)
{
    Request request = asked;
    request.wanted = asked.wanted.expandedTo({2 * kCorner, 2 * kCorner});
    constexpr int kUnbounded = 1 << 24;
    const QRect room =
        asked.screen.isEmpty()
            ? QRect(-kUnbounded, -kUnbounded, 2 * kUnbounded, 2 * kUnbounded)
            : asked.screen.adjusted(kScreenMargin, kScreenMargin, -kScreenMargin, -kScreenMargin);
    const QRect anchor = seenAnchor(asked.anchor, room);
    const Choice choice = chosen(request, anchor, room);
    const QRect body = movedInto(room, beside(choice.side, anchor, choice.size));

    Placement result;
    result.side = choice.side;
    result.hasArrow = !choice.covers;
    const QPoint tip = tipAt(choice.side, anchor, body);
    result.window = body;
    if (result.hasArrow) {
        switch (choice.side) {
        case Side::Below: result.window.setTop(tip.y()); break;
        case Side::Above: result.window.setBottom(tip.y() - 1); break;
        case Side::Right: result.window.setLeft(tip.x()); break;
        case Side::Left: result.window.setRight(tip.x() - 1); break;
        }
    }
    result.body = body.translated(-result.window.topLeft());
    result.tip = tip - result.window.topLeft();
    return result;
}

QPainterPath outline(const Placement& placement, double inset)
{
    QPainterPath path;
    const QRectF body = QRectF(placement.body).adjusted(inset, inset, -inset, -inset);
    path.addRoundedRect(body, kRadius, kRadius);
    if (!placement.hasArrow) {
        return path;
    }
    // An arrow that points up, turned to its side. Its foot reaches into the body, so that the two
    // become one shape.
    constexpr int kOverlap = 2;
    QPolygonF arrow{
        {0.0, inset},
        {double(kArrowHalf), kArrowLength + inset},
        {double(kArrowHalf), kArrowLength + inset + kOverlap},
        {-double(kArrowHalf), kArrowLength + inset + kOverlap},
        {-double(kArrowHalf), kArrowLength + inset}};
    QTransform turned = QTransform::fromTranslate(placement.tip.x(), placement.tip.y());
    switch (placement.side) {
    case Side::Below: break;
    case Side::Above: turned.rotate(180); break;
    case Side::Right: turned.rotate(-90); break;
    case Side::Left: turned.rotate(90); break;
    }
    QPainterPath tip;
    tip.addPolygon(turned.map(arrow));
    tip.closeSubpath();
    return path.united(tip);
}

} // namespace ui::popover
