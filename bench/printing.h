#pragma once

namespace tarnwick::bench {

void measure_printing(); ///< preview, its pages and the whole list as PDF against the bare query and each other

} // namespace tarnwick::bench
