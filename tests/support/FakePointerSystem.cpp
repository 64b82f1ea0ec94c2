// SPDX-License-Identifier: Apache-2.0
#include "support/FakePointerSystem.h"

#include <QAbstractEventDispatcher>

#include <algorithm>

namespace ui::test {

static const QByteArray kRawRecord = QByteArrayLiteral("fake_raw_record");

FakePointerSystem::FakePointerSystem(Drive drive)
    : m_drive(drive)
{
    replace(this);
}

FakePointerSystem::~FakePointerSystem()
{
    replace(nullptr);
}

void FakePointerSystem::moveRaw(QPoint delta)
{
    setPointer(pointer + delta);
    RawMouseRecord record;
    record.x = delta.x();
    record.y = delta.y();
    sendRaw(record);
}

void FakePointerSystem::sendRaw(RawMouseRecord record)
{
    QAbstractEventDispatcher::instance()->filterNativeEvent(kRawRecord, &record, nullptr);
}

void FakePointerSystem::moveMouse(QPoint delta)
{
    pointer += delta;
    m_positions.push_back(pointer);
}

std::deque<QPoint> FakePointerSystem::takePositions(std::mt19937& random)
{
    std::deque<QPoint> positions;
    std::bernoulli_distribution isLeftOut(0.5);
    for (const QPoint position : std::exchange(m_positions, {})) {
        if (!positions.empty() && isLeftOut(random)) {
            positions.back() = position;
        } else {
            positions.push_back(position);
        }
    }
    return positions;
}

std::optional<QPoint> FakePointerSystem::position() const
{
    return knowsPosition ? std::optional(pointer) : std::nullopt;
}

bool FakePointerSystem::setPosition(QPoint position)
{
    note(u"move to %1,%2"_qs.arg(position.x()).arg(position.y()));
    setPointer(position);
    return succeeds;
}

QPointF FakePointerSystem::moveBy(QPointF offset, double /*ratio*/)
{
    if (!allowsWarps) {
        return {};
    }
    moveMouse(offset.toPoint()); // the window system tells of it as of any motion
    return offset;
}

bool FakePointerSystem::confine(const QRect& rect)
{
    note(
        u"confine %1,%2 %3x%4"_qs.arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height()));
    clip = rect;
    setPointer(pointer);
    return succeeds;
}

bool FakePointerSystem::endConfinement()
{
    note(u"end confinement"_qs);
    clip.reset();
    return succeeds;
}

void FakePointerSystem::hide()
{
    note(u"hide"_qs);
    ++hides;
}

void FakePointerSystem::show()
{
    note(u"show"_qs);
    --hides;
}

bool FakePointerSystem::registerRawInput(const Registration& wanted)
{
    note(u"register"_qs);
    if (allowsRawInput) {
        registration = wanted;
    }
    return allowsRawInput;
}

void FakePointerSystem::unregisterRawInput()
{
    note(u"unregister"_qs);
    registration.reset();
}

void FakePointerSystem::readRawInput(
    const QByteArray& type, void* message, const std::function<void(const RawMouseRecord&)>& sink)
{
    if (type == kRawRecord) {
        sink(*static_cast<const RawMouseRecord*>(message));
    }
}

void FakePointerSystem::note(const QString& request)
{
    m_requests += m_requests.isEmpty() ? request : u"; "_qs + request;
}

void FakePointerSystem::setPointer(QPoint position)
{
    pointer = position;
    if (clip) {
        pointer.setX(std::clamp(position.x(), clip->left(), clip->right()));
        pointer.setY(std::clamp(position.y(), clip->top(), clip->bottom()));
    }
}

} // namespace ui::test
