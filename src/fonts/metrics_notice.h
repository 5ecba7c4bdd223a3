// What the copyright field of metrics made by the library says.
#pragma once

namespace zeapi {

inline constexpr char kMetricsNotice[] = "Printer metrics, made from the metrics of the font.";

}  // namespace zeapi
