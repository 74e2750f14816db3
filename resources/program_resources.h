// The program's resources, which the build makes from glimra.rc and links in.
#pragma once

#include <cstddef>
#include <span>

/// The bytes of the .res image, valid as long as the process runs.
std::span<const std::byte> programResources();
