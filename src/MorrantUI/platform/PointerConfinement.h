// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <QtGlobal>

namespace morrant::native {

/// While it lives, the pointer is confined to a rectangle. The latest one holds; when it goes, the
/// one before it holds again.
class PointerConfinement
{
public:
    /// @param rect  physical pixels of the desktop, not empty
    explicit PointerConfinement(const QRect& rect);
    ~PointerConfinement();
    Q_DISABLE_COPY_MOVE(PointerConfinement)

    /// False once endAll() was called.
    bool isInForce() const;

    /// Lets the pointer go, whoever has confined it.
    static void endAll();

private:
    QRect m_rect;
};

} // namespace morrant::native
