#include "base/timer.h"

#include <chrono>
#include <ctime>

namespace velorix {

static std::tm LocalOf(std::time_t seconds) {
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &seconds);
#else
  local = *std::localtime(&seconds);
#endif
  return local;
}

std::string DateAndTime() {
  const std::tm local = LocalOf(std::time(nullptr));
  char text[32];
  return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local)};
}

float Timer() {
  using namespace std::chrono;
  const auto now = system_clock::now();
  const std::tm local = LocalOf(system_clock::to_time_t(floor<std::chrono::seconds>(now)));
  const double part = duration<double>(now - floor<std::chrono::seconds>(now)).count();
  return static_cast<float>((local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec + part);
}

float Elapsed(float now, float start) {
  const float elapsed = now - start;
  return elapsed < -0.01f ? elapsed + 86400 : elapsed;
}

}  // namespace velorix
