#include "fonts/round_tenths.h"

namespace zeapi {

Tenths RoundTenths(double value) {
  auto whole = static_cast<std::int32_t>(value);
  if (value - whole >= 0.5) ++whole;
  const double tenths = (value - whole) * 10;
  auto tenth = static_cast<std::int32_t>(tenths);
  if (tenths - tenth >= 0.5) ++tenth;
  return {static_cast<std::uint32_t>(whole), static_cast<std::uint32_t>(tenth)};
}

}  // namespace zeapi
