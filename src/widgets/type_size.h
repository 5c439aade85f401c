#pragma once

namespace tarnwick {

/// The smallest of the three type sizes, in points; the one in use until the settings tell another.
inline constexpr int first_type_size = 9;

} // namespace tarnwick
