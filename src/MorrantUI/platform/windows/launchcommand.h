// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace morrant::native {

/// The path of the running program, of any length; empty on failure.
std::wstring programPath();

/// Writes, for the current user, how COM starts this program for a class: its path in quotation
/// marks and "-ToastActivated". COM appends "-Embedding".
bool writeLaunchCommand(const wchar_t* classId);

} // namespace morrant::native
