#pragma once

#include "household/report_options.h"

#include <QPixmap>

namespace tarnwick {

/// The number of the sample picture of the print setup: 138 one column, 139 one column grouped, 140 two columns,
/// 141 two columns grouped.
int sample_number(const ReportOptions& options);

/// A sample picture, a printed page of made-up rows, for `scale` device pixels to a logical pixel. Null for any
/// other number.
QPixmap sample_picture(int number, qreal scale = 1.0);

} // namespace tarnwick
