// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRectF>
#include <QtGlobal>

namespace ui {

/// While one lives, a view paints its scene, and the stack of rows paints its key rows itself: Qt
/// would visit every key of every row in sight, seen or not. Rows answer Qt's walk with kNowhere
/// meanwhile, and the stack with the whole of what is painted, so that its turn comes.
class RowPass
{
public:
    /// @param exposed what is painted, scene units
    explicit RowPass(const QRectF& exposed)
        : m_exposed(exposed)
        , m_outer(current())
    {
        setCurrent(this);
    }
    ~RowPass() { setCurrent(m_outer); }
    Q_DISABLE_COPY_MOVE(RowPass)

    const QRectF& exposed() const { return m_exposed; }

    /// The pass that is under way, or null.
    static const RowPass* current() { return slot(); }

private:
    static const RowPass*& slot()
    {
        static const RowPass* pass = nullptr;
        return pass;
    }
    static void setCurrent(const RowPass* pass) { slot() = pass; }

    QRectF m_exposed;
    const RowPass* m_outer = nullptr;
};

/// While one lives, rows do not answer for their keys when Qt asks what is at a place: Qt would go
/// on to ask every key of the row. Nor does the whole stack, where it is known to have nothing else
/// at the place.
class KeyMask
{
public:
    explicit KeyMask(bool hidesStack)
        : m_hidesStack(hidesStack)
        , m_outer(current())
    {
        slot() = this;
    }
    ~KeyMask() { slot() = m_outer; }
    Q_DISABLE_COPY_MOVE(KeyMask)

    /// The mask that holds for what Qt asks now, or null.
    static KeyMask* current()
    {
        KeyMask* const mask = slot();
        return mask && mask->m_walks <= 1 ? mask : nullptr;
    }

    /// Qt comes to the stack. It holds for one walk: what a host asks, told of what that one found,
    /// is answered in full.
    void beginWalk() { ++m_walks; }
    bool hidesStack() const { return m_hidesStack; }

private:
    static KeyMask*& slot()
    {
        static KeyMask* mask = nullptr;
        return mask;
    }

    bool m_hidesStack = false;
    int m_walks = 0;
    KeyMask* m_outer = nullptr;
};

inline constexpr double kFarthestFrame = 2147483648.0; ///< either way

/// Where no view looks: a place that can still be told in device pixels.
inline constexpr QRectF kNowhere(0.0, 1e8, 1.0, 1.0);

} // namespace ui
