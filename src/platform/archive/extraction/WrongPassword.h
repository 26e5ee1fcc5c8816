#pragma once

/// The password does not open an entry.
struct WrongPassword
{};
