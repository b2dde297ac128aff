#include "ClockRandomSource.h"

#include <chrono>

namespace {

std::uint32_t clockSeed()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto ticks = static_cast<std::uint64_t>(now.count());
    return static_cast<std::uint32_t>(ticks ^ (ticks >> 32));
}

} // namespace

ClockRandomSource::ClockRandomSource() : engine(clockSeed()) {}

ClockRandomSource::ClockRandomSource(std::uint32_t seed) : engine(seed) {}

float ClockRandomSource::NextUniform()
{
    return UniformFromBits(static_cast<std::uint32_t>(engine()));
}

float ClockRandomSource::UniformFromBits(std::uint32_t bits)
{
    constexpr float twoToMinus24 = 1.0f / 16777216.0f;
    return static_cast<float>(bits >> 8) * twoToMinus24;
}
