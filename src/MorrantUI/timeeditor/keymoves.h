// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>

#include <vector>

class TimeEditorKeyframeItem;

/// What a gesture did to one key. Frames are those of the scene.
struct KeyMove
{
    QPointer<TimeEditorKeyframeItem> key;
    double from = 0.0;
    double to = 0.0;
};

using KeyMoves = std::vector<KeyMove>;
