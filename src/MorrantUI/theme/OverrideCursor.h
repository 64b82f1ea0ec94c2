// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QCursor>
#include <QtGlobal>

namespace ui {

/// While it lives, the application has an override cursor; its end takes away exactly that one.
///
/// Others may push and restore override cursors in between, in any order: what they have pushed
/// stays on the stack, above or below this one. Should somebody else's restore have taken this
/// object's cursor, the one that they left behind goes instead, so that the stack always balances.
class MORRANT_UI_EXPORT OverrideCursor
{
public:
    explicit OverrideCursor(const QCursor& cursor);
    ~OverrideCursor();
    Q_DISABLE_COPY_MOVE(OverrideCursor)

    /// Replaces this object's cursor, which shows unless somebody has pushed another above it.
    void change(const QCursor& cursor);

    QCursor cursor() const { return m_cursor; }

private:
    QCursor m_cursor;
    int m_depth = 0; ///< how many override cursors were below this one when it was pushed
};

} // namespace ui
