// The program's linked resources, made from glimra.rc by the build.
#pragma once

#include <cstddef>
#include <span>

/// The bytes of the .res image; they live as long as the process.
std::span<const std::byte> programResources();
