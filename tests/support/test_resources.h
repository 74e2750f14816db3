// What the build makes of handheld.rc.
#pragma once

#include <cstddef>
#include <span>

std::span<const std::byte> testResources();
