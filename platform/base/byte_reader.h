// Reads little-endian numbers and texts from a resource, never beyond its end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace base {

class ByteReader
{
public:
    explicit ByteReader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    /// False once a read has gone beyond the end. Such a read returns 0.
    bool good() const { return good_; }
    std::size_t position() const { return position_; }

    std::uint8_t byte()
    {
        if (position_ >= bytes_.size()) {
            good_ = false;
            return 0;
        }
        return static_cast<std::uint8_t>(bytes_[position_++]);
    }
    std::uint16_t word()
    {
        const unsigned low = byte();
        return static_cast<std::uint16_t>(low | static_cast<unsigned>(byte()) << 8U);
    }
    std::int16_t signedWord() { return static_cast<std::int16_t>(word()); }
    std::uint32_t doubleWord()
    {
        const std::uint32_t low = word();
        return low | static_cast<std::uint32_t>(word()) << 16U;
    }
    /// A text up to its terminator.
    std::u16string text()
    {
        std::u16string text;
        for (std::uint16_t unit = word(); unit != 0; unit = word()) {
            text += static_cast<char16_t>(unit);
        }
        return text;
    }
    void skip(std::size_t count)
    {
        good_ = good_ && count <= bytes_.size() - position_;
        position_ = good_ ? position_ + count : bytes_.size();
    }
    void align(std::size_t to)
    {
        if (position_ % to != 0) {
            skip(to - position_ % to);
        }
    }

private:
    std::span<const std::byte> bytes_;
    std::size_t position_ = 0;
    bool good_ = true;
};

} // namespace base
