// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/PointerConfinement.h"

#include "MorrantUI/platform/PointerSystem.h"

#include <algorithm>
#include <vector>

namespace morrant::native {

namespace {

/// The latest last.
std::vector<const PointerConfinement*>& inForce()
{
    static std::vector<const PointerConfinement*> confinements;
    return confinements;
}

} // namespace

PointerConfinement::PointerConfinement(const QRect& rect)
    : m_rect(rect)
{
    inForce().push_back(this);
    logFailure(PointerSystem::instance().confine(rect));
}

PointerConfinement::~PointerConfinement()
{
    if (std::erase(inForce(), this) == 0) {
        return;
    }
    if (inForce().empty()) {
        logFailure(PointerSystem::instance().endConfinement());
    } else {
        logFailure(PointerSystem::instance().confine(inForce().back()->m_rect));
    }
}

bool PointerConfinement::isInForce() const
{
    return std::find(inForce().begin(), inForce().end(), this) != inForce().end();
}

void PointerConfinement::endAll()
{
    inForce().clear();
    logFailure(PointerSystem::instance().endConfinement());
}

} // namespace morrant::native
