// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>

#include <vector>

class TimeEditorClipItem;

/// What a gesture did to one area of a clip. Frames.
struct ClipEdit
{
    int index = 0;
    int startFrom = 0;
    int startTo = 0;
    int endFrom = 0;
    int endTo = 0;
    int slipFrom = 0;
    int slipTo = 0;
};

/// The same with the clip, for gestures that take several along.
struct ClipMove
{
    QPointer<TimeEditorClipItem> clip;
    ClipEdit edit;
};

using ClipMoves = std::vector<ClipMove>;
