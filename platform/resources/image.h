// Reads a linked .res image: finds resources by type and name, in place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/byte_reader.h"
#include "windef.h"

namespace resources {

/// The image in use: the program's linked resources, the bytes of a .res file.
void setImage(std::span<const std::byte> bytes);
std::span<const std::byte> image();

/// Whether `name` is null or comes from MAKEINTRESOURCEW: a number instead of a pointer.
bool isNumber(LPCWSTR name);

/// The name or type of a resource: a number below 65,536, or a text, compared without regard to
/// case.
struct Name
{
    std::uint16_t number = 0; ///< used when `text` is empty
    std::u16string text;

    /// From a pointer, or a number from MAKEINTRESOURCEW.
    static Name from(LPCWSTR name);
    /// As resources store it: a terminated text, or 0xFFFF and a number.
    static Name read(base::ByteReader &reader);
    friend bool operator==(const Name &a, const Name &b);
};

/// The bytes of a resource; empty when there is none, or the image is damaged there. They begin at
/// a multiple of four bytes, as the image itself must.
std::span<const std::byte> find(const Name &type, const Name &name);
std::span<const std::byte> find(LPCWSTR type, LPCWSTR name);
/// String `id` of the string table, in place; empty when there is none.
std::u16string_view string(unsigned id);

/// A number by which `at` finds the resource; 0 when there is none.
std::uint32_t locate(const Name &type, const Name &name);
/// The bytes of the resource with that number; empty when there is none.
std::span<const std::byte> at(std::uint32_t place);

} // namespace resources
