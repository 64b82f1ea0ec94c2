// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/OverrideCursor.h"

#include <QGuiApplication>

#include <algorithm>
#include <vector>

namespace ui {

namespace {

/// Takes Qt's stack of override cursors apart and puts it back, changed, at the end: Qt itself only
/// reaches the top of it.
class CursorStack
{
public:
    CursorStack()
    {
        while (const QCursor* top = QGuiApplication::overrideCursor()) {
            cursors.insert(cursors.begin(), *top);
            QGuiApplication::restoreOverrideCursor();
        }
    }
    ~CursorStack()
    {
        for (const QCursor& cursor : cursors) {
            QGuiApplication::setOverrideCursor(cursor);
        }
    }
    Q_DISABLE_COPY_MOVE(CursorStack)

    int size() const { return static_cast<int>(cursors.size()); }

    std::vector<QCursor> cursors; ///< the lowest first
};

std::vector<OverrideCursor*>& liveCursors()
{
    static std::vector<OverrideCursor*> cursors;
    return cursors;
}

bool hasApplication()
{
    return QCoreApplication::instance() != nullptr;
}

} // namespace

OverrideCursor::OverrideCursor(const QCursor& cursor)
    : m_cursor(cursor)
{
    if (hasApplication()) {
        CursorStack stack;
        m_depth = stack.size();
        stack.cursors.push_back(cursor);
    }
    liveCursors().push_back(this);
}

OverrideCursor::~OverrideCursor()
{
    std::erase(liveCursors(), this);
    if (!hasApplication()) {
        return;
    }
    CursorStack stack;
    if (stack.cursors.empty()) {
        return;
    }
    const int index = std::min(m_depth, stack.size() - 1);
    stack.cursors.erase(stack.cursors.begin() + index);
    for (OverrideCursor* other : liveCursors()) {
        other->m_depth -= other->m_depth > index ? 1 : 0;
    }
}

void OverrideCursor::change(const QCursor& cursor)
{
    if (cursor == m_cursor || !hasApplication()) {
        return;
    }
    m_cursor = cursor;
    CursorStack stack;
    if (m_depth < stack.size()) {
        stack.cursors.at(static_cast<std::size_t>(m_depth)) = cursor;
    }
}

} // namespace ui
