// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QString>

/// What the sketchpad draws: a flower with as many petals as wanted, a value that is copied.
struct Rosette
{
    QString name;
    double petals = 7;     ///< whole
    double width = 100.0;  ///< per cent of the room
    double height = 100.0; ///< per cent of the room
    double turn = 0.0;     ///< degrees, clockwise
    QColor color;

    bool operator==(const Rosette&) const = default;
};
