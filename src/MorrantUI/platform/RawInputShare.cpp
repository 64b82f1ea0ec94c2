// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/RawInputShare.h"

#include "MorrantUI/log.h"

namespace morrant::native {

RawInputShare& RawInputShare::instance()
{
    static RawInputShare share;
    return share;
}

bool RawInputShare::add(const void* user, WId window)
{
    auto& system = PointerSystem::instance();
    const auto former = m_entries.empty() ? system.rawInput() : m_foreign;
    const RawRegistration registration{RawRegistration::kInputSink, window};
    if (!system.registerRawInput(registration)) {
        return false;
    }
    m_foreign = former;
    m_entries.push_back({user, registration});
    return true;
}

void RawInputShare::remove(const void* user)
{
    if (std::erase_if(m_entries, [&](const Entry& entry) { return entry.user == user; }) == 0) {
        return;
    }
    auto& system = PointerSystem::instance();
    const auto next = m_entries.empty() ? m_foreign : m_entries.back().registration;
    const bool isHandedOn = next && system.registerRawInput(*next);
    if (next && !isHandedOn) {
        ui::log::debug("RegisterRawInputDevices() failed");
    }
    if (!isHandedOn) {
        system.unregisterRawInput();
    }
}

} // namespace morrant::native
