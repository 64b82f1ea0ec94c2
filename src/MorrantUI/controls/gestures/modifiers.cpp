// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/gestures/modifiers.h"

#include <QGuiApplication>

#include <utility>

namespace ui {

namespace {

constexpr double kFine = 0.1;
constexpr double kCoarse = 10.0;

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

Qt::KeyboardModifiers eventKeyboardModifiers()
{
    const KeyboardModifiersQuery& query = replacedQuery();
    return query ? query() : QGuiApplication::keyboardModifiers();
}

void setKeyboardModifiersQuery(KeyboardModifiersQuery query)
{
    replacedQuery() = std::move(query);
}

double modifierFactor(Qt::KeyboardModifiers modifiers)
{
    const bool isCoarse = modifiers.testFlag(Qt::ShiftModifier);
    return modifiers.testFlag(Qt::ControlModifier) ? kFine : isCoarse ? kCoarse : 1.0;
}

double fineFactor(Qt::KeyboardModifiers modifiers)
{
    return modifiers.testFlag(Qt::ControlModifier) ? kFine : 1.0;
}

} // namespace ui
