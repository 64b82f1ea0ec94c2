// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/vectorregisters.h"

void morrant::native::clearVectorRegisters()
{}
