// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace morrant::native {

/// Keeps the calling thread initialised for COM and the Windows Runtime. A thread that the host has
/// initialised already, either way, stays as it is; otherwise it becomes single-threaded, which is
/// what Qt makes of its GUI thread too. To be destroyed on the thread that made it.
class Apartment
{
public:
    Apartment();
    ~Apartment();
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

private:
    bool m_entered;
};

} // namespace morrant::native
