// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unknwn.h>
#include <utility>

namespace morrant::native {

/// Owns one reference to a COM object.
template <typename Interface>
class ComPointer
{
public:
    ComPointer() = default;
    ComPointer(const ComPointer&) = delete;
    ComPointer(ComPointer&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {}

    ComPointer& operator=(const ComPointer&) = delete;
    ComPointer& operator=(ComPointer&& other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    ~ComPointer()
    {
        if (m_object) {
            m_object->Release();
        }
    }

    explicit operator bool() const { return m_object; }
    Interface* operator->() const { return m_object; }
    Interface* get() const { return m_object; }

    /// Where a call that creates an object writes it; only for a pointer that owns nothing yet.
    Interface** out() { return &m_object; }
    void** outVoid() { return reinterpret_cast<void**>(&m_object); }

    /// The object's other interface; null when it has none.
    template <typename Other>
    ComPointer<Other> as() const
    {
        ComPointer<Other> other;
        if (m_object && FAILED(m_object->QueryInterface(Other::kId, other.outVoid()))) {
            return {};
        }
        return other;
    }

private:
    Interface* m_object = nullptr;
};

} // namespace morrant::native
