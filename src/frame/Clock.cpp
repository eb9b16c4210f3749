#include "frame/Clock.h"

#include <chrono>
#include <ctime>

namespace rovanta {

DateTime Clock::Now() const
{
    if (frozen)
        return *frozen;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return DateTime::Of(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                        local.tm_sec % 60);
}

double Clock::Timer() const
{
    if (frozen)
        return frozen->SecondsOfDay();
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto fraction = now - std::chrono::floor<std::chrono::seconds>(now);
    return Now().SecondsOfDay() + std::chrono::duration<double>(fraction).count();
}

}
