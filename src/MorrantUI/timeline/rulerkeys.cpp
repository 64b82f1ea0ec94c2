// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/rulerkeys.h"

#include <array>

namespace ui {

namespace {

constexpr int kWideStep = 10; ///< frames, with Shift

struct Binding
{
    int key;
    Qt::KeyboardModifiers modifiers;
    RulerKey does;
};

RulerKey arrow(int direction, Qt::KeyboardModifiers modifiers)
{
    const bool isWide = modifiers.testFlag(Qt::ShiftModifier);
    const int distance = isWide ? kWideStep * direction : direction;
    const Qt::KeyboardModifiers others = modifiers & ~Qt::KeyboardModifiers(Qt::ShiftModifier);
    if (others == Qt::NoModifier) {
        return {RulerCommand::Step, distance};
    }
    if (others == Qt::AltModifier) {
        return {RulerCommand::MoveMarker, distance};
    }
    return others == Qt::ControlModifier && !isWide ? RulerKey{RulerCommand::GoToMarker, direction}
                                                    : RulerKey{};
}

} // namespace

RulerKey rulerKey(int key, Qt::KeyboardModifiers modifiers)
{
    const Qt::KeyboardModifiers held = modifiers & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    if (key == Qt::Key_Left || key == Qt::Key_Right) {
        return arrow(key == Qt::Key_Left ? -1 : 1, held);
    }
    static const std::array kBindings{
        Binding{Qt::Key_Home, Qt::NoModifier, {RulerCommand::GoToStart}},
        Binding{Qt::Key_End, Qt::NoModifier, {RulerCommand::GoToEnd}},
        Binding{Qt::Key_Home, Qt::ControlModifier, {RulerCommand::GoToFirst}},
        Binding{Qt::Key_End, Qt::ControlModifier, {RulerCommand::GoToLast}},
        Binding{Qt::Key_I, Qt::NoModifier, {RulerCommand::SetStart}},
        Binding{Qt::Key_O, Qt::NoModifier, {RulerCommand::SetEnd}},
        Binding{Qt::Key_M, Qt::NoModifier, {RulerCommand::AddMarker}},
        Binding{Qt::Key_F2, Qt::NoModifier, {RulerCommand::Rename}},
        Binding{Qt::Key_Return, Qt::NoModifier, {RulerCommand::Rename}},
        Binding{Qt::Key_Enter, Qt::NoModifier, {RulerCommand::Rename}},
        Binding{Qt::Key_Delete, Qt::NoModifier, {RulerCommand::Remove}},
        Binding{Qt::Key_Backspace, Qt::NoModifier, {RulerCommand::Remove}},
    };
    for (const Binding& binding : kBindings) {
        if (binding.key == key && binding.modifiers == held) {
            return binding.does;
        }
    }
    return {key == Qt::Key_Escape ? RulerCommand::Cancel : RulerCommand::None};
}

} // namespace ui
