// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Core/Color.h>
#include <Core/CubicBezier.h>
#include <Core/Expression.h>
#include <Core/FontRegistry.h>
#include <Core/GraphCurveData.h>
#include <Core/ShapeRendering.h>
#include <Core/native.h>
#include <Core/num2.h>
