#pragma once

#include <chrono>

// The system's clock that only goes forward.
inline long long SteadyMilliseconds() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}
