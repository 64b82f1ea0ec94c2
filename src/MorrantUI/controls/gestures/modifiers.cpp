#include "MorrantUI/controls/gestures/modifiers.h"

#include <QGuiApplication>

#include <utility>

namespace ui {

namespace {

KeyboardModifiersQuery& replacedQuery()
{
    static KeyboardModifiersQuery query;
    return query;
}

} // namespace

Qt::KeyboardModifiers queryKeyboardModifiers()
{
    const KeyboardModifiersQuery& query = replacedQuery();
    return query ? query() : QGuiApplication::queryKeyboardModifiers();
}

void setKeyboardModifiersQuery(KeyboardModifiersQuery query)
{
    replacedQuery() = std::move(query);
}

} // namespace ui
